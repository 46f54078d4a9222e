// SPDX-License-Identifier: BSL-1.0
/// @file
/// Polygons measured edge by edge, to check what clipping says of them.

#ifndef CALCULATIONS_TESTING_POLYGONS_H
#define CALCULATIONS_TESTING_POLYGONS_H

#include <Calculations/PointLists.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace TestSupport {

/// Positive when anticlockwise.
inline double areaOf(const std::vector<Ruv::Calculations::Point2D>& points) {
  double doubled = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Ruv::Calculations::Point2D& a = points[i];
    const Ruv::Calculations::Point2D& b = points[(i + 1) % points.size()];
    doubled += a.x * b.y - b.x * a.y;
  }
  return doubled / 2.0;
}

inline double areaOf(const std::vector<Ruv::Calculations::Polygon>& polygons) {
  double area = 0.0;
  for (const Ruv::Calculations::Polygon& polygon : polygons) {
    area += areaOf(polygon.points());
  }
  return area;
}

inline double distanceToEdge(const Ruv::Calculations::Point2D& p,
                             const Ruv::Calculations::Point2D& a,
                             const Ruv::Calculations::Point2D& b) {
  const Ruv::Calculations::Point2D d = b - a;
  const double square = d.x * d.x + d.y * d.y;
  const double part = square > 0.0 ? ((p.x - a.x) * d.x + (p.y - a.y) * d.y) / square : 0.0;
  return (p - a - d * std::min(std::max(part, 0.0), 1.0)).length();
}

}  // namespace TestSupport

#endif
