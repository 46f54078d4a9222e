// SPDX-License-Identifier: BSL-1.0
/// @file
/// Straights and minor arcs given by their end points.

#ifndef CALCULATIONS_SHAPES_CHAIN_SEGMENT_H
#define CALCULATIONS_SHAPES_CHAIN_SEGMENT_H

#include "shapes/CurvePoint.h"
#include "shapes/StraightAndArc.h"

namespace Ruv {

/// A straight or arc between two points.
///
/// Radius 0 is a straight. A positive radius is an arc traversed clockwise, its centre right of
/// the chord, a negative one an arc traversed anticlockwise. An arc is the minor arc, at most a
/// half circle.
struct CChainSegment {
  Point2D start;
  Point2D end;
  double radius = 0.0;
  /// 0 for a degenerate arc, whose chord is no longer than twice kZeroLength. Not-a-number for an
  /// arc whose chord exceeds its diameter; an excess that rounding explains makes a half circle.
  double length = 0.0;
  CDirection startDirection;

  static CChainSegment between(const Point2D& start, const Point2D& end, double radius);

  /// False for a segment that has no points but its ends.
  bool hasExtent() const { return length > 0.0; }

  /// @param l from the start; the segment must have extent
  CCurvePoint at(double l) const;
  /// The segment must have extent.
  CCurveFoot footOf(const Point2D& p) const;

  /// Twice the area under the segment as seen from a reference point, positive when it is passed
  /// anticlockwise: summed over a closed chain, twice its signed area.
  double doubledAreaFrom(const Point2D& reference) const;
};

inline CCurvePoint CChainSegment::at(double l) const {
  CCurvePoint point;
  if (radius == 0.0) {
    point.position = Point2D(0.0, l);
  } else {
    point = pointOnArc(radius, l);
  }
  point.position = start + turnedTo(startDirection, point.position);
  point.tangent = turnedTo(startDirection, point.tangent);
  return point;
}

inline CCurveFoot CChainSegment::footOf(const Point2D& p) const {
  const Point2D local = turnedFrom(startDirection, p - start);
  return radius == 0.0 ? footOnStraight(length, local) : footOnArc(radius, length, local);
}

}  // namespace Ruv

#endif
