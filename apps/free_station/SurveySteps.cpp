// SPDX-License-Identifier: BSL-1.0
#include "free_station/SurveySteps.h"

#include "common/console/AxisFile.h"
#include "common/console/Files.h"
#include "common/exchange/NumberParsing.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>

namespace FreeStation {

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Utilities;

void readAxis(const Options& options, Survey& survey) {
  const auto& [alignment, built] = Console::readAxisFile(options.landXml, options.axis);
  Console::printRemarks(options.landXml, built.notes);
  survey.axisName = alignment.name;
  survey.stationing = built.stationing;
  survey.guidance.axis = built.axis;
}

void findStationOnAxis(Survey& survey) {
  const AxisCalculator calculator(survey.guidance.axis);
  if (!calculator.enhPointToAxisPointVertical(survey.placement.station(), survey.stationOnAxis)) {
    throw Console::Failure("the station lies beside no part of the axis");
  }
  double radius = 0.0;
  double slope = 0.0;
  double slopePercent = 0.0;
  double transSlope = 0.0;
  double transSlopePercent = 0.0;
  calculator.axisPropertiesAtStationing(survey.stationOnAxis.stationing, survey.axisAzimuth, radius,
                                        slope, slopePercent, transSlope, transSlopePercent);
}

/// Without an axis drawings look towards the middle of the fix points.
void lookAtFixPoints(Survey& survey) {
  ENHPoint sum;
  for (const Sighting& s : survey.identification.sightings) {
    sum = sum + (s.fixPoint.grid - survey.placement.station());
  }
  survey.axisAzimuth = std::atan2(sum.east, sum.north);
}

void placeNewPoints(Survey& survey) {
  std::vector<Measurement> measurements = survey.identification.strays;
  if (survey.book.boom) measurements.push_back(*survey.book.boom);
  for (const Measurement& measurement : measurements) {
    NewPoint point{measurement.id, survey.placement.toGlobal(measurement.polar), {}};
    AxisPoint onAxis;
    if (survey.hasAxis() &&
        AxisCalculator(survey.guidance.axis).enhPointToAxisPointVertical(point.grid, onAxis)) {
      point.onAxis = onAxis;
    }
    survey.newPoints.push_back(point);
  }
}

AxisPoint originOf(const Options& options, const Exchange::Stationing& stationing) {
  constexpr double kFarthest = 1e6;
  const auto distance = [&options](std::size_t i) {
    const auto number = Exchange::parseNumber(options.origin[i]);
    if (number && std::abs(*number) <= kFarthest) return *number;
    throw Console::WrongUsage("--origin: " + options.origin[i] + " is no distance in metres");
  };
  return {Console::placeOf("--origin", options.origin[0], stationing), distance(1), distance(2)};
}

/// Repeated sightings that do not belong together, and targets above a tilted instrument.
void addDoubts(const Tolerances& tolerances, Survey& survey) {
  constexpr double kTilted = 0.001;  // m at the foot of a target
  std::vector<Measurement> all = survey.book.measurements;
  if (survey.book.boom) all.push_back(*survey.book.boom);
  double highest = 0.0;
  for (const Measurement& m : all) {
    highest = std::max(highest, m.targetHeight);
    if (m.spreadInSpace() > tolerances.distance) {
      survey.doubts.push_back("the sightings of " + m.id + " differ by " +
                              fixed(m.spreadInSpace(), 3) + " m");
    }
  }
  const double tilt =
      std::hypot(survey.placement.tiltAboutEast(), survey.placement.tiltAboutNorth());
  if (highest * std::sin(std::min(tilt, 1.5)) > kTilted) {
    survey.doubts.push_back("the instrument is tilted by " + fixed(Utilities::rad2gon(tilt), 3) +
                            " gon, along which the target heights were taken off");
  }
}

}  // namespace

Survey surveyWith(const Options& options) {
  Survey survey;
  if (!options.landXml.empty()) readAxis(options, survey);
  const bool isGuided = !options.origin.empty();
  if (isGuided) survey.guidance.origin = originOf(options, survey.stationing);
  survey.book = readFieldBook(
      {options.fixPoints, options.measurements, options.boom.empty() ? "boom" : options.boom,
       isGuided || !options.boom.empty()},
      options.tables);
  if (!survey.book.instrumentHeight) survey.book.instrumentHeight = options.instrumentHeight;
  survey.identification = identify(survey.book, options.tolerances);
  survey.doubts = survey.book.doubts;
  const auto& doubts = survey.identification.doubts;
  survey.doubts.insert(survey.doubts.end(), doubts.begin(), doubts.end());
  survey.hasStation = doubts.empty() || options.accept;
  if (!survey.hasStation) return survey;
  survey.placement = setUpStation(survey.identification.sightings);
  survey.residuals = residualsOf(survey.placement, survey.identification.sightings);
  survey.reliability = reliabilityOf(survey.placement, survey.identification.sightings);
  addDoubts(options.tolerances, survey);
  if (survey.hasAxis()) {
    findStationOnAxis(survey);
  } else {
    lookAtFixPoints(survey);
  }
  placeNewPoints(survey);
  if (survey.hasBoom()) survey.guidance.boom = survey.newPoints.back().grid;
  survey.guidance.ahead = options.ahead;
  if (isGuided) survey.guided = guide(survey.guidance);
  return survey;
}

}  // namespace FreeStation
