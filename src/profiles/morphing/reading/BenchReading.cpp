// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/BenchReading.h"

#include "profiles/morphing/reading/ChainParts.h"
#include "profiles/morphing/reading/OutlineStore.h"
#include "profiles/morphing/reading/SegmentMerging.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// The top of a bench is no higher above the floor than this part of the outline's height: below
/// the crown, that is.
constexpr double kTallestBench = 0.8;

/// The part of a bench's height over which the wall above it is looked at to see how it goes on
/// below. Walls that are plumb for a fifth of that height are plumb behind the bench.
constexpr double kCourseReach = 0.2;

/// Walls behind benches lean by no more than this (rad) from the plumb line ...
constexpr double kLargestLean = 1.0;
/// ... and fall by at least this much per length towards the floor.
constexpr double kLeastFall = 0.3;

/// Enough for a lengthening to be known to the last digit where it is as long as the radius.
constexpr int kLengtheningSteps = 40;

/// How a wall leads at its lower end.
struct Course {
  double heading = 0.0;    ///< upwards
  double curvature = 0.0;  ///< turning by length
};

/// The mean course over some length. A wall that the bench beside it has nearly used up must not
/// let the vault above it take over at once.
Course courseOf(const TurningChords& upper, double length) {
  const double first = upper.front().headingAtStart();
  double passed = 0.0;
  double turned = 0.0;
  double moment = 0.0;
  for (const TurningChord& piece : upper) {
    const double part = std::min(1.0, (length - passed) / piece.length());
    const double middle = piece.headingAtStart() + part * piece.turning / 2.0;
    moment += part * piece.length() * turningBetween(first, middle);
    turned += part * piece.turning;
    passed += part * piece.length();
    if (part < 1.0) break;
  }
  return {first + moment / passed - turned / 2.0, turned / passed};
}

/// A wall lengthened down to a floor: bent as it is above, an arc goes on as the same arc. The
/// chord c of the lengthening leads back from the heading by asin(c k / 2) for the curvature k, and
/// c follows from the direction in which the chord falls.
TurningChord lengthening(const TurningChords& upper, const FloorLine& floor) {
  const Point2D top = upper.front().start;
  const double height = floor.heightOf(top);
  const Course course = courseOf(upper, kCourseReach * height);
  TurningChord piece{top, top, 0.0};
  for (int i = 0; i < kLengtheningSteps; ++i) {
    const double halfBend =
        std::asin(std::clamp(piece.chord().length() * course.curvature / 2.0, -1.0, 1.0));
    const double lean =
        std::clamp(turningBetween(0.0, course.heading - halfBend), -kLargestLean, kLargestLean);
    const double fall = std::max(std::cos(lean) - floor.slope * std::sin(lean), kLeastFall);
    piece.start = top - Point2D(std::sin(lean), std::cos(lean)) * (height / fall);
    piece.turning = 2.0 * halfBend;
  }
  return piece;
}

/// How far a piece is passed until it meets a floor from below; nothing when it does not.
std::optional<double> crossingOf(const TurningChord& piece, const FloorLine& floor) {
  if (!(floor.heightOf(piece.end) >= 0.0)) return std::nullopt;
  return fractionUpTo(piece, [&](const Point2D& p) { return floor.heightOf(p) < 0.0; });
}

/// Crowns of arcs included.
double heightAbove(const FloorLine& floor, const TurningChords& chain) {
  double height = 0.0;
  for (const Point2D& p : sampled(chain, kCrownSampling)) {
    height = std::max(height, floor.heightOf(p));
  }
  return height;
}

/// Moves what a wall has below a floor to the end of a ditch beside it.
void moveBelow(const FloorLine& floor, TurningChords& upper, TurningChords& ditch) {
  while (upper.size() > 1) {
    const auto crossing = crossingOf(upper.front(), floor);
    if (crossing && *crossing < 1.0) {
      ditch.push_back(upper.front().part(0.0, *crossing));
      upper.front() = upper.front().part(*crossing, 1.0);
      return;
    }
    ditch.push_back(upper.front());
    upper.erase(upper.begin());
    if (crossing) return;
  }
}

}  // namespace

/// Up to the last ledge that is low enough all belongs to the bench. Where the wall behind it
/// begins above the floor, it is lengthened down to the foot on the floor; where it begins below,
/// in a ditch beside the wall, what lies below the floor belongs to the ditch.
std::optional<Detour> cutFootDetour(TurningChords& upper, const TurningChord& lastOfFloor) {
  const FloorLine floor{lastOfFloor.end, slopeOf(lastOfFloor)};
  const double tallest = kTallestBench * heightAbove(floor, upper);
  std::size_t count = 0;
  for (std::size_t i = 0; i < upper.size(); ++i) {
    if (heightAbove(floor, {upper[i]}) > tallest || floor.heightOf(upper[i].end) > tallest) break;
    if (isLedge(upper[i])) count = i + 1;
  }
  if (count == 0 || count == upper.size()) return std::nullopt;
  // A bench turns back from its front, the wall from its top, or a ditch from the floor.
  TurningChords bench = part(upper, 0, count + 1);
  bench.insert(bench.begin(), lastOfFloor);
  const double turningBack = turningBackOf(bench);
  if (!(turningBack > 0.0)) return std::nullopt;
  Detour detour{DetourSite::LeftFoot, part(upper, 0, count), turningBack};
  upper = part(upper, count, upper.size());
  const double height = floor.heightOf(upper.front().start);
  if (height > kSamePoint) {
    upper.insert(upper.begin(), lengthening(upper, floor));
    upper = merged(upper);
    return detour;
  }
  detour.site = DetourSite::Floor;
  if (height < -kSamePoint) moveBelow(floor, upper, detour.pieces);
  return detour;
}

}  // namespace Calculations
}  // namespace Ruv
