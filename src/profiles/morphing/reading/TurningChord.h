// SPDX-License-Identifier: BSL-1.0
/// @file
/// Straights and arcs by their chord and the angle through which they turn.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_TURNING_CHORD_H
#define CALCULATIONS_PROFILES_MORPHING_READING_TURNING_CHORD_H

#include "shapes/ChainSegment.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// A straight or arc from start to end.
///
/// The turning (rad) is positive clockwise, 0 for a straight and at most half a turn. Where two
/// arcs have parallel chords and the same turning, so has every mean of them: this is what keeps
/// arcs true arcs and joints tangent on the way from one outline to another. A radius would not do,
/// its chord tells the turning of a half circle only to half the digits.
struct TurningChord {
  Point2D start;
  Point2D end;
  double turning = 0.0;

  Point2D chord() const { return end - start; }
  bool isArc() const;
  /// Bearing of the tangent, clockwise from +y, at most two turns from zero.
  double headingAtStart() const;
  double headingAtEnd() const;
  /// Signed as in ThProfileDefinition, 0 for a straight.
  double radius() const;
  double length() const;
  CChainSegment segment() const { return CChainSegment::between(start, end, radius()); }

  /// @param fraction of the length, 0 to 1; both ends are met exactly
  Point2D pointAt(double fraction) const;
  TurningChord part(double from, double to) const;

  TurningChord reversed() const { return {end, start, -turning}; }
  /// About the y axis.
  TurningChord mirrored() const;
  TurningChord halfTurned() const { return {start * -1.0, end * -1.0, turning}; }
};

using TurningChords = std::vector<TurningChord>;

/// Fraction of a piece up to which a condition holds that holds at its start and, once lost, stays
/// lost; found by halving. 1 where it is never lost.
/// @param holds tells it of a point of the piece
template <typename Condition>
double fractionUpTo(const TurningChord& piece, const Condition& holds) {
  constexpr int kHalvings = 60;  // more than the digits of a double
  double low = 0.0;
  double high = 1.0;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (low + high) / 2.0;
    (holds(piece.pointAt(middle)) ? low : high) = middle;
  }
  return high;
}

/// The difference of two headings, in (-pi, pi].
double turningBetween(double heading, double nextHeading);

void moveBy(TurningChords& chain, const Point2D& shift);

/// Clockwise about the origin, by the bearing of a direction.
void turnBy(TurningChords& chain, const CDirection& direction);

/// Points along a chain, the last end left out, so close that the chain turns by no more than
/// the given angle (rad) from one to the next.
std::vector<Point2D> sampled(const TurningChords& chain, double largestTurning);

}  // namespace Calculations
}  // namespace Ruv

#endif
