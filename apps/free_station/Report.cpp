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
                    : "Another assignment fits nearly as well: check it.\n");
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
  // Forward is up when the instrument leans back, which is a negative turn about east.
  table.addRow({"tilt forward", gon(-s.tiltAboutEast(), 4), "gon", "", ""});
  table.addRow({"tilt right", gon(s.tiltAboutNorth(), 4), "gon", "", ""});
  table.print(std::cout);
  if (isScaleSignificant(s)) {
    std::cout << "\nThe scale differs from 1 by more than three standard deviations: look for the\n"
                 "cause in the fix points or in the instrument's distances.\n";
  }
}

void printResiduals(const Survey& survey) {
  Console::printHeading("Residuals, measured less known");
  Console::TextTable table(
      {"fix point\n", "measurement\n", "east\nmm", "north\nmm", "height\nmm", "in space\nmm"});
  double largest = 0.0;
  for (std::size_t i = 0; i < survey.residuals.size(); ++i) {
    const ENHPoint r = survey.residuals[i] * kMillimetres;
    const Sighting& s = survey.identification.sightings[i];
    table.addRow({s.fixPoint.id, s.measurement.id, signedFixed(r.east, 1), signedFixed(r.north, 1),
                  signedFixed(r.height, 1), fixed(r.length(), 1)});
    largest = std::max(largest, r.length());
  }
  table.print(std::cout);
  std::cout << "\nStandard deviation of one coordinate "
            << fixed(sigma0Of(survey.residuals) * kMillimetres, 1) << " mm, largest residual "
            << fixed(largest, 1) << " mm.\n";
}

void printPositionOnAxis(const Survey& survey) {
  Console::printHeading("Station on axis " + survey.axisName);
  std::cout << "Stationing       " << Drawing::stationText(survey.stationOnAxis.stationing, 3)
            << '\n'
            << "Offset           " << signedFixed(survey.stationOnAxis.offset, 3) << " m\n"
            << "Above the axis   " << signedFixed(survey.stationOnAxis.height, 3) << " m\n"
            << "Axis azimuth     " << gon(survey.axisAzimuth, 4) << " gon\n";
}

void printGuidance(const Survey& survey) {
  Console::printHeading("Guidance of the boom point");
  const GuidanceTask& task = survey.guidance;
  std::cout << "Vector from      " << Drawing::stationText(task.origin.stationing, 3) << ", offset "
            << signedFixed(task.origin.offset, 3) << " m, " << signedFixed(task.origin.height, 3)
            << " m above the axis\n"
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
  printStation(survey);
  printResiduals(survey);
  printPositionOnAxis(survey);
  printGuidance(survey);
}

}  // namespace FreeStation
