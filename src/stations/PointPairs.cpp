// SPDX-License-Identifier: BSL-1.0
#include "stations/PointPairs.h"

#include <Calculations/Utilities.h>

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Whole numbers are subtracted from coordinates without rounding, as long as they are near.
ENHPoint wholeMetres(const ENHPoint& p) {
  return ENHPoint(std::round(p.east), std::round(p.north), std::round(p.height));
}

void appendPairs(const std::vector<PolarPoint>& measurements, const ENHPoint& fixPoint,
                 PointPairs& pairs) {
  if (pairs.size() == 0) pairs.origin = wholeMetres(fixPoint);
  for (const PolarPoint& measurement : measurements) {
    pairs.local.push_back(Utilities::convertToLocalCoordinates(measurement));
    pairs.global.push_back(fixPoint - pairs.origin);
  }
}

}  // namespace

PointPairs pairMeasurementsWithFixPoints(const MeasurementMap& measurements,
                                         const FixPointMap& fixPoints) {
  PointPairs pairs;
  pairs.local.reserve(measurements.size());
  pairs.global.reserve(measurements.size());
  // Both maps are in the order of the ids. Walking them in step takes as many steps as both are
  // long.
  auto measured = measurements.begin();
  auto fixed = fixPoints.begin();
  while (measured != measurements.end() && fixed != fixPoints.end()) {
    const int order = measured->first.compare(fixed->first);
    if (order == 0) appendPairs(measured->second, fixed->second, pairs);
    if (order <= 0) ++measured;
    if (order >= 0) ++fixed;
  }
  return pairs;
}

/// The sum is that of differences from the first point, which are small and often exact.
ENHPoint centroidOf(const std::vector<ENHPoint>& points) {
  if (points.empty()) return ENHPoint();
  const ENHPoint& first = points.front();
  ENHPoint sum;
  for (const ENHPoint& p : points) {
    sum += p - first;
  }
  return first + sum / static_cast<double>(points.size());
}

}  // namespace Calculations
}  // namespace Ruv
