// SPDX-License-Identifier: BSL-1.0
/// @file
/// Outlines for polygon clipping.

#ifndef CALCULATIONS_PATHS_H
#define CALCULATIONS_PATHS_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <memory>
#include <vector>

namespace Ruv {
namespace Calculations {

class PathImpl;
class Pathes;

/// One straight or arc of an outline.
///
/// Conventions: metres, x to the right, y up; radii as in ThProfileDefinition.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Profiles.cpp Pathes
class CALCULATIONS_EXPORT PathSegment {
 public:
  /// Makes a straight to (x, y).
  PathSegment(double x, double y);
  /// Makes an arc to (x, y); the sign of the radius as in ThProfileDefinition. Radius 0 is a
  /// straight.
  PathSegment(double x, double y, double radius);
  PathSegment(const PathSegment& other);
  PathSegment& operator=(const PathSegment& other);
  virtual ~PathSegment();

  /// The point where the segment ends.
  Point2D point() const;
  /// The radius that was given; 0 for a straight.
  double radius() const;
  /// Whether the segment was given a radius.
  bool isArc() const;

 private:
  Point2D m_point;
  double m_radius;
};

/// An outline or line as points on a grid of 0.1 mm, on which clipping is exact.
///
/// Conventions: metres, x to the right, y up. Arcs become points 1 cm apart, but at most 100
///   pieces.
/// Range: a coordinate beyond 1e11 m is moved there. Paths made of the clipping library's own
///   points (PathHelper) may lie farther out; what lies beyond its range, ClipperLib::hiRange or
///   4.6e14 m, makes every clipping throw ClipperLib::clipperException.
/// Failure: points that are not finite are left out. Questions to an empty path give 0 or false.
///   std::bad_alloc leaves a path as it was.
/// Cost: linear in the number of points, but for clipping, see Pathes.
/// Lifetime: copies are independent.
/// @snippet snippets/Profiles.cpp Pathes
class CALCULATIONS_EXPORT Path {
 public:
  Path();
  Path(const Path& other);
  Path& operator=(const Path& other);
  virtual ~Path();

  /// Appends a segment from the last point; the first segment only sets the first point. Nothing
  /// is appended for an end that is not finite. An arc whose chord exceeds its diameter by no more
  /// than the grid is a half circle, any other such arc, or one without a number for its radius, a
  /// straight.
  void addSegment(const PathSegment& segment);
  /// Makes a ring of two or more points: turns it anticlockwise, removes points closer than
  /// 0.14 mm to their neighbours' line if asked to clean, and repeats the first point at the end.
  /// A thin outline may be cleaned away to fewer than three points.
  ///
  /// Cleaning looks at one point after the other, so on a smooth outline what it removes adds up:
  /// on an arc of radius R with points s apart to a cut of R (0.14 mm)^2 / (2 s^2), for 5 m half a
  /// millimetre at 1 cm and 2 mm at 5 mm. Points that scatter by some tenths of a millimetre, as
  /// measured ones do, keep it from that.
  void close(bool clean);

  /// The signed area, positive for a closed path that does not cross itself.
  double area() const;
  /// The length between consecutive points; nothing leads back to the first.
  double lineLength() const;
  /// The number of points, the repeated first one of a closed path included.
  unsigned int numDiscretePathPoints() const;
  /// The point of an index; (0, 0) when it is out of range.
  Point2D discretePathPointAt(unsigned int index) const;
  /// True strictly inside; a point on the outline is outside, and so is one that is not finite.
  bool pointWithin(const Point2D& p) const;
  /// Finds where the line through a and b first meets an edge, in the order of the edges, the last
  /// of which leads back to the first point.
  /// @return false, hit unchanged, when it meets none
  bool firstIntersectionWithLine(const Point2D& a, const Point2D& b, Point2D& hit) const;
  /// Length of the outline, closed, inside the others. Not-a-number when clipping fails.
  double borderWithinOtherPathes(const Pathes& other) const;

  /// @name Clipping
  /// @{

