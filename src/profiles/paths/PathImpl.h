/// @file
/// What a Path holds.

#ifndef CALCULATIONS_PROFILES_PATHS_PATH_IMPL_H
#define CALCULATIONS_PROFILES_PATHS_PATH_IMPL_H

#include "profiles/paths/Clipping.h"

#include <Calculations/Paths.h>

#include <clipper.hpp>

#include <utility>

namespace Ruv {
namespace Calculations {

class PathImpl {
 public:
  ClipperLib::Path points;
  /// The last point as it was given. An arc that started from the rounded point instead would
  /// turn away from its circle: 0.3 m2 on a tunnel of two half circles.
  Point2D lastExactPoint;

  void append(const Point2D& p);
  void appendArc(const Point2D& end, double radius);

  /// A path around points that came out of the clipper.
  static Path pathOf(ClipperLib::Path points);
  static Pathes pathesOf(ClipperLib::Paths paths);
};

/// Appends the points of an arc from the last point, which is so stored twice.
/// @param start the last point, not rounded
void appendArcTo(ClipperLib::Path& points, const Point2D& start, const Point2D& end, double radius);

/// The points of paths for the clipper.
/// @{
PathViews viewOf(const Path& path);
PathViews viewsOf(const Pathes& paths);
/// @}

}  // namespace Calculations
}  // namespace Ruv

#endif
