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

/// The top of a bench is no higher above the floor than this part of the outline's height.
constexpr double kTallestBench = 0.35;

/// Arcs are looked at in steps of this turning (rad): a crown is then known to a thousandth.
constexpr double kSampleTurning = 0.1;

/// Where a wall, lengthened downwards, meets a floor.
Point2D footBelow(const TurningChord& wall, const FloorLine& floor) {
  const double height = floor.heightOf(wall.start);
  const double heading = wall.headingAtStart();
  const double fall = std::cos(heading) - floor.slope * std::sin(heading);
  // Without a slope worth the name: plumb.
  const Point2D plumb(wall.start.x, wall.start.y - height);
  if (!(fall > 0.5)) return plumb;
  const Point2D straight =
      wall.start - Point2D(std::sin(heading), std::cos(heading)) * (height / fall);
  if (!wall.isArc()) return straight;
  const double radius = wall.radius();
  const Point2D centre = wall.start + Point2D(std::cos(heading), -std::sin(heading)) * radius;
  const double norm = std::hypot(1.0, floor.slope);
  const double distance = floor.heightOf(centre) / norm;
  if (!(std::abs(distance) < std::abs(radius))) return straight;
  // Of both intersections the one on the wall's side of the centre.
  const double half = std::sqrt((radius - distance) * (radius + distance));
  const Point2D middle = centre + Point2D(floor.slope, -1.0) * (distance / norm);
  const Point2D along = Point2D(1.0, floor.slope) * (half / norm);
  const Point2D foot = wall.start.x < centre.x ? middle - along : middle + along;
  return (foot - wall.start).length() < 3.0 * std::abs(height) ? foot : straight;
}

/// The wall with its lengthening down to the foot.
TurningChords lengthened(const TurningChords& upper, const Point2D& foot) {
  const TurningChord& wall = upper.front();
  const Point2D gap = wall.start - foot;
  double bend = 0.0;
  if (wall.isArc()) {
    const double half = gap.length() / 2.0 / wall.radius();
    bend = 2.0 * std::asin(std::clamp(half, -1.0, 1.0));
  }
  TurningChords chain{{foot, wall.start, bend}};
  chain.insert(chain.end(), upper.begin(), upper.end());
  return merged(chain);
}

/// How far a piece is passed until it meets a floor from below; nothing when it does not.
std::optional<double> crossingOf(const TurningChord& piece, const FloorLine& floor) {
  if (!(floor.heightOf(piece.end) >= 0.0)) return std::nullopt;
  double low = 0.0;
  double high = 1.0;
  for (int i = 0; i < 60; ++i) {
    const double middle = (low + high) / 2.0;
    (floor.heightOf(piece.pointAt(middle)) < 0.0 ? low : high) = middle;
  }
  return high;
}

/// Crowns of arcs included.
double heightAbove(const FloorLine& floor, const TurningChords& chain) {
  double height = 0.0;
  for (const Point2D& p : sampled(chain, kSampleTurning)) {
    height = std::max(height, floor.heightOf(p));
  }
  return height;
}

}  // namespace

/// Up to the last ledge that is low enough all belongs to the bench. Where the wall behind it
/// begins above the floor, it is lengthened down to the foot on the floor; where it begins below,
/// in a ditch beside the wall, what lies below the floor belongs to the ditch.
std::optional<Detour> cutFootDetour(TurningChords& upper, const FloorLine& floor) {
  const double tallest = kTallestBench * heightAbove(floor, upper);
  std::size_t count = 0;
  for (std::size_t i = 0; i < upper.size(); ++i) {
    if (floor.heightOf(upper[i].end) > tallest) break;
    if (isLedge(upper[i])) count = i + 1;
  }
  if (count == 0 || count == upper.size()) return std::nullopt;
  // A bench turns back from its front, or the wall from its top.
  const TurningChords bench = part(upper, 0, count + 1);
  if (!(turningBackOf(bench) > 0.0)) return std::nullopt;
  Detour detour{DetourSite::LeftFoot, part(upper, 0, count)};
  upper = part(upper, count, upper.size());
  const double height = floor.heightOf(upper.front().start);
  if (height > kSamePoint) {
    upper = lengthened(upper, footBelow(upper.front(), floor));
  } else if (height < -kSamePoint) {
    detour.site = DetourSite::Floor;
    while (upper.size() > 1) {
      const auto crossing = crossingOf(upper.front(), floor);
      if (crossing && *crossing < 1.0) {
        detour.pieces.push_back(upper.front().part(0.0, *crossing));
        upper.front() = upper.front().part(*crossing, 1.0);
        break;
      }
      detour.pieces.push_back(upper.front());
      upper.erase(upper.begin());
      if (crossing) break;
    }
  } else {
    detour.site = DetourSite::Floor;
  }
  return detour;
}

}  // namespace Calculations
}  // namespace Ruv
