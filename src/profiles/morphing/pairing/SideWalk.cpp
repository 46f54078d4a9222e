// SPDX-License-Identifier: BSL-1.0
// Headings are counted on through all turnings and not taken modulo a full turn, because only their
// sum tells an outline that turns back and forth from one that winds around. Around an outline that
// does not cross itself it is one full turn (Hopf 1935, Compositio Math. 2), of which the way from
// base to crown makes half.

#include "profiles/morphing/pairing/SideWalk.h"

#include "profiles/morphing/reading/FloorReading.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// A kink (rad) up to the first value beside an arc is the rounding of printed radii and centres,
/// and the joint is meant to be tangent; from the second value on the kink is meant.
constexpr Fading kSmoothKink{0.004, 0.012};

/// The sum of all turnings misses the crown heading by rounding only, or by full turns.
constexpr double kClosingTolerance = 1e-6;

/// A side that turns back by no more than this (rad) counts as convex: the wall of a box whose top
/// is a little wider than its bottom, the springing of a vault on a wall that leans outwards.
constexpr double kShallowDent = 0.75;

struct Headings {
  double start = 0.0;
  double end = 0.0;
  bool isArc = false;
};

/// Lets both sides of a joint have one heading: that of the straight, between arcs the mean.
void smoothJoint(Headings& before, Headings& after) {
  if (!before.isArc && !after.isArc) return;
  double kink = turningBetween(before.end, after.start);
  kink *= kSmoothKink(std::abs(kink));
  const double share = before.isArc && after.isArc ? 0.5 : before.isArc ? 1.0 : 0.0;
  before.end += share * kink;
  after.start -= (1.0 - share) * kink;
}

/// Headings of the elements, smoothed among each other and with the level tangents at base and
/// crown, which stand first and last.
std::vector<Headings> smoothedHeadings(const TurningChords& side) {
  std::vector<Headings> headings;
  headings.reserve(side.size() + 2);
  headings.push_back({kBaseHeading, kBaseHeading, false});
  for (const TurningChord& element : side) {
    headings.push_back({element.headingAtStart(), element.headingAtEnd(), element.isArc()});
  }
  headings.push_back({kCrownHeading, kCrownHeading, false});
  for (std::size_t i = 1; i < headings.size(); ++i) {
    smoothJoint(headings[i - 1], headings[i]);
  }
  return headings;
}

/// The steps as they are.
std::optional<SideWalk> plainWalk(const TurningChords& side,
                                  const std::vector<Headings>& headings) {
  SideWalk walk;
  Point2D place = side.empty() ? Point2D() : side.front().start;
  double heading = kBaseHeading;
  for (std::size_t i = 1; i < headings.size(); ++i) {
    const double corner = turningBetween(headings[i - 1].end, headings[i].start);
    walk.push_back({WalkStepKind::Corner, {place, place, corner}, heading, heading + corner});
    heading += corner;
    if (i > side.size()) break;
    const TurningChord& element = side[i - 1];
    const double turning = headings[i].end - headings[i].start;
    const auto kind = element.isArc() ? WalkStepKind::Arc : WalkStepKind::Straight;
    walk.push_back({kind, element, heading, heading + turning});
    heading += turning;
    place = element.end;
  }
  if (!(std::abs(heading - kCrownHeading) < kClosingTolerance)) return std::nullopt;
  return walk;
}

/// True when no step falls behind the highest heading so far by more than a shallow dent does.
bool isNearlyConvex(const SideWalk& walk) {
  double highest = kBaseHeading;
  for (const WalkStep& step : walk) {
    highest = std::max(highest, step.toHeading);
    if (highest - step.toHeading > kShallowDent) return false;
  }
  return true;
}

/// The walk with the headings that it has reached so far, so that they never fall.
SideWalk withoutShallowDents(const SideWalk& walk) {
  SideWalk rising;
  double reached = kBaseHeading;
  for (WalkStep step : walk) {
    const double from = step.fromHeading;
    const double to = step.toHeading;
    const double next = std::clamp(to, reached, std::max(reached, kCrownHeading));
    step.fromHeading = reached;
    step.toHeading = next;
    if (step.kind != WalkStepKind::Corner && next > reached && from < reached) {
      const double fraction = (reached - from) / (to - from);
      WalkStep level = step;
      level.toHeading = reached;
      level.chord = step.chord.part(0.0, fraction);
      rising.push_back(level);
      step.chord = step.chord.part(fraction, 1.0);
    }
    rising.push_back(step);
    reached = next;
  }
  return rising;
}

}  // namespace

std::optional<SideWalk> walkAlong(const TurningChords& side) {
  auto walk = plainWalk(side, smoothedHeadings(side));
  if (!walk || !isNearlyConvex(*walk)) return walk;
  return withoutShallowDents(*walk);
}

}  // namespace Calculations
}  // namespace Ruv
