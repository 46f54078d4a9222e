// SPDX-License-Identifier: BSL-1.0
/// @file
/// A plane curve laid out from a point in a direction.

#ifndef CALCULATIONS_SHAPES_PLACED_CURVE_H
#define CALCULATIONS_SHAPES_PLACED_CURVE_H

#include "shapes/PlaneCurve.h"
#include "shapes/PlaneGeometry.h"

namespace Ruv {

/// Carries a curve from its own frame to the plane: turned to a start bearing, scaled and shifted.
///
/// The scale stretches a curve whose length does not fit its end points; lengths along the curve
/// stay unscaled. It is 1 for consistent data.
struct CPlacedCurve {
  // In the order in which questions ask for them: see CHoralSegment.
  Point2D start;
  CDirection startDirection;
  double scale = 1.0;
  CPlaneCurve curve;
  double startBearing = 0.0;

  /// Heading is the bearing of the tangent, not normalised.
  CCurvePoint at(double l) const { return placed(curve.at(l)); }

  /// The same without a heading: the start bearing lies in a line of the cache that nothing else
  /// about a place needs.
  CCurvePoint placeAt(double l) const { return placedWithoutHeading(curve.at(l)); }

  CCurvePoint end() const { return placed(curve.end()); }

  /// Foot of p; the lateral is in units of the plane. Coordinates are reduced before anything is
  /// multiplied, so national grids lose nothing.
  CCurveFoot footOf(const Point2D& p) const {
    CCurveFoot foot = curve.footOf(turnedFrom(startDirection, p - start) / scale);
    foot.lateral *= scale;
    return foot;
  }

 private:
  CCurvePoint placed(const CCurvePoint& own) const {
    CCurvePoint point = placedWithoutHeading(own);
    point.heading = own.heading + startBearing;
    return point;
  }

  CCurvePoint placedWithoutHeading(const CCurvePoint& own) const {
    CCurvePoint point;
    point.position = start + turnedTo(startDirection, own.position) * scale;
    point.tangent = turnedTo(startDirection, own.tangent);
    point.curvature = own.curvature;
    return point;
  }
};

}  // namespace Ruv

#endif
