#include "profiles/LineCuts.h"

#include "shapes/LineCrossing.h"
#include "shapes/ShapeTolerances.h"

namespace Ruv {
namespace Calculations {

Point2D nearestCrossing(const IProfileSegmentProvider& profile, const Point2D& p,
                        const Point2D& direction) {
  // Through the origin, so that no coordinate of p swallows the direction.
  const CLine line(Point2D(), direction);
  Point2D nearest(kFarthestDistance, kFarthestDistance);
  if (!line.hasDirection()) return nearest;
  double shortest = kFarthestDistance;
  const unsigned int count = profile.getNumSegments();
  for (unsigned int i = 0; i < count; ++i) {
    const Point2D start = profile.getSegmentStartAt(i);
    const Point2D end = profile.getSegmentEndAt(i);
    const auto crossing =
        crossingOf(start, line.distanceOf(start - p), end, line.distanceOf(end - p));
    if (!crossing || !((*crossing - p).length() < shortest)) continue;
    shortest = (*crossing - p).length();
    nearest = *crossing;
  }
  return nearest;
}

std::vector<Point2D> polygonCrossings(const std::vector<Point2D>& polygon, const Point2D& a,
                                      const Point2D& b) {
  std::vector<Point2D> crossings;
  const CLine line(a, b);
  if (polygon.size() < 3 || !line.hasDirection()) return crossings;
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
