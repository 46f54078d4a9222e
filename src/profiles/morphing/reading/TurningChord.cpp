// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/TurningChord.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// A turning (rad) below this is none: over 1 km of length it moves an end by a nanometre.
constexpr double kNoTurning = 1e-12;

/// Half a turn, sampled every tenth of a degree.
constexpr double kMostPieces = 1800.0;

}  // namespace

bool TurningChord::isArc() const { return std::abs(turning) >= kNoTurning; }

/// The chord of an arc leads in the mean of the headings at both of its ends.
double TurningChord::headingAtStart() const { return bearingOf(chord()) - turning / 2.0; }

double TurningChord::headingAtEnd() const { return bearingOf(chord()) + turning / 2.0; }

double TurningChord::radius() const {
  if (!isArc()) return 0.0;
  const double halfChord = chord().length() / 2.0;
  // Never less than half the chord, whatever rounding does to a half circle.
  const double size = std::max(halfChord, halfChord / std::sin(std::abs(turning) / 2.0));
  return std::copysign(size, turning);
}

/// Chord c and turning w: the length of the arc is r w with r = c / (2 sin(w/2)).
double TurningChord::length() const {
  const double straight = chord().length();
  if (!isArc()) return straight;
  return straight * (turning / 2.0) / std::sin(turning / 2.0);
}

Point2D TurningChord::pointAt(double fraction) const {
  if (!(fraction > 0.0)) return start;
  if (!(fraction < 1.0)) return end;
  if (!isArc()) return start + chord() * fraction;
  // The chord of a part is turned back by what the rest turns.
  const double stretch = std::sin(fraction * turning / 2.0) / std::sin(turning / 2.0);
  const CDirection back = directionOfBearing((fraction - 1.0) * turning / 2.0);
  return start + turnedTo(back, chord()) * stretch;
}

TurningChord TurningChord::part(double from, double to) const {
  return {pointAt(from), pointAt(to), turning * (to - from)};
}

TurningChord TurningChord::mirrored() const {
  return {Point2D(-start.x, start.y), Point2D(-end.x, end.y), -turning};
}

/// Turning back by exactly half a turn counts as clockwise, whatever sign rounding gives it.
double turningBetween(double heading, double nextHeading) {
  const double turning = std::remainder(nextHeading - heading, kTwoPi);
  return turning <= -kPi ? kPi : turning;
}

void moveBy(TurningChords& chain, const Point2D& shift) {
  for (TurningChord& element : chain) {
    element.start = element.start + shift;
    element.end = element.end + shift;
  }
}

void turnBy(TurningChords& chain, const CDirection& direction) {
  for (TurningChord& element : chain) {
    element.start = turnedTo(direction, element.start);
    element.end = turnedTo(direction, element.end);
  }
}

std::vector<Point2D> sampled(const TurningChords& chain, double largestTurning) {
  std::vector<Point2D> points;
  for (const TurningChord& element : chain) {
    const double pieces = std::abs(element.turning) / largestTurning;
    const int count = pieces > 1.0 ? static_cast<int>(std::min(std::ceil(pieces), kMostPieces)) : 1;
    for (int i = 0; i < count; ++i) {
      points.push_back(element.pointAt(static_cast<double>(i) / count));
    }
  }
  return points;
}

}  // namespace Calculations
}  // namespace Ruv
