// SPDX-License-Identifier: BSL-1.0
// The shoelace formula (Meister 1769) in moments: with the points p_i of the ring and the cross
// products x_i = p_i x p_(i+1), the doubled area is sum x_i, positive when the ring runs
// anticlockwise, and the centroid is sum (p_i + p_(i+1)) x_i / (3 sum x_i).

#include "shapes/AreaCentroid.h"

#include <cstddef>

namespace Ruv {

std::optional<AreaAndCentroid> areaAndCentroid(const std::vector<Point2D>& polygon) {
  if (polygon.empty()) return std::nullopt;
  // Reduced coordinates: the products would cost digits far from the origin.
  const Point2D reference = polygon.front();
  double doubledArea = 0.0;
  Point2D moment;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2D a = polygon[i] - reference;
    const Point2D b = polygon[i + 1 < polygon.size() ? i + 1 : 0] - reference;
    const double cross = a.x * b.y - b.x * a.y;
    doubledArea += cross;
    moment = moment + (a + b) * cross;
  }
  if (doubledArea == 0.0) return std::nullopt;
  return AreaAndCentroid{-doubledArea / 2.0, reference + moment / (3.0 * doubledArea)};
}

}  // namespace Ruv
