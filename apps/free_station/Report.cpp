// SPDX-License-Identifier: BSL-1.0
#include "free_station/Report.h"

#include "common/console/Files.h"
#include "common/console/TextTable.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iostream>

namespace FreeStation {

namespace {

using Drawing::fixed;
using Drawing::signedFixed;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::StationPlacement;
using Ruv::Calculations::Utilities;

constexpr double kMillimetres = 1000.0;

std::string gon(double radians, int decimals) {
  return fixed(Utilities::rad2gon(radians), decimals);
}
std::string milligon(double radians) { return fixed(Utilities::rad2gon(radians) * 1000.0, 1); }

std::string fixPointOf(const Identification& identification, const Measurement& measurement) {
  for (const Sighting& s : identification.sightings) {
    if (s.measurement.id == measurement.id) return s.fixPoint.id;
  }
  return "none";
}

void printIdentification(const Survey& survey) {
  Console::printHeading("Which fix points were measured");
  Console::TextTable table(
      {"measurement\n", "horizontal\ngon", "zenith\ngon", "slope dist.\nm", "fix point\n"});
  for (const Measurement& m : survey.book.measurements) {
    table.addRow({m.id, gon(m.polar.horizontalAngle, 4), gon(m.polar.verticalAngle, 4),
                  fixed(m.polar.slopeDistance, 4), fixPointOf(survey.identification, m)});
  }
  table.print(std::cout);
  const std::size_t found = survey.identification.sightings.size();
  std::cout << "\nOf " << survey.book.measurements.size() << " measurements " << found
            << " belong to one of " << survey.book.fixPoints.size() << " fix points. "
            << (survey.identification.isUnambiguous
                    ? "No other assignment fits as well.\n"
                    : "Another assignment fits nearly as well: check it.\n")
            << "Of as many strays, " << expectedText(survey.identification.expectedByChance)
            << " such assignments would be expected by chance.\n";
}

/// Of points sighted more than once.
void printRepeatedSightings(const Survey& survey) {
  std::vector<Measurement> measurements = survey.book.measurements;
  if (survey.book.boom) measurements.push_back(*survey.book.boom);
  Console::TextTable table({"measurement\n", "sightings\n", "faces\n",
                            "largest diff.: horizontal\nmgon", "zenith\nmgon", "distance\nmm"});
  bool isRepeated = false;
  for (const Measurement& m : measurements) {
    if (m.readings < 2) continue;
    isRepeated = true;
    table.addRow({m.id, std::to_string(m.readings), m.hasBothFaces ? "both" : "one",
                  milligon(m.spread.horizontal), milligon(m.spread.zenith),
                  fixed(m.spread.distance * kMillimetres, 1)});
  }
  if (!isRepeated) return;
  Console::printHeading("Repeated sightings, whose means are taken");
  table.print(std::cout);
}

/// Scales this far from 1 do not come from the accuracy of the measurements.
bool isScaleSignificant(const StationPlacement& station) {
  constexpr double kStdDevs = 3.0;
  return std::abs(station.scale() - 1.0) > kStdDevs * station.scaleStdDev();
}

void printStation(const Survey& survey) {
  Console::printHeading("Station");
  const StationPlacement& s = survey.placement;
  Console::TextTable table({"quantity\n", "value\n", "unit\n", "std. dev.\n", "unit\n"});
  const auto addCoordinate = [&table](const std::string& name, double value, double stdDev) {
    table.addRow({name, fixed(value, 4), "m", fixed(stdDev * kMillimetres, 1), "mm"});
  };
  addCoordinate("east", s.station().east, s.stationStdDev().east);
  addCoordinate("north", s.station().north, s.stationStdDev().north);
  addCoordinate("height", s.station().height, s.stationStdDev().height);
  table.addRow(
      {"orientation", gon(s.orientation(), 4), "gon", milligon(s.orientationStdDev()), "mgon"});
  table.addRow(
      {"scale - 1", scaleInMillionths(s.scale()), "ppm", fixed(s.scaleStdDev() * 1e6, 0), "ppm"});
  table.addRow({"tilt forward", gon(-s.tiltAboutEast(), 4), "gon", "", ""});
  table.addRow({"tilt right", gon(s.tiltAboutNorth(), 4), "gon", "", ""});
  if (const auto ground = survey.groundHeight()) {
    addCoordinate("ground height", *ground, s.stationStdDev().height);
  }
  table.print(std::cout);
  const ErrorEllipse& ellipse = survey.reliability.ellipse;
  std::cout << "\nError ellipse in plan: semi-axes " << fixed(ellipse.semiMajor * kMillimetres, 1)
            << " and " << fixed(ellipse.semiMinor * kMillimetres, 1)
            << " mm, the larger one in azimuth " << gon(ellipse.azimuth, 1) << " gon.\n";
  if (isScaleSignificant(s)) {
    std::cout << "\nThe scale differs from 1 by more than three standard deviations: look for the\n"
                 "cause in the fix points or in the instrument's distances.\n";
  }
}

/// "0.87/0.90/0.71"
std::string triple(const ENHPoint& point, int decimals) {
  return fixed(point.east, decimals) + "/" + fixed(point.north, decimals) + "/" +
         fixed(point.height, decimals);
}

void printOutlier(const Survey& survey) {
  const Reliability& reliability = survey.reliability;
  std::cout << "Redundancy " << reliability.redundancy << "; |w| exceeds "
            << fixed(reliability.criticalW, 2) << " by chance once in a thousand.\n";
  if (!reliability.outlier) return;
  const Sighting& s = survey.identification.sightings[*reliability.outlier];
  std::cout << "* The largest, of measurement " << s.measurement.id << " to fix point "
            << s.fixPoint.id << ", is an outlier: check the point and the measurement.\n";
}

void printResiduals(const Survey& survey) {
  Console::printHeading("Residuals, measured less known");
  Console::TextTable table({"fix point\n", "measurement\n", "east\nmm", "north\nmm", "height\nmm",
                            "in space\nmm", "redundancy\nE/N/H", "w\nE/N/H"});
  double largest = 0.0;
  for (std::size_t i = 0; i < survey.residuals.size(); ++i) {
    const ENHPoint r = survey.residuals[i] * kMillimetres;
    const Sighting& s = survey.identification.sightings[i];
    const Control& control = survey.reliability.sightings[i];
    const std::string mark = survey.reliability.outlier == i ? "*" : "";
    table.addRow({mark + s.fixPoint.id, s.measurement.id, signedFixed(r.east, 1),
                  signedFixed(r.north, 1), signedFixed(r.height, 1), fixed(r.length(), 1),
                  triple(control.redundancy, 2), triple(control.w, 1)});
    largest = std::max(largest, r.length());
  }
  table.print(std::cout);
  std::cout << "\nStandard deviation of one coordinate "
            << fixed(sigma0Of(survey.residuals) * kMillimetres, 1) << " mm, largest residual "
            << fixed(largest, 1) << " mm.\n";
  printOutlier(survey);
}

void printNewPoints(const Survey& survey) {
  if (survey.newPoints.empty()) return;
  Console::printHeading("Other points");
  std::vector<std::string> heads = {"measurement\n", "east\nm", "north\nm", "height\nm"};
  if (survey.hasAxis()) heads.insert(heads.end(), {"stationing\n", "offset\nm", "above axis\nm"});
  Console::TextTable table(heads);
  for (const NewPoint& point : survey.newPoints) {
    std::vector<std::string> row = {point.id, fixed(point.grid.east, 3), fixed(point.grid.north, 3),
                                    fixed(point.grid.height, 3)};
    if (point.onAxis) {
      row.insert(row.end(),
                 {survey.stationing.text(point.onAxis->stationing, 3),
                  signedFixed(point.onAxis->offset, 3), signedFixed(point.onAxis->height, 3)});
    } else if (survey.hasAxis()) {
      row.insert(row.end(), {"-", "-", "-"});
    }
    table.addRow(row);
  }
  table.print(std::cout);
}

void printPositionOnAxis(const Survey& survey) {
  Console::printHeading("Station on axis " + survey.axisName);
  std::cout << "Stationing       " << survey.stationing.text(survey.stationOnAxis.stationing, 3)
            << '\n'
            << "Offset           " << signedFixed(survey.stationOnAxis.offset, 3) << " m\n"
            << "Above the axis   " << signedFixed(survey.stationOnAxis.height, 3) << " m\n"
            << "Axis azimuth     " << gon(survey.axisAzimuth, 4) << " gon\n";
}

void printGuidance(const Survey& survey) {
  Console::printHeading("Guidance of the boom point");
  const GuidanceTask& task = survey.guidance;
  std::cout << "Vector from      " << survey.stationing.text(task.origin.stationing, 3)
            << ", offset " << signedFixed(task.origin.offset, 3) << " m, "
            << signedFixed(task.origin.height, 3) << " m above the axis\n"
            << "Boom point       east " << fixed(task.boom.east, 3) << ", north "
            << fixed(task.boom.north, 3) << ", height " << fixed(task.boom.height, 3) << " m\n\n";
  const std::string ahead = fixed(task.ahead, 1) + " m ahead: ";
  Console::TextTable table(
      {"vector\n", "forward\nm", "right\nm", "up\nm", ahead + "east\nm", "north\nm", "height\nm"});
  for (const GuidanceResult& g : survey.guided) {
    table.addRow({g.vector, signedFixed(g.offsets.forward, 3), signedFixed(g.offsets.horizontal, 3),
                  signedFixed(g.offsets.vertical, 3), fixed(g.ahead.east, 3),
                  fixed(g.ahead.north, 3), fixed(g.ahead.height, 3)});
  }
  table.print(std::cout);
}

}  // namespace

std::string scaleInMillionths(double scale) { return signedFixed((scale - 1.0) * 1e6, 0); }

void printReport(const Survey& survey) {
  printIdentification(survey);
  if (!survey.hasStation) return;
  printRepeatedSightings(survey);
  printStation(survey);
  printResiduals(survey);
  printNewPoints(survey);
  if (survey.hasAxis()) printPositionOnAxis(survey);
  if (survey.isGuided()) printGuidance(survey);
}

}  // namespace FreeStation
