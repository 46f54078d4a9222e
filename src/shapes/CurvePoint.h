// SPDX-License-Identifier: BSL-1.0
/// @file
/// What evaluating a curve and dropping a perpendicular onto it give.

#ifndef CALCULATIONS_SHAPES_CURVE_POINT_H
#define CALCULATIONS_SHAPES_CURVE_POINT_H

#include "shapes/PlaneGeometry.h"

namespace Ruv {

/// Place, direction and curvature at one length of a curve.
struct CCurvePoint {
  Point2D position;
  CDirection tangent;
  double heading = 0.0;    ///< bearing of the tangent, counted on from the start without wrapping
  double curvature = 0.0;  ///< positive to the right
};

/// Where the foot of a point lies relative to a curve. The values are those of the projection of
/// an alignment, which looks at sequences of them.
enum class CFootReport { OnCurve = 0, BeforeStart = 1, BeyondEnd = 2, Unknown = 3 };

/// Foot of a point on a curve.
struct CCurveFoot {
  CFootReport report = CFootReport::Unknown;
  double length = 0.0;   ///< along the curve to the foot; the nearer end when there is none
  double lateral = 0.0;  ///< of the point, to the right of the curve; set for OnCurve only
  double outside = 0.0;  ///< how far along the continued curve a missing foot lies outside
};

inline CCurveFoot footBeforeStart(double outside) {
  return {CFootReport::BeforeStart, 0.0, 0.0, outside};
}

inline CCurveFoot footBeyondEnd(double length, double outside) {
  return {CFootReport::BeyondEnd, length, 0.0, outside};
}

}  // namespace Ruv

#endif
