// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/PathPoints.h"

#include "profiles/paths/GridUnits.h"
#include "profiles/paths/PathImpl.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

std::vector<Point2D> pointsOf(const Path& path) {
  std::vector<Point2D> points;
  points.reserve(PathImpl::pointsOf(path).size());
  for (const ClipperLib::IntPoint& p : PathImpl::pointsOf(path)) {
    points.push_back(fromGrid(p));
  }
  return points;
}

}  // namespace

Polygon polygonOf(const Path& path) { return Polygon(pointsOf(path)); }

Polyline polylineOf(const Path& path) { return Polyline(pointsOf(path)); }

std::vector<Polygon> polygonsOf(const Pathes& paths, double minArea) {
  std::vector<Polygon> areas;
  for (const Path& path : paths.paths()) {
    // Areas are compared by magnitude, as those of holes are negative. A limit that is not a number
    // leaves nothing out.
    if (!(std::abs(path.area()) < minArea)) areas.push_back(polygonOf(path));
  }
  return areas;
}

std::vector<Polyline> polylinesOf(const Pathes& paths) {
  std::vector<Polyline> lines;
  for (const Path& path : paths.paths()) {
    lines.push_back(polylineOf(path));
  }
  return lines;
}

}  // namespace Calculations
}  // namespace Ruv
