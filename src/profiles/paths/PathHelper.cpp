// SPDX-License-Identifier: BSL-1.0
// Conversions for callers who use the clipping library themselves. All of them are the ones that
// Path and Pathes use, so that both round alike and results can be carried to and fro.

#include <Calculations/PathHelper.h>

#include "foundation/MakeRoom.h"
#include "profiles/paths/GridUnits.h"
#include "profiles/paths/LineSimplification.h"
#include "profiles/paths/PathImpl.h"
#include "profiles/paths/PathPoints.h"
#include "profiles/paths/RingCutting.h"

namespace Ruv {
namespace Calculations {

ClipperLib::cInt PathHelper::asClipperLibUnits(double v) { return gridUnits(v); }

double PathHelper::fromClipperLibUnits(ClipperLib::cInt v) { return metresOf(v); }

double PathHelper::fromClipperLibArea(double a) { return squareMetresOf(a); }

ClipperLib::IntPoint PathHelper::asClipperLibPoint(const Point2D& p) { return onGrid(p); }

Point2D PathHelper::fromClipperLibPoint(ClipperLib::IntPoint p) { return fromGrid(p); }

bool PathHelper::pointInPath(const ClipperLib::Path& path, ClipperLib::IntPoint p) {
  return ClipperLib::PointInPolygon(p, path) == 1;
}

double PathHelper::distanceBetween(const ClipperLib::IntPoint& a, const ClipperLib::IntPoint& b) {
  return unitsBetween(a, b);
}

ClipperLib::Path PathHelper::clipperLibPathFromPath(const Path& path) {
  return PathImpl::pointsOf(path);
}

Path PathHelper::pathFromClipperLibPath(const ClipperLib::Path& path) {
  return PathImpl::pathOf(path);
}

ClipperLib::Paths PathHelper::clipperLibPathsFromPathes(const Pathes& paths) {
  ClipperLib::Paths converted;
  converted.reserve(paths.paths().size());
  for (const Path& path : paths.paths()) {
    converted.push_back(PathImpl::pointsOf(path));
  }
  return converted;
}

Pathes PathHelper::pathesFromClipperLibPaths(const ClipperLib::Paths& paths) {
  return PathImpl::pathesOf(copyOf(paths));
}

Polygon PathHelper::profileAreaFromPath(const Path& path) { return polygonOf(path); }

Polyline PathHelper::profileLineFromPath(const Path& path) { return polylineOf(path); }

std::vector<Polygon> PathHelper::profileAreasFromPathes(const Pathes& paths, double minArea) {
  return polygonsOf(paths, minArea);
}

std::vector<Polyline> PathHelper::profileLinesFromPathes(const Pathes& paths) {
  return polylinesOf(paths);
}

ClipperLib::Path PathHelper::simplyfyLine(const ClipperLib::Path& line, double tolerance) {
  return simplified(line, tolerance);
}

ClipperLib::Paths PathHelper::simplyfyLines(const ClipperLib::Paths& lines, double tolerance) {
  return simplified(lines, tolerance);
}

ClipperLib::Paths PathHelper::convertRingToSimplePaths(const ClipperLib::Paths& paths) {
  try {
    // Paths of callers may lie anywhere. What is out of range is refused at the start, not when
    // some of the cuts are made.
    refuseOutOfRange(viewsOf(paths));
    return cutAtHoles(paths);
  } catch (const ClippingFailure&) {
    return ClipperLib::Paths();
  }
}

}  // namespace Calculations
}  // namespace Ruv