  /// Each does for single paths what the function of its name does in Pathes.
  static Pathes within(const Path& a, const Path& b);
  static Pathes without(const Path& a, const Path& b);
  static Pathes expand(const Path& a, double d);
  static Pathes expandLine(const Path& a, double d);
  static Pathes linesWithin(const Path& a, const Path& b);
  /// @}

 private:
  friend class PathImpl;

  std::unique_ptr<PathImpl> m_impl;
};

/// A list of paths. Where it stands for an area, points inside an odd number of its outlines are
/// inside.
///
/// Conventions: metres and square metres; areas of anticlockwise outlines are positive.
/// Holes: within, without and expandLines cut an area with holes into pieces without, whose areas
///   add up. expand hands holes out as paths of their own, of negative area.
/// Order: the same area has the same pieces, wherever the outlines of a and b begin, in whatever
///   order they come and, but for expand, whichever way they run. Pieces of within, without and
///   expandLines begin with their uppermost point, of those on one level the leftmost, and are
///   sorted by these points from above. Where an area narrows to a point its outline is split;
///   one that touches itself from outside stays one.
/// Cleaning: the results of within and without are cleaned as by Path::close, those of expandLines
///   as by PathHelper::simplyfyLine; expand is not cleaned. An area may so be off by 0.14 mm times
///   the length of its border, 9 m2 where slivers have 90 km of it, and by more where the border is
///   as smooth and fine as Path::close tells.
/// Failure: want of memory is std::bad_alloc and leaves everything as it was. When clipping fails
///   for another reason the result holds no path, and its area and length are not-a-number; so
///   are those of all that is made of it. Of an outline that crosses itself and has edges all but
///   on top of each other, pieces may be lost or counted twice.
/// Cost: that of the polygon clipper, about n log n in the number of points.
/// Lifetime: copies are independent.
/// @snippet snippets/Profiles.cpp Pathes
class CALCULATIONS_EXPORT Pathes {
 public:
  Pathes();
  /// A list of one: a path may stand where a list is expected.
  Pathes(const Path& path);
  Pathes(const Pathes& other);
  Pathes& operator=(const Pathes& other);
  virtual ~Pathes();

  /// Appends a copy.
  void addPath(const Path& path);
  /// Appends copies of all paths of the other list.
  void addPaths(const Pathes& paths);
  /// Number of paths in the list.
  unsigned int numPathes() const;
  /// A copy; empty when the index is out of range.
  Path pathAt(unsigned int index) const;

  /// Sum of the signed areas. Not-a-number after a clipping that has failed.
  double area() const;
  /// Sum of the lengths. Not-a-number after a clipping that has failed.
  double linesLength() const;
  /// True inside an odd number of the paths.
  bool pointWithin(const Point2D& p) const;
  /// Looks for the first path that the line meets. @return false, hit unchanged, for none
  bool firstIntersectionWithLine(const Point2D& a, const Point2D& b, Point2D& hit) const;

  /// The common area of a and b.
  static Pathes within(const Pathes& a, const Pathes& b);
  /// The area of a less that of b.
  static Pathes without(const Pathes& a, const Pathes& b);
  /// Closed outlines offset outward by d, inward for a negative d, with round corners. A gap that
  /// closes, as between the arms of a C, leaves a hole: a path of negative area. A d that is not
  /// finite is a failure.
  static Pathes expand(const Pathes& a, double d);
  /// Open lines grown into bands of half-width d, with flat ends. Lines are simplified first, which
  /// takes away spurs: parts that lead back along themselves. Nothing for a d that is not positive;
  /// one that is not finite is a failure.
  static Pathes expandLines(const Pathes& a, double d);
  /// The parts of open lines inside an area; those along its outline may count as inside or not.
  /// A closed outline counts as a line from its first point round to it. Clean removes points
  /// closer than 0.14 mm to the line of their neighbours, and so turns back on itself.
  static Pathes linesWithin(const Pathes& lines, const Pathes& area, bool clean);

  /// All paths without a copy, as the library's own clipping reads them.
  const std::vector<Path>& paths() const;

 private:
  friend class PathImpl;

  std::vector<Path> m_paths;
  bool m_isFailed = false;  // stands for a clipping that has failed
};

}  // namespace Calculations
}  // namespace Ruv

#endif
