#include "free_station/Identification.h"

#include "common/console/Files.h"

#include <map>
#include <string>

namespace FreeStation {

using Ruv::Calculations::PointDetermination;

Identification identify(const FieldBook& book, const Tolerances& tolerances) {
  PointDetermination search;
  search.setToleranceDistanceDifference(tolerances.distance);
  search.setToleranceHeightDifference(tolerances.height);
  std::map<std::wstring, const Exchange::SurveyedPoint*> fixPoints;
  for (const Exchange::SurveyedPoint& point : book.fixPoints) {
    search.addPoint(wideId(point.id), point.grid);
    fixPoints[wideId(point.id)] = &point;
  }
  for (const Measurement& measurement : book.measurements) {
    search.addMeasurement(wideId(measurement.id), measurement.polar);
  }
  if (!search.determineMeasuredPointsRobust()) {
    throw Console::Failure("no three measurements fit the fix points within the tolerances");
  }

  // Three or four matches among many fix points prove little: strays, or angles of another unit,
  // find some too, and a boom would be steered by them.
  constexpr double kMostByChance = 0.01;
  if (search.expectedChanceSolutions() > kMostByChance) {
    throw Console::Failure(
        "the measurements that fit may fit by chance: measure more fix points, "
        "and check that the angles are in gon");
  }

  Identification found;
  found.isUnambiguous = search.isBestSolutionSignificantlyBetter();
  for (const Measurement& measurement : book.measurements) {
    const auto fixPoint =
        fixPoints.find(search.getFixPointIdForMeasurementId(wideId(measurement.id)));
    if (fixPoint == fixPoints.end()) {
      found.strays.push_back(measurement);
    } else {
      found.sightings.push_back({measurement, *fixPoint->second});
    }
  }
  return found;
}

}  // namespace FreeStation
