// SPDX-License-Identifier: BSL-1.0
/// @file
/// The bridge between the library's outlines and the polygon clipping library.

#ifndef CALCULATIONS_PATH_HELPER_H
#define CALCULATIONS_PATH_HELPER_H

#include <Calculations/ClipperLib.h>
#include <Calculations/Export.h>
#include <Calculations/Paths.h>
#include <Calculations/PointLists.h>
#include <Calculations/Points.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// Static conversions between outlines and those of the clipping library.
///
/// Units: one metre is 10000 clipping units.
/// Range: metres are converted up to 1e11 m, which is 1e15 units. The clipping library takes up to
///   ClipperLib::hiRange, 4.6e18 units, and throws ClipperLib::clipperException for more. Points of
///   its own are copied as they are; beyond that range pointInPath and Path::close may do anything
///   but crash.
/// Failure: empty outlines give empty outlines. Not-a-number becomes 0; Path leaves such points
///   out. std::bad_alloc for want of memory.
/// Cost: linear in the number of points, but for rings, which are clipped along every hole.
/// @snippet snippets/Profiles.cpp PathHelper
class CALCULATIONS_EXPORT PathHelper {
 public:
  /// @name Units
  /// @{

  /// v * 10000 + 0.5, truncated towards zero: not symmetric below zero, and a negative value
  /// converted forth and back again moves up by a unit. Areas and comparisons are tuned with it.
  /// Not-a-number becomes 0; magnitudes are limited to 1e15 units.
  static ClipperLib::cInt asClipperLibUnits(double v);
  /// Converts to metres.
  static double fromClipperLibUnits(ClipperLib::cInt v);
  /// Converts to square metres.
  static double fromClipperLibArea(double a);
  /// Converts both coordinates as asClipperLibUnits does.
  static ClipperLib::IntPoint asClipperLibPoint(const Point2D& p);
  /// Converts both coordinates to metres.
  static Point2D fromClipperLibPoint(ClipperLib::IntPoint p);
  /// @}

  /// True for a point strictly inside the path.
  static bool pointInPath(const ClipperLib::Path& path, ClipperLib::IntPoint p);

  /// @name Representations
  /// @{

  /// The same points in the other representation.
  static ClipperLib::Path clipperLibPathFromPath(const Path& path);
  static Path pathFromClipperLibPath(const ClipperLib::Path& path);
  static ClipperLib::Paths clipperLibPathsFromPathes(const Pathes& paths);
  static Pathes pathesFromClipperLibPaths(const ClipperLib::Paths& paths);
  /// All points of the path, the repeated one of a closed path included.
  static Polygon profileAreaFromPath(const Path& path);
  static Polyline profileLineFromPath(const Path& path);
  /// Leaves out paths whose absolute area is below minArea (square metres).
  static std::vector<Polygon> profileAreasFromPathes(const Pathes& paths, double minArea);
  static std::vector<Polyline> profileLinesFromPathes(const Pathes& paths);
  /// @}

  /// Removes points that lie no farther than a tolerance (units) from the line through the last
  /// kept point and the point after it; the end of a spur that leads back along itself goes too.
  /// Both ends stay; what else is left out lies within twice the tolerance of the result. It works
  /// for any 64-bit coordinates. O(n).
  static ClipperLib::Path simplyfyLine(const ClipperLib::Path& line, double tolerance);
  /// Simplifies each of the lines.
  static ClipperLib::Paths simplyfyLines(const ClipperLib::Paths& lines, double tolerance);

  /// Cuts outlines that hold holes, which have the opposite orientation, into simple pieces whose
  /// areas add up, each along the vertical line through the middle of a hole. Others stay. Empty
  /// when clipping fails but for want of memory.
  static ClipperLib::Paths convertRingToSimplePaths(const ClipperLib::Paths& paths);

 private:
  /// Distance in units, as simplyfyLine measures it. Nothing calls it any more; it stays because
  /// exported names only leave with a new version of the interface.
  static double distanceBetween(const ClipperLib::IntPoint& a, const ClipperLib::IntPoint& b);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
