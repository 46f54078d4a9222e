// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a Path holds.

#ifndef CALCULATIONS_PROFILES_PATHS_PATH_IMPL_H
#define CALCULATIONS_PROFILES_PATHS_PATH_IMPL_H

#include "profiles/paths/Clipping.h"

#include <Calculations/ClipperLib.h>
#include <Calculations/Paths.h>

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
  /// Takes points that came out of the clipper.
  void set(ClipperLib::Path clipped);

  /// The points of a path.
  static const ClipperLib::Path& pointsOf(const Path& path) { return path.m_impl->points; }
  /// A path around points that came out of the clipper.
  static Path pathOf(ClipperLib::Path points);
  static Pathes pathesOf(ClipperLib::Paths paths);
  /// What stands for the result of a clipping that has failed: no paths, and an area that is no
  /// number.
  static Pathes noPathes();
  static bool isFailure(const Pathes& paths) { return paths.m_isFailed; }
};

/// The result of a clipping, or what stands for it when the clipping fails.
/// @param clip gives paths of the clipper; may throw ClippingFailure
template <class Clip>
Pathes clippedBy(const Clip& clip) {
  try {
    return PathImpl::pathesOf(clip());
  } catch (const ClippingFailure&) {
    return PathImpl::noPathes();
  }
}

/// Makes a ring of two or more points, as Path::close tells. They may be half a ring when memory
/// runs out.
void closeRing(ClipperLib::Path& points, bool clean);

/// Appends the points of an arc from the last point, which is so stored twice. The points stay as
/// they are when memory runs out.
/// @param start the last point, not rounded
void appendArcTo(ClipperLib::Path& points, const Point2D& start, const Point2D& end, double radius);

/// The points of paths for the clipper.
/// @throw ClippingFailure for what stands for a clipping that has failed
/// @{
PathViews viewOf(const Path& path);
PathViews viewsOf(const Pathes& paths);
/// @}

}  // namespace Calculations
}  // namespace Ruv

#endif
