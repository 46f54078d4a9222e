// SPDX-License-Identifier: BSL-1.0
/// @file
/// The transverse slope along an axis.

#ifndef CALCULATIONS_SHAPES_TRANS_SLOPES_H
#define CALCULATIONS_SHAPES_TRANS_SLOPES_H

#include <utility>
#include <vector>

namespace Ruv {

/// An immutable, piecewise linear transverse slope.
class CTransSlopes {
 public:
  CTransSlopes() = default;
  /// @param ends stationing and slope (percent) of the interval ends, by ascending stationing
  explicit CTransSlopes(const std::vector<std::pair<double, double>>& ends);

  /// Slope in percent, 0 outside the intervals. Between two intervals it changes linearly; where
  /// two meet, the end value of the earlier one applies. O(log n).
  double at(double stationing) const { return m_stationings.empty() ? 0.0 : slopeAt(stationing); }

 private:
  double slopeAt(double stationing) const;

  std::vector<double> m_stationings;
  std::vector<double> m_slopes;
};

}  // namespace Ruv

#endif
