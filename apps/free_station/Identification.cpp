// SPDX-License-Identifier: BSL-1.0
#include "free_station/Identification.h"

#include "common/console/Files.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <future>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>

namespace FreeStation {

namespace {

using Exchange::SurveyedPoint;
using Ruv::Calculations::PointDetermination;

/// Identifications that chance explains more often than this are doubtful: three or four matches
/// among many fix points prove little.
constexpr double kMostByChance = 0.01;

using Search = std::optional<Identification>;

Search searchToTheEnd(const std::vector<SurveyedPoint>& points,
                      const std::vector<Measurement>& measurements, const Tolerances& tolerances) {
  PointDetermination determination;
  determination.setToleranceDistanceDifference(tolerances.distance);
  determination.setToleranceHeightDifference(tolerances.height);
  std::map<std::wstring, const SurveyedPoint*> fixPoints;
  for (const SurveyedPoint& point : points) {
    determination.addPoint(wideId(point.id), point.grid);
    fixPoints[wideId(point.id)] = &point;
  }
  for (const Measurement& measurement : measurements) {
    determination.addMeasurement(wideId(measurement.id), measurement.polar);
  }
  if (!determination.determineMeasuredPointsRobust()) return std::nullopt;
  Identification found;
  found.isUnambiguous = determination.isBestSolutionSignificantlyBetter();
  found.expectedByChance = determination.expectedChanceSolutions();
  for (const Measurement& measurement : measurements) {
    const auto fixPoint =
        fixPoints.find(determination.getFixPointIdForMeasurementId(wideId(measurement.id)));
    if (fixPoint == fixPoints.end()) {
      found.strays.push_back(measurement);
    } else {
      found.sightings.push_back({measurement, *fixPoint->second});
    }
  }
  return found;
}

/// Tolerances as wide as the distances between fix points make the ways to assign measurements to
/// them countless. The search knows no way to stop: it is left behind, with copies of its input.
/// @return nothing when it did not end in time
std::optional<Search> searchFor(std::chrono::seconds time, const std::vector<SurveyedPoint>& points,
                                const std::vector<Measurement>& measurements,
                                const Tolerances& tolerances) {
  std::packaged_task<Search()> task([points, measurements, tolerances] {
    return searchToTheEnd(points, measurements, tolerances);
  });
  std::future<Search> found = task.get_future();
  std::thread(std::move(task)).detach();
  if (found.wait_for(time) != std::future_status::ready) return std::nullopt;
  return found.get();
}

/// The measurements without that of the boom.
std::vector<Measurement> measurementsIn(const FieldBook& book,
                                        const std::vector<Reading>& readings) {
  std::vector<Measurement> measurements = measurementsOf(readings);
  const auto isBoom = [&book](const Measurement& m) { return book.boom && m.id == book.boom->id; };
  measurements.erase(std::remove_if(measurements.begin(), measurements.end(), isBoom),
                     measurements.end());
  return measurements;
}

std::vector<SurveyedPoint> withEastAndNorthSwapped(std::vector<SurveyedPoint> points) {
  for (SurveyedPoint& point : points) {
    std::swap(point.grid.east, point.grid.north);
  }
  return points;
}

/// Another meaning of the same files.
struct Reinterpretation {
  const char* condition;
  const char* remedy;
  double angleFactor;
  bool isSwapped;
};

/// "if the angles are degrees, 12 measurements fit: give --angles deg"; empty when the files fit
/// best as they were read.
std::string betterMeaning(const FieldBook& book, const Tolerances& tolerances,
                          std::size_t fitting) {
  constexpr double kFullTurn = 6.283185307179586;
  constexpr std::chrono::seconds kTime(10);
  constexpr std::array<Reinterpretation, 3> kMeanings = {
      {{"the angles are degrees", "give --angles deg", 400.0 / 360.0, false},
       {"the angles are gon", "give --angles gon", 360.0 / 400.0, false},
       {"east and north of the fix points are swapped",
        "name the columns by --columns fixpoints:id,north,east,height", 1.0, true}}};
  for (const Reinterpretation& meaning : kMeanings) {
    const auto readings = withAnglesTimes(meaning.angleFactor, book.readings);
    const bool isPossible = std::all_of(readings.begin(), readings.end(), [](const Reading& r) {
      return r.polar.verticalAngle <= kFullTurn;
    });
    if (!isPossible) continue;
    const auto found = searchFor(
        kTime, meaning.isSwapped ? withEastAndNorthSwapped(book.fixPoints) : book.fixPoints,
        measurementsIn(book, readings), tolerances);
    if (found && *found && (*found)->sightings.size() > fitting) {
      return "if " + std::string(meaning.condition) + ", " +
             std::to_string((*found)->sightings.size()) + " measurements fit: " + meaning.remedy;
    }
  }
  return {};
}

void addDoubts(const FieldBook& book, const Tolerances& tolerances, Identification& found) {
  if (!found.isUnambiguous) {
    found.doubts.emplace_back("another assignment to fix points fits nearly as well");
  }
  if (found.expectedByChance > kMostByChance) {
    found.doubts.push_back(
        std::to_string(found.sightings.size()) + " of " + std::to_string(book.measurements.size()) +
        " measurements fit fix points, as many as chance lets fit " +
        expectedText(found.expectedByChance) + " times: measure more fix points");
  }
  if (!found.strays.empty()) {
    const std::string meaning = betterMeaning(book, tolerances, found.sightings.size());
    if (!meaning.empty()) found.doubts.push_back(meaning);
  }
  std::set<std::string> ids;
  for (const SurveyedPoint& point : book.fixPoints) {
    ids.insert(point.id);
  }
  for (const Sighting& s : found.sightings) {
    if (s.measurement.id != s.fixPoint.id && ids.count(s.measurement.id) > 0) {
      found.doubts.push_back("the measurement named " + s.measurement.id + " fits the fix point " +
                             s.fixPoint.id);
    }
  }
}

}  // namespace

std::string expectedText(double expected) {
  constexpr double kNever = 1e-12;
  constexpr double kOften = 100.0;
  if (expected < kNever) return "less than 1e-12";
  return expected > kOften ? "more than 100" : Drawing::scientific(expected, 0);
}

Identification identify(const FieldBook& book, const Tolerances& tolerances) {
  constexpr std::chrono::seconds kTime(60);
  auto result = searchFor(kTime, book.fixPoints, book.measurements, tolerances);
  if (!result) {
    throw Console::Failure(
        "the search for the fix points did not end within a minute: too many of them fit; give "
        "smaller tolerances, or fewer fix points or measurements");
  }
  Search& found = *result;
  if (!found) {
    const std::string meaning = betterMeaning(book, tolerances, 0);
    throw Console::Failure("no three measurements fit the fix points within the tolerances" +
                           (meaning.empty() ? meaning : "; " + meaning));
  }
  addDoubts(book, tolerances, *found);
  return *found;
}

}  // namespace FreeStation
