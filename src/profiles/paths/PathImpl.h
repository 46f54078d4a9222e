/// @file
/// What a Path holds.

#ifndef CALCULATIONS_PROFILES_PATHS_PATH_IMPL_H
#define CALCULATIONS_PROFILES_PATHS_PATH_IMPL_H

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
};

}  // namespace Calculations
}  // namespace Ruv

#endif
