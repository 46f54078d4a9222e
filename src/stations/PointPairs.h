// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measured points beside the fix points that they were taken of.

#ifndef CALCULATIONS_STATIONS_POINT_PAIRS_H
#define CALCULATIONS_STATIONS_POINT_PAIRS_H

#include <Calculations/Points.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

using FixPointMap = std::map<std::wstring, ENHPoint>;
using MeasurementMap = std::map<std::wstring, std::vector<PolarPoint>>;

/// Pair i is local[i], relative to the instrument with its circle's zero as north, and
/// origin + global[i].
struct PointPairs {
  std::vector<ENHPoint> local;
  std::vector<ENHPoint> global;

  /// Whole metres near the fix points. Squares of grid coordinates of 5000 km would be stored in
  /// steps of 4 mm^2; those of differences from this point lose nothing.
  ENHPoint origin;

  std::size_t size() const { return local.size(); }
};

/// Pairs each measurement whose id has a fix point with it, in the order of the ids and for one id
/// in the order of measuring.
PointPairs pairMeasurementsWithFixPoints(const MeasurementMap& measurements,
                                         const FixPointMap& fixPoints);

/// The mean of points. Exactly their common place when they all coincide, which the quotient of the
/// sum is not.
ENHPoint centroidOf(const std::vector<ENHPoint>& points);

}  // namespace Calculations
}  // namespace Ruv

#endif
