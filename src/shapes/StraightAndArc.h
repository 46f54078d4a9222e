// SPDX-License-Identifier: BSL-1.0
/// @file
/// Straights and circular arcs in their own frame: from the origin in direction +y.

#ifndef CALCULATIONS_SHAPES_STRAIGHT_AND_ARC_H
#define CALCULATIONS_SHAPES_STRAIGHT_AND_ARC_H

#include "shapes/CurvePoint.h"

#include <algorithm>

namespace Ruv {

/// The point of an arc after a length. No centre is involved, so no radius loses digits.
/// @param radius not zero, positive to the right
CCurvePoint pointOnArc(double radius, double l);

/// Inline: a measured profile asks it of a few segments for every point.
inline CCurveFoot footOnStraight(double length, const Point2D& p) {
  if (p.y < 0.0) return footBeforeStart(-p.y);
  if (p.y > length) return footBeyondEnd(length, p.y - length);
  return {CFootReport::OnCurve, p.y, p.x, 0.0};
}

/// The foot on a straight whose places drift aside and along by a share of their length. One that
/// is carried back faster than it advances has no feet.
inline CCurveFoot footOnDriftingStraight(double length, const Point2D& drift, const Point2D& p) {
  const double advance = 1.0 + drift.y;
  if (p.y < 0.0) return footBeforeStart(-p.y);
  if (!(p.y <= length * advance)) return footBeyondEnd(length, p.y - length * advance);
  const double l = advance > 0.0 ? std::min(p.y / advance, length) : 0.0;
  return {CFootReport::OnCurve, l, p.x - drift.x * l, 0.0};
}

/// Only the near side of the centre counts; the centre itself has its foot at the start. Of the
/// points that miss the arc, those nearer to its start than to its end by angle lie before it.
/// @param length at most that of a full circle
CCurveFoot footOnArc(double radius, double length, const Point2D& p);

}  // namespace Ruv

#endif
