/// @file
/// Where points lie relative to outlines.

#ifndef CALCULATIONS_PROFILES_PATHS_POINT_PLACE_H
#define CALCULATIONS_PROFILES_PATHS_POINT_PLACE_H

#include "profiles/paths/GridUnits.h"
#include "profiles/paths/PathImpl.h"

namespace Ruv {
namespace Calculations {

/// Unlike Path::pointWithin true also on the outline.
inline bool isInsideOrOn(const Path& outline, const Point2D& p) {
  return ClipperLib::PointInPolygon(onGrid(p), outline.getImpl().points) != 0;
}

}  // namespace Calculations
}  // namespace Ruv

#endif
