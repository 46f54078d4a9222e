// SPDX-License-Identifier: BSL-1.0
#include "shapes/ChainSegment.h"

#include "shapes/ShapeTolerances.h"
#include "shapes/StraightAndArc.h"

#include <cmath>
#include <limits>

namespace Ruv {

namespace {

/// A chord that exceeds the diameter by no more than this part of it makes a half circle: turning
/// or shifting one does that.
constexpr double kHalfCircleExcess = 1e-12;

/// Half the angle that an arc turns, by its sine and cosine.
struct CHalfTurning {
  double sine = 0.0;
  double cosine = 1.0;
};

/// @param size magnitude of the radius
CHalfTurning halfTurningOf(double halfChord, double size) {
  if (halfChord > size && halfChord - size <= kHalfCircleExcess * size) return {1.0, 0.0};
  // The cosine is not a number when the chord exceeds the diameter.
  return {halfChord / size, std::sqrt((size - halfChord) * (size + halfChord)) / size};
}

}  // namespace

CChainSegment CChainSegment::between(const Point2D& start, const Point2D& end, double radius) {
  CChainSegment segment;
  segment.start = start;
  segment.end = end;
  segment.radius = radius;
  const Point2D chord = end - start;
  const double chordLength = chord.length();
  if (radius == 0.0) {
    segment.length = chordLength;
    if (chordLength > 0.0) segment.startDirection = {chord.x / chordLength, chord.y / chordLength};
    return segment;
  }
  if (chordLength / 2.0 <= kZeroLength) return segment;
  const double size = std::abs(radius);
  const CHalfTurning half = halfTurningOf(chordLength / 2.0, size);
  // The sine of half the turning is half the chord divided by the radius. Together with the cosine
  // it gives the angle sharply up to the half circle, where an arc sine would lose half its digits.
  segment.length = size * 2.0 * std::atan2(half.sine, half.cosine);
  // The arc starts turned away from its chord by half its turning.
  const CDirection towardsEnd{chord.x / chordLength, chord.y / chordLength};
  segment.startDirection =
      turnedTo(towardsEnd, CDirection{radius > 0.0 ? -half.sine : half.sine, half.cosine});
  return segment;
}

/// The cross product of the end points gives twice the triangle below the chord. Between chord and
/// arc lies the circular segment, twice R^2 (w - sin w) / 2 for a turning w = length / R; a
/// clockwise arc, whose w is positive, takes it away from an area that counts anticlockwise.
double CChainSegment::doubledAreaFrom(const Point2D& reference) const {
  const Point2D a = start - reference;
  const Point2D b = end - reference;
  const double underChord = a.x * b.y - b.x * a.y;
  if (radius == 0.0 || !hasExtent()) return underChord;
  const double turning = length / radius;
  return underChord - radius * radius * (turning - std::sin(turning));
}

}  // namespace Ruv
