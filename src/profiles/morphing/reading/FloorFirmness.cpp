// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/FloorFirmness.h"

#include "foundation/MathConstants.h"
#include "profiles/morphing/reading/ChainParts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// A floor is one the less the more it falls or rises (slope between its feet) ...
constexpr Fading kFallingFloor{0.35, 0.45};
/// ... the more its outermost parts rise towards the walls (slope against the straight between the
/// feet): they could be walls as well ...
constexpr Fading kRisingFloor{0.085, 0.34};
/// ... the more they are curved (kCurvedFloor), the farther its corners are from the straight
/// between its feet (part of its width) ...
constexpr Fading kBulgingFloor{0.08, 0.12};
/// ... the wider the outline is in relation to it ...
constexpr Fading kNarrowFloor{2.0, 2.6};
/// ... the deeper walls reach below it (part of its width) ...
constexpr Fading kHighFloor{0.03, 0.08};
/// ... the less the walls rise from its chord (rad less than a quarter turn) ...
constexpr Fading kOpenFoot{kHalfPi - 0.9, kHalfPi - 0.6};
/// ... or from its tangent, so that a curved invert that goes over into the wall is none ...
constexpr Fading kTangentFoot{kHalfPi - 0.75, kHalfPi - 0.55};
/// ... the more its end goes over into the wall by a chamfer (rad between both), which up to the
/// first value would still be a part of the floor ...
constexpr Fading kChamferedFoot{kHalfPi - 0.6, kHalfPi - 0.35};
/// ... the more another floor there is (part of its width) ...
constexpr Fading kOtherFloor{0.6, 0.9};
/// ... the more walls and crown turn back (rad), as those of a cave do ...
constexpr Fading kRaggedWalls{1.7, 2.7};
/// ... and the more of the outline departs from its base (part of the base's length).
constexpr Fading kManyDetours{0.6, 1.0};

/// How far (part of the floor's width) a wall is looked at to see how it rises.
constexpr double kFootReach = 0.15;

/// Detours are read apart from a ring whose other dents turn by no more than the first value, and
/// not at all from the second on (rad): a walk with shallow dents is matched as if it had none.
constexpr Fading kDentedBase{0.4, 0.7};

/// On a ring detours count as far as they are sure: in full from the first value on, and not at all
/// up to the second. What is less sure is better matched as a part of the ring.
constexpr Fading kSureOnRing{0.9, 0.6};

/// On a ring a bench counts in full when it turns back by the first value, and not at all up to the
/// second (rad): it could be a chamfer with a shallow dent as well.
constexpr Fading kBenchOnRing{0.4, 0.1};
/// Nor does it when the floor beside it is kinked (slope against the straight between the feet), so
/// that what goes on under the bench is another floor.
constexpr Fading kKinkUnderBench{0.06, 0.1};

/// How much the left foot of a floor is a corner with a wall.
double firmnessOfFoot(const TurningChords& upper, const TurningChord& lastFloor, double reach) {
  const double rise = bearingOf(pointAlong(upper, reach) - upper.front().start);
  const auto opening = [rise](double heading) { return kHalfPi - turningBetween(heading, rise); };
  const double chamfer =
      turningBetween(bearingOf(lastFloor.chord()), bearingOf(upper.front().chord()));
  return kOpenFoot(opening(bearingOf(lastFloor.chord()))) *
         kTangentFoot(opening(lastFloor.headingAtEnd())) * kChamferedFoot(kHalfPi - chamfer);
}

/// How much a detour is a bench on a ring; of ditches and niches the outline says it.
double surenessOfBench(const Detour& detour, const TurningChords& floor) {
  const bool isLeft = detour.site == DetourSite::LeftFoot;
  if (!isLeft && detour.site != DetourSite::RightFoot) return 1.0;
  const double slope = slopeOf({floor.front().start, floor.back().end, 0.0});
  const double kink = std::abs(slopeOf(isLeft ? floor.back() : floor.front()) - slope);
  return kBenchOnRing(detour.turningBack) * kKinkUnderBench(kink);
}

/// From the left foot to the right one.
Point2D runOf(const TurningChords& floor) { return floor.front().start - floor.back().end; }

/// How much a floor is one between the walls of a tunnel.
double firmnessOfWalls(const OutlineReading& reading, const FloorLine& line, double width) {
  double least = line.through.x - width;
  double most = line.through.x;
  double deepest = 0.0;
  for (const TurningChord& piece : reading.upper) {
    least = std::min(least, piece.end.x);
    most = std::max(most, piece.end.x);
    deepest = std::max(deepest, -line.heightOf(piece.end));
  }
  return kNarrowFloor((most - least) / width) * kHighFloor(deepest / width);
}

}  // namespace

/// What departs from an outline is read against its floor, wherever that leads to.
double surenessOf(const OutlineReading& reading, const LeftHalf& left, const LeftHalf& right) {
  const TurningChords& floor = reading.floor;
  const Point2D run = runOf(floor);
  if (!(run.x > 0.0)) return 0.0;
  const double slope = run.y / run.x;
  double sureness = kFallingFloor(std::abs(slope));
  for (const TurningChord& piece : floor)
    sureness *= kCurvedFloor(std::abs(piece.turning));
  if (left.isLastJoined) sureness *= kRisingFloor(slope - slopeOf(floor.back()));
  if (right.isLastJoined) sureness *= kRisingFloor(slopeOf(floor.front()) - slope);
  double other = 0.0;
  for (const TurningChord& piece : reading.upper) {
    if (isLedge(piece)) other = std::max(other, -piece.chord().x);
  }
  double outside = 0.0;
  for (const Detour& detour : reading.detours)
    outside += lengthOf(detour.pieces);
  const double inside = lengthOf(reading.upper) + lengthOf(floor);
  return sureness * kOtherFloor(other / run.x) * kRaggedWalls(turningBackOf(reading.upper)) *
         kManyDetours(outside / inside);
}

/// A base without dents is needed even where nothing departs from it, to set detours of the other
/// outline on.
double surenessOnRing(const OutlineReading& reading) {
  double sureness = kDentedBase(dentsOf(reading.ring()));
  if (!reading.detours.empty()) sureness *= kSureOnRing(reading.sureness);
  for (const Detour& detour : reading.detours)
    sureness *= surenessOfBench(detour, reading.floor);
  return sureness;
}

/// A product: whatever speaks against the floor in full makes it none, and doubts add up.
double firmnessOf(const OutlineReading& reading) {
  const TurningChords& floor = reading.floor;
  const Point2D foot = floor.front().start;
  const Point2D run = runOf(floor);
  const double width = run.x;
  if (!(width > 0.0)) return 0.0;
  const FloorLine line{foot, run.y / width};
  double firmness = reading.sureness;
  for (std::size_t i = 0; i + 1 < floor.size(); ++i) {
    firmness *= kBulgingFloor(std::abs(line.heightOf(floor[i].end)) / width);
  }
  const double reach = kFootReach * width;
  return firmness * firmnessOfWalls(reading, line, width) *
         firmnessOfFoot(reading.upper, floor.back(), reach) *
         firmnessOfFoot(mirrored(reading.upper), mirrored(floor).back(), reach);
}

}  // namespace Calculations
}  // namespace Ruv
