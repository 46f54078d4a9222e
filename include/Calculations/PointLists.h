// SPDX-License-Identifier: BSL-1.0
/// @file
/// Point-list wrappers for results: open polylines and closed polygons.

#ifndef CALCULATIONS_POINT_LISTS_H
#define CALCULATIONS_POINT_LISTS_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// An open chain of points.
///
/// Conventions: coordinates (m) as told where it is returned.
/// Failure: none.
/// Cost: linear in the number of points, which every copy repeats.
/// @snippet snippets/Axes.cpp Polyline
class CALCULATIONS_EXPORT Polyline {
 public:
  Polyline();
  /// Makes a line through the points, in order.
  Polyline(const std::vector<Point2D>& points);
  Polyline(const Polyline& other);
  Polyline& operator=(const Polyline& other);
  ~Polyline();

  /// A copy of the points, in order.
  std::vector<Point2D> points() const;

 private:
  std::vector<Point2D> m_points;
};

/// A closed ring of points; the last point leads back to the first, which is not repeated.
///
/// Conventions: coordinates (m) as told where it is returned.
/// Failure: none.
/// Cost: linear in the number of points, which every copy repeats.
/// @snippet snippets/Profiles.cpp MeasuredProfileCalculator
class CALCULATIONS_EXPORT Polygon {
 public:
  Polygon();
  /// Makes a ring around the points, in order.
  Polygon(const std::vector<Point2D>& points);
  Polygon(const Polygon& other);
  Polygon& operator=(const Polygon& other);
  ~Polygon();

  /// A copy of the points, in order.
  std::vector<Point2D> points() const;

 private:
  std::vector<Point2D> m_points;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
