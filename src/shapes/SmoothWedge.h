// SPDX-License-Identifier: BSL-1.0
/// @file
/// The slit that opens where two segments of an alignment do not quite continue each other.

#ifndef CALCULATIONS_SHAPES_SMOOTH_WEDGE_H
#define CALCULATIONS_SHAPES_SMOOTH_WEDGE_H

#include "shapes/HoralSegment.h"

#include <optional>

namespace Ruv {

/// The wedge between the normals of two segments that touch with a break too small for a corner.
///
/// A point in it lies beyond the end of the one segment and before the start of the other. Neither
/// has a foot there, although the alignment passes by: without the wedge the nearest foot may be
/// that on another turn of the axis, kilometres away. So the joint is the foot of all its points.
struct CSmoothWedge {
  Point2D tip;
  CDirection into;
  CDirection outOf;
  double ahead = 0.0;  ///< how far the tip lies ahead of the second segment; 0 but for a gap
  double curvatureInto = 0.0;
  double curvatureOutOf = 0.0;

  /// True on the near side of a centre of curvature, where smooth segments have feet.
  bool holds(const Point2D& p) const;
  /// Distance of a point from the tip, positive to the right.
  double offsetOf(const Point2D& p) const;
};

/// Nothing when the segments do not touch, when they make a corner, and when their break is mere
/// rounding: the tolerance of feet covers that.
std::optional<CSmoothWedge> smoothWedgeBetween(const CHoralSegment& before,
                                               const CHoralSegment& after);

}  // namespace Ruv

#endif
