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

/// In an assignment: this measurement was left out.
constexpr std::size_t kNotAssigned = std::numeric_limits<std::size_t>::max();

/// One way to assign measured points to fix points.
struct MatchedSolution {
  std::vector<std::size_t> fixPoints;  ///< for each measured point, or kNotAssigned
  double score = 0.0;                  ///< weighted sum of squared deviations, lowest is best
};

/// The distance between two points of a set.
struct PointDistance {
  std::size_t from = 0;
  std::size_t to = 0;
  double distance = 0.0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
