#include "profiles/morphing/SideWalk.h"

#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// A kink (rad) this small beside an arc is the rounding of printed radii and centres; the joint is
/// meant to be tangent.
constexpr double kSmoothKink = 0.01;

/// The sum of all turnings misses the crown heading by rounding only, or by full turns.
constexpr double kClosingTolerance = 1e-6;

struct Headings {
  double start = 0.0;
  double end = 0.0;
  bool isArc = false;
};

/// Lets both sides of a joint have one heading: that of the straight, between arcs the mean.
void smoothJoint(Headings& before, Headings& after) {
  const double kink = turningBetween(before.end, after.start);
  if (!(before.isArc || after.isArc) || !(std::abs(kink) < kSmoothKink)) return;
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

}  // namespace

std::optional<SideWalk> walkAlong(const TurningChords& side) {
  const std::vector<Headings> headings = smoothedHeadings(side);
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

}  // namespace Calculations
}  // namespace Ruv
