// SPDX-License-Identifier: BSL-1.0
/// @file
/// Settings and results of the search for fix points.

#ifndef CALCULATIONS_STATIONS_MATCHING_H
#define CALCULATIONS_STATIONS_MATCHING_H

#include <cstddef>
#include <limits>
#include <vector>

namespace Ruv {
namespace Calculations {

struct MatchSettings {
  int minNumberOfFixPointMeasurementsRequired = 3;
  double toleranceDistanceDifference = 0.05;  ///< m, also of the deviations in east and in north
  double toleranceHeightDifference = 0.02;    ///< m
  double toleranceTilt = 80.0;                ///< degrees
};

// The search counts three things from 0 and must not take one for another: measured points in the
// order of measuring, places in the FixPointField, and fix points in the order of their ids. The
// first two are types of their own. Fix points are plain numbers, as they leave the search with a
// solution.

/// A measured point, by its index in the order of measuring.
enum class MeasuredPoint : std::size_t {};

/// A place in a FixPointField, counted along its line.
enum class FieldPlace : std::size_t {};

constexpr std::size_t indexOf(MeasuredPoint point) { return static_cast<std::size_t>(point); }
constexpr std::size_t indexOf(FieldPlace place) { return static_cast<std::size_t>(place); }

/// In an assignment: this measurement was left out.
constexpr std::size_t kNotAssigned = std::numeric_limits<std::size_t>::max();

/// One way to assign measured points to fix points.
struct MatchedSolution {
  std::vector<std::size_t> fixPoints;  ///< for each measured point, or kNotAssigned
  double score = 0.0;                  ///< weighted sum of squared deviations, lowest is best
};

/// The distance between two measured points.
struct PointDistance {
  MeasuredPoint from{};
  MeasuredPoint to{};
  double distance = 0.0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
