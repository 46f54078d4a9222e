// SPDX-License-Identifier: BSL-1.0
// The arc from the origin in direction +y, with the radius R and the turning w = l / R, both
// positive to the right. Its chord has the length 2 R sin(w / 2) and the bearing w / 2, which gives
// the place without the centre: R - R cos w would cancel for large radii. Seen from the centre, in
// units of R, a point p has the components p.y / |R| along the start tangent and 1 - p.x / R
// outwards.

#include "shapes/StraightAndArc.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>

namespace Ruv {

namespace {

/// Below this half turning (rad) the chord is its series l (1 - u^2 / 6): the next term is 1e-18.
constexpr double kSmallHalfTurning = 1e-4;

}  // namespace

CCurvePoint pointOnArc(double radius, double l) {
  CCurvePoint point;
  point.curvature = 1.0 / radius;
  // The chord turns by half the heading.
  const double halfTurning = l * point.curvature / 2.0;
  const CDirection chord = directionOfBearing(halfTurning);
  const double chordLength = std::abs(halfTurning) < kSmallHalfTurning
                                 ? l * (1.0 - halfTurning * halfTurning / 6.0)
                                 : 2.0 * radius * chord.x;
  point.position = Point2D(chordLength * chord.x, chordLength * chord.y);
  point.tangent = turnedTo(chord, chord);
  point.heading = 2.0 * halfTurning;
  return point;
}

CCurveFoot footOnArc(double radius, double length, const Point2D& p) {
  const double size = std::abs(radius);
  const double turning = length / size;
  // Seen from the centre, in units of the radius: the start of the arc lies at (0, 1).
  const double along = p.y / size;
  const double outward = 1.0 - p.x / radius;
  const double distance = std::sqrt(along * along + outward * outward);
  double angle = std::atan2(along, outward);
  // Counted about the middle of the arc, so that the gap between its ends is halved.
  if (angle < turning / 2.0 - kPi) angle += kTwoPi;
  if (angle < 0.0) return footBeforeStart(-angle * size);
  if (angle > turning) return footBeyondEnd(length, (angle - turning) * size);
  // The radius less the distance without cancellation, so also for radii of millions of metres.
  const double lateral = (2.0 * p.x - (p.x * p.x + p.y * p.y) / radius) / (1.0 + distance);
  return {CFootReport::OnCurve, std::min(angle * size, length), lateral, 0.0};
}

}  // namespace Ruv
