// SPDX-License-Identifier: BSL-1.0
/// @file
/// The points that take part in a fit.

#ifndef CALCULATIONS_FITTING_POINT_SUBSET_H
#define CALCULATIONS_FITTING_POINT_SUBSET_H

#include <Calculations/Points.h>

#include <Eigen/Core>

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// The two coordinates side by side, so that one instruction can treat both where the processor
/// has such; sums of pairs are still taken point by point.
inline Eigen::Array2d coordinatesOf(const Point2D& p) { return {p.x, p.y}; }

/// All points of a list, or those whose flag is true. A view: it owns nothing.
class PointSubset {
 public:
  explicit PointSubset(const std::vector<Point2D>& points) : m_points(points) {}

  /// @param used one flag per point
  PointSubset(const std::vector<Point2D>& points, const std::vector<bool>& used)
      : m_points(points), m_used(&used) {}

  /// Calls visit(point) for each point in order.
  template <class Visit>
  void forEach(Visit visit) const {
    if (m_used == nullptr) {
      for (const Point2D& p : m_points) {
        visit(p);
      }
      return;
    }
    for (std::size_t i = 0; i < m_points.size(); ++i) {
      if ((*m_used)[i]) visit(m_points[i]);
    }
  }

 private:
  const std::vector<Point2D>& m_points;
  const std::vector<bool>* m_used = nullptr;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
