// SPDX-License-Identifier: BSL-1.0
/// @file
/// Points and directions of the plane.
///
/// One convention for plan and profile: x to the east (right), y to the north (up), bearings
/// clockwise from +y. "Right" is the side to the right of a direction of travel, and a positive
/// radius or curvature turns right.

#ifndef CALCULATIONS_SHAPES_PLANE_GEOMETRY_H
#define CALCULATIONS_SHAPES_PLANE_GEOMETRY_H

#include <Calculations/Points.h>

#include <cmath>

namespace Ruv {

using Calculations::Point2D;

/// A unit vector: the sine and cosine of a bearing.
struct CDirection {
  double x = 0.0;
  double y = 1.0;
};

inline CDirection directionOfBearing(double bearing) {
  return {std::sin(bearing), std::cos(bearing)};
}

inline double bearingOf(const Point2D& v) { return std::atan2(v.x, v.y); }

inline Point2D rightNormal(const CDirection& d) { return {d.y, -d.x}; }

/// Component of v along d.
inline double forwardComponent(const Point2D& v, const CDirection& d) {
  return v.x * d.x + v.y * d.y;
}

/// Component of v to the right of d.
inline double rightComponent(const Point2D& v, const CDirection& d) {
  return v.x * d.y - v.y * d.x;
}

/// v turned clockwise by the bearing of d: carries a figure drawn along +y into the direction d.
inline Point2D turnedTo(const CDirection& d, const Point2D& v) {
  return {v.x * d.y + v.y * d.x, v.y * d.y - v.x * d.x};
}

/// The inverse of turnedTo: x becomes the component right of d, y the component along d.
inline Point2D turnedFrom(const CDirection& d, const Point2D& v) {
  return {rightComponent(v, d), forwardComponent(v, d)};
}

/// The direction whose bearing is the sum of both bearings.
inline CDirection turnedTo(const CDirection& d, const CDirection& v) {
  return {v.x * d.y + v.y * d.x, v.y * d.y - v.x * d.x};
}

/// The mean of the directions into a corner and out of it.
inline CDirection directionThrough(const CDirection& into, const CDirection& outOf) {
  const Point2D sum(into.x + outOf.x, into.y + outOf.y);
  const double length = sum.length();
  if (length == 0.0) return outOf;  // a hairpin
  return {sum.x / length, sum.y / length};
}

inline bool isFinite(const Point2D& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

}  // namespace Ruv

#endif
