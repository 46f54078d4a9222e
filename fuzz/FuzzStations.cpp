// SPDX-License-Identifier: BSL-1.0
// Free stations and the identification of fix points: exact measurements give the station back.

#include "FuzzInput.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace {

using namespace Ruv::Calculations;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;

std::wstring idOf(std::size_t number) { return std::to_wstring(number); }

struct Survey {
  ENHPoint station;
  double orientation = 0.0;
  std::vector<ENHPoint> fixPoints;
  std::vector<PolarPoint> measurements;  ///< of the fix points in order
};

PolarPoint measurementOf(Input& input, const Survey& survey, const ENHPoint& target) {
  if (!input.isTame() && input.yes()) {
    const double horizontal = input.number(0.0, 6.0);
    const double vertical = input.number(0.0, 3.0);
    return {horizontal, vertical, input.number(0.0, 100.0)};
  }
  return Utilities::convertToPolarMeasurement(
      Utilities::transformGlobalToLocal(target, survey.station, survey.orientation, 1.0));
}

Survey survey(Input& input) {
  Survey made;
  made.station = input.gridPoint(50.0);
  made.orientation = input.number(0.0, 6.28);
  for (int left = input.count(7); left > 0 && input.isLeft(); --left) {
    made.fixPoints.push_back(input.gridPoint(50.0));
    made.measurements.push_back(measurementOf(input, made, made.fixPoints.back()));
  }
  return made;
}

/// The first `count` points span a triangle of half this area (m2): the station is not open.
bool isSpread(const std::vector<ENHPoint>& points, std::size_t count) {
  constexpr double kLeast = 100.0;
  for (std::size_t i = 2; i < std::min(count, points.size()); ++i) {
    const ENHPoint a = points[1] - points[0];
    const ENHPoint b = points[i] - points[0];
    const double east = a.north * b.height - a.height * b.north;
    const double north = a.height * b.east - a.east * b.height;
    const double height = a.east * b.north - a.north * b.east;
    if (std::hypot(east, std::hypot(north, height)) > kLeast) return true;
  }
  return false;
}

bool isSpreadInPlan(std::vector<ENHPoint> points) {
  for (ENHPoint& p : points) {
    p.height = 0.0;
  }
  return isSpread(points, points.size());
}

struct Found {
  bool ok = false;
  ENHPoint station;
  ENHPoint deviations;
  double orientation = 0.0;
  double orientationDeviation = 0.0;
  double scale = 0.0;
  double scaleDeviation = 0.0;
};

void requireStation(const Found& found, const Survey& survey) {
  constexpr double kTolerance = 1e-6;
  require(found.ok, "points that spread give a station");
  requireNear(Utilities::distance3dBetween(found.station, survey.station), 0.0, kTolerance,
              "exact measurements give the station");
  requireNear(Utilities::getangleAsMinusPiToPi(found.orientation - survey.orientation), 0.0,
              kTolerance, "exact measurements give the orientation");
  requireNear(found.scale, 1.0, kTolerance, "exact measurements give the scale");
}

void setUp(Input& input, const Survey& survey) {
  Resection resection;
  for (std::size_t i = 0; i < survey.fixPoints.size(); ++i) {
    resection.addFixPoint(idOf(i), survey.fixPoints[i]);
    resection.addMeasurement(idOf(i), survey.measurements[i]);
  }
  Found plane;
  plane.ok = resection.calculateResectionHelmert2d(plane.station, plane.orientation, plane.scale,
                                                   plane.deviations, plane.orientationDeviation,
                                                   plane.scaleDeviation);
  Found space;
  space.ok = resection.calculateResectionHelmert3d(space.station, space.orientation, space.scale,
                                                   space.deviations, space.orientationDeviation,
                                                   space.scaleDeviation);
  if (!input.isTame() || !isSpreadInPlan(survey.fixPoints)) return;
  requireStation(plane, survey);
  requireStation(space, survey);
}

/// @return false when it leaves the settings as they are
bool changeSettings(Input& input, PointDetermination& determination) {
  if (input.count(3) != 0) return false;
  determination.setToleranceDistanceDifference(input.number(0.0, 1.0));
  determination.setToleranceHeightDifference(input.number(0.0, 1.0));
  determination.setToleranceTilt(input.number(0.0, 180.0));
  determination.setMinNumberOfFixPointMeasurementsRequired(input.count(5));
  return true;
}

/// The points that the measurements are found to be on, in order; of those left out none.
std::vector<const ENHPoint*> identified(const PointDetermination& determination,
                                        const Survey& survey, std::size_t count) {
  std::vector<const ENHPoint*> points;
  for (std::size_t i = 0; i < count; ++i) {
    const std::wstring id = determination.getFixPointIdForMeasurementId(idOf(i));
    points.push_back(id.empty() ? nullptr : &survey.fixPoints[std::stoul(id)]);
  }
  return points;
}

/// Two measurements are as far from each other as their points.
void requireCongruent(const std::vector<const ENHPoint*>& points, const Survey& survey,
                      double tolerance) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (points[i] == nullptr || points[j] == nullptr) continue;
      const double measured = Utilities::distance3dBetween(
          Utilities::convertToLocalCoordinates(survey.measurements[i]),
          Utilities::convertToLocalCoordinates(survey.measurements[j]));
      require(std::abs(measured - Utilities::distance3dBetween(*points[i], *points[j])) < tolerance,
              "measurements are as far from each other as their points");
    }
  }
}

void identify(Input& input, const Survey& survey) {
  constexpr std::size_t kMostMeasurements = 4;  // wide tolerances make all assignments solutions
  const std::size_t count = std::min(survey.measurements.size(), kMostMeasurements);
  PointDetermination determination;
  for (std::size_t i = 0; i < survey.fixPoints.size(); ++i) {
    determination.addPoint(idOf(i), survey.fixPoints[i]);
  }
  for (std::size_t i = 0; i < count; ++i) {
    determination.addMeasurement(idOf(i), survey.measurements[i]);
  }
  const bool isRobust = input.yes();
  const bool hasDefaults = !changeSettings(input, determination);
  const bool found = isRobust ? determination.determineMeasuredPointsRobust()
                              : determination.determineMeasuredPointsStrict();
  determination.isBestSolutionSignificantlyBetter();
  if (input.isTame() && hasDefaults && isSpread(survey.fixPoints, count)) {
    require(found, "exact measurements of points that spread are identified");
  }
  if (!found) return;
  const auto points = identified(determination, survey, count);
  require(
      std::count(points.begin(), points.end(), nullptr) + 3 <= static_cast<std::ptrdiff_t>(count),
      "a solution identifies at least three measurements");
  // Each point may deviate by the tolerances in its own direction.
  const double deviation =
      std::hypot(std::sqrt(2.0) * determination.getToleranceDistanceDifference(),
                 determination.getToleranceHeightDifference());
  requireCongruent(points, survey, 2.0 * deviation + 1e-9);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  std::clog.rdbuf(nullptr);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const Survey made = survey(input);
  setUp(input, made);
  identify(input, made);
  return 0;
}
