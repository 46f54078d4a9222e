// SPDX-License-Identifier: BSL-1.0
/// @file
/// Keeps the nearest of several candidates.

#ifndef CALCULATIONS_SHAPES_NEAREST_H
#define CALCULATIONS_SHAPES_NEAREST_H

#include "shapes/ShapeTolerances.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace Ruv {

/// The nearest candidate offered so far and, of equally near ones, the first along the curve.
/// Candidates may be offered in any order: the result is that of a walk along the curve on which
/// a strictly nearer candidate replaces the best.
template <class T>
class CNearest {
 public:
  double distance() const { return m_distance; }

  const std::optional<T>& candidate() const { return m_candidate; }

  /// @param order place of the candidate on the walk
  void offer(double distance, double order, const T& candidate) {
    const bool isEarlierEqual = distance == m_distance && order < m_order;
    if (!(distance < m_distance || isEarlierEqual)) return;
    m_distance = distance;
    m_order = order;
    m_candidate = candidate;
  }

 private:
  double m_distance = kFarthestDistance;
  double m_order = -std::numeric_limits<double>::infinity();
  std::optional<T> m_candidate;
};

/// Distance beyond which nothing can be nearer than a distance already found, rounding allowed for.
inline double reachOf(double distance) {
  constexpr double kRelative = 1.0 + 1e-12;
  constexpr double kAbsolute = 1e-9;
  return distance * kRelative + kAbsolute;
}

/// Chooses between regular feet and feet that lie just outside their curve by no more than
/// kFootTolerance. Without the latter, a point on the normal of a joint, which rounding makes
/// miss both neighbours, would get a foot kilometres away.
template <class T>
class CNearestFoot {
 public:
  CNearest<T> regular;
  CNearest<T> justOutside;

  /// Distance beyond which no candidate can matter.
  double reach() const {
    return reachOf(std::min(regular.distance(), justOutside.distance() + kFootPreference));
  }

  std::optional<T> chosen() const {
    const bool prefersOutside = !(regular.distance() <= justOutside.distance() + kFootPreference);
    const bool isOutside = justOutside.candidate() && prefersOutside;
    const std::optional<T>& found = isOutside ? justOutside.candidate() : regular.candidate();
    // Copied as a value: a copy of the whole would wait for the byte that was written last.
    if (!found) return std::nullopt;
    return *found;
  }
};

}  // namespace Ruv

#endif
