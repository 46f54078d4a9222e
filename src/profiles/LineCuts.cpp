// SPDX-License-Identifier: BSL-1.0
// An edge crosses a line where the distances of its two ends from the line differ in sign, at the
// share a / (a - b) of the edge for the distances a and b. The distance of each vertex is computed
// once for both of its edges, so that no line through a vertex is lost between them. Vertices that
// are not finite are left out and their neighbours joined.

#include "profiles/LineCuts.h"

#include "shapes/LineCrossing.h"
#include "shapes/ShapeTolerances.h"

#include <optional>

namespace Ruv {
namespace Calculations {

namespace {

/// A point of a polygon and its distance from a line.
struct Vertex {
  Point2D point;
  double distance = 0.0;
};

}  // namespace

Point2D nearestCrossing(const MeasuredProfile& profile, const Point2D& p,
                        const Point2D& direction) {
  // Through the origin, so that no coordinate of p swallows the direction.
  const CLine line(Point2D(), direction);
  Point2D nearest(kFarthestDistance, kFarthestDistance);
  if (!line.hasDirection()) return nearest;
  double shortest = kFarthestDistance;
  const auto lookAt = [&](const Vertex& start, const Vertex& end) {
    const auto crossing = crossingOf(start.point, start.distance, end.point, end.distance);
    // Only what is strictly nearer replaces, so the first of equally near crossings stays.
    if (!crossing || !((*crossing - p).length() < shortest)) return;
    shortest = (*crossing - p).length();
    nearest = *crossing;
  };
  std::optional<Vertex> first;
  Vertex before;
  const unsigned int count = profile.getNumPoints();
  for (unsigned int i = 0; i < count; ++i) {
    const Point2D point = profile.getPointAt(i);
    if (!isFinite(point)) continue;
    const Vertex vertex{point, line.distanceOf(point - p)};
    if (first) {
      lookAt(before, vertex);
    } else {
      first = vertex;
    }
    before = vertex;
  }
  // The last edge leads back to the first point.
  if (first) lookAt(before, *first);
  return nearest;
}

std::vector<Point2D> polygonCrossings(const std::vector<Point2D>& polygon, const Point2D& a,
                                      const Point2D& b) {
  std::vector<Point2D> crossings;
  const CLine line(a, b);
  if (polygon.size() < 3 || !line.hasDirection()) return crossings;
  // The edge that leads to the first point comes first, and the crossings are in this order.
  Point2D before = polygon.back();
  for (const Point2D& point : polygon) {
    const auto crossing = crossingOf(line, before, point);
    before = point;
    if (!crossing) continue;
    const double place = line.placeOf(*crossing);
    if (place >= 0.0 && place <= line.length()) crossings.push_back(*crossing);
  }
  return crossings;
}

}  // namespace Calculations
}  // namespace Ruv
