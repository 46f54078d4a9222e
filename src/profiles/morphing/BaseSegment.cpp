#include "profiles/morphing/BaseSegment.h"

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

/// @param height +1 to find the highest place on a plumb line, -1 to find the lowest
std::optional<OutlinePlace> outermostPlace(const OutlineStore& store, double x, double height) {
  const TurningChords& elements = store.elements();
  const PlumbLine line = plumbLineAt(x, elements);
  std::optional<OutlinePlace> found;
  double best = 0.0;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const CChainSegment segment = elements[i].segment();
    for (const Point2D& hit : intersectionsOf({segment}, line.from, line.to)) {
      // Two elements share a node; the later one, at its start, adds nothing.
      if (found && !(height * hit.y > best + kSamePoint)) continue;
      best = height * hit.y;
      const double fraction = fractionOf(segment, hit);
      const bool isNext = fraction == 1.0;
      const std::size_t index = isNext ? (i + 1) % elements.size() : i;
      found = OutlinePlace{store.numberOf(index), isNext ? 0.0 : fraction};
    }
  }
  return found;
}

void addPart(TurningChords& side, const TurningChord& element, double from, double to) {
  if (from < to) side.push_back(element.part(from, to));
}

TurningChords between(const OutlineStore& store, const OutlinePlace& from, const OutlinePlace& to) {
  const TurningChords& elements = store.elements();
  TurningChords side;
  std::size_t index = store.indexOf(from.number);
  const std::size_t last = store.indexOf(to.number);
  if (index == last && from.fraction < to.fraction) {
    addPart(side, elements[index], from.fraction, to.fraction);
    return side;
  }
  addPart(side, elements[index], from.fraction, 1.0);
  for (index = (index + 1) % elements.size(); index != last;
       index = (index + 1) % elements.size()) {
    side.push_back(elements[index]);
  }
  addPart(side, elements[last], 0.0, to.fraction);
  return side;
}

void moveBy(TurningChords& side, const Point2D& shift) {
  for (TurningChord& element : side) {
    element.start = element.start + shift;
    element.end = element.end + shift;
  }
}

}  // namespace

std::optional<BaseAndCrown> findBaseAndCrown(const OutlineStore& store, const PlumbLines& lines) {
  const auto base = outermostPlace(store, lines.baseX, -1.0);
  const auto crown = outermostPlace(store, lines.crownX, 1.0);
  if (!base || !crown) return std::nullopt;
  return BaseAndCrown{*base, *crown};
}

Point2D pointAt(const OutlineStore& store, const OutlinePlace& place) {
  return store.elements()[store.indexOf(place.number)].pointAt(place.fraction);
}

OutlineSides sidesOf(const OutlineStore& store, const BaseAndCrown& ends) {
  OutlineSides sides{between(store, ends.base, ends.crown), {}};
  const TurningChords descending = between(store, ends.crown, ends.base);
  const Point2D base = pointAt(store, ends.base);
  moveBy(sides.left, base * -1.0);
  for (auto element = descending.rbegin(); element != descending.rend(); ++element) {
    sides.right.push_back(element->reversed());
  }
  moveBy(sides.right, base * -1.0);
  for (TurningChord& element : sides.right) {
    element = element.mirrored();
  }
  return sides;
}

}  // namespace Calculations
}  // namespace Ruv
