// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/BaseSegment.h"

#include "profiles/morphing/reading/OutlineStore.h"
#include "shapes/ChainIntersections.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// By how much (m) a plumb line is longer than needed, at each end.
constexpr double kPlumbMargin = 1.0;

struct PlumbLine {
  Point2D from;
  Point2D to;
};

/// Long enough to leave the outline at both ends: crossings are looked for along a segment.
PlumbLine plumbLineAt(double x, const TurningChords& elements) {
  double low = elements.front().start.y;
  double high = low;
  for (const TurningChord& element : elements) {
    // An arc rises no higher above its ends than it is long.
    const double reach = element.length();
    low = std::min(low, element.start.y - reach);
    high = std::max(high, element.start.y + reach);
  }
  return {Point2D(x, low - kPlumbMargin), Point2D(x, high + kPlumbMargin)};
}

/// A fraction of an element; 0 and 1 when its length makes no difference to its ends.
double fractionOf(const CChainSegment& segment, const Point2D& p) {
  if ((p - segment.start).length() < kSamePoint) return 0.0;
  if ((p - segment.end).length() < kSamePoint) return 1.0;
  const CCurveFoot foot = segment.footOf(p);
  return std::clamp(foot.length / segment.length, 0.0, 1.0);
}

}  // namespace

/// Every crossing with the plumb line is looked at, and the highest or lowest one is kept.
std::optional<ChainPlace> outermostPlace(const TurningChords& chain, double x, double height) {
  const PlumbLine line = plumbLineAt(x, chain);
  std::optional<ChainPlace> found;
  double best = 0.0;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const CChainSegment segment = chain[i].segment();
    for (const Point2D& hit : intersectionsOf({segment}, line.from, line.to)) {
      // Two elements share a node; the later one, at its start, adds nothing.
      if (found && !(height * hit.y > best + kSamePoint)) continue;
      best = height * hit.y;
      found = ChainPlace{i, fractionOf(segment, hit)};
    }
  }
  return found;
}

/// A piece that the place divides becomes the first and the last one.
TurningChords begunAt(const TurningChords& ring, const ChainPlace& place) {
  TurningChords begun;
  if (place.fraction < 1.0) begun.push_back(ring[place.index].part(place.fraction, 1.0));
  for (std::size_t i = 1; i < ring.size(); ++i) {
    begun.push_back(ring[(place.index + i) % ring.size()]);
  }
  if (place.fraction > 0.0) begun.push_back(ring[place.index].part(0.0, place.fraction));
  return begun;
}

/// The left side leads up to the crown. What is left of the ring leads down on the right; reversed
/// and mirrored it leads up as the left side does, so that one reading serves both.
OutlineSides sidesOf(const TurningChords& upper, const ChainPlace& crown) {
  OutlineSides sides;
  const auto last = upper.begin() + static_cast<std::ptrdiff_t>(crown.index);
  sides.left.assign(upper.begin(), last);
  if (crown.fraction > 0.0) sides.left.push_back(last->part(0.0, crown.fraction));
  for (auto element = upper.end() - 1; element != last; --element) {
    sides.right.push_back(element->reversed().mirrored());
  }
  if (crown.fraction < 1.0) {
    sides.right.push_back(last->part(crown.fraction, 1.0).reversed().mirrored());
  }
  return sides;
}

}  // namespace Calculations
}  // namespace Ruv
