// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/DetourMatch.h"

#include "profiles/morphing/reading/ChainParts.h"
#include "profiles/morphing/reading/ChainPlaces.h"
#include "profiles/morphing/reading/OutlineStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// Of two detours one counts in full from this part of the size of the other on: a bench three
/// times as high as another one still becomes it in proportion.
constexpr double kFullPart = 1.0 / 3.0;

/// The weight of a detour of a size beside a larger one. With its square nothing jumps where a
/// detour begins to be there.
double weightOf(double size, double larger) {
  const double part = size / (kFullPart * larger);
  return part < 1.0 ? part * part : 1.0;
}

/// Detours stand on the bottom of a ring and not where it bends over into walls or crown: not
/// within this part of its width or height from its edges.
constexpr double kEdgeOfRing = 0.15;

double clampedBetween(double place, double low, double high) {
  const double margin = kEdgeOfRing * (high - low);
  return std::clamp(place, low + margin, high - margin);
}

/// An outline with its feet, or its mirror image.
struct Side {
  TurningChords upper;
  TurningChords floor;
  double leftFoot = 0.0;
  double rightFoot = 0.0;
  Point2D low;  ///< of the box around the ring
  Point2D high;

  explicit Side(const OutlineReading& reading) : upper(reading.upper), floor(reading.floor) {
    findFeet();
    findBox();
  }
  Side mirroredSide() const {
    Side side = *this;
    side.upper = mirrored(upper);
    side.floor = mirrored(floor);
    side.low = Point2D(-high.x, low.y);
    side.high = Point2D(-low.x, high.y);
    side.findFeet();
    return side;
  }

  double placeOnBottom(double x) const { return clampedBetween(x, low.x, high.x); }
  double placeOnWall(double y) const { return clampedBetween(y, low.y, high.y); }

 private:
  void findFeet() {
    if (floor.empty()) return;
    leftFoot = floor.back().end.x;
    rightFoot = floor.front().start.x;
  }
  void findBox() {
    low = high = upper.front().start;
    for (const TurningChords* chain : {&upper, &floor}) {
      for (const Point2D& p : sampled(*chain, kCrownSampling)) {
        low = Point2D(std::min(low.x, p.x), std::min(low.y, p.y));
        high = Point2D(std::max(high.x, p.x), std::max(high.y, p.y));
      }
    }
  }
};

/// Reads the detours of one outline against its own base.
struct PlacedDetour {
  DetourSite site = DetourSite::Floor;
  TurningChords pieces;
  std::vector<TurningChords> bases;  ///< of the pieces
  std::vector<double> places;
  std::vector<Point2D> offsets;
  double low = 0.0;  ///< of the places
  double high = 0.0;
};

std::vector<Point2D> nodesOf(const TurningChords& chain) {
  std::vector<Point2D> nodes{chain.front().start};
  for (const TurningChord& piece : chain)
    nodes.push_back(piece.end);
  return nodes;
}

/// What lies between two places; the straight when the second one comes first.
TurningChords partBetween(const TurningChords& chain, const ChainPlace& from,
                          const ChainPlace& to) {
  TurningChords parts;
  if (from < to) {
    appendPart(parts, chain, from, to);
  } else {
    parts.push_back({pointAt(chain, from), pointAt(chain, to), 0.0});
  }
  return parts;
}

/// Every node of a detour is the sum of a place on the base and an offset from there. The place is
/// the node's own distance or height as far as that lies within the mouth: a ditch with plumb sides
/// has offsets that are plumb, a niche with level ones level ones. A bench ends on the wall, and
/// its last offset is its height above the foot. On a ring, which has no foot for it, a bench
/// stands on the place of its front.
PlacedDetour placed(const Detour& detour, const Side& side, DetourBase on) {
  PlacedDetour found{detour.site, detour.pieces, {}, {}, {}, 0.0, 0.0};
  const std::vector<Point2D> nodes = nodesOf(detour.pieces);
  const bool isOnWall = detour.site == DetourSite::LeftWall;
  const bool isOnFront = detour.site == DetourSite::LeftFoot && on == DetourBase::Rings;
  const TurningChords& base = isOnWall ? side.upper : side.floor;
  std::vector<ChainPlace> feet;
  for (const Point2D& node : nodes) {
    const double low = isOnWall ? std::min(nodes.front().y, nodes.back().y) : side.leftFoot;
    const double high = isOnWall ? std::max(nodes.front().y, nodes.back().y) : side.rightFoot;
    const double own = isOnWall ? node.y : isOnFront ? nodes.front().x : node.x;
    const double place = std::clamp(own, low, high);
    feet.push_back(isOnWall ? placeUpwards(base, place) : placeLeftwards(base, place));
    found.places.push_back(place);
    found.offsets.push_back(node - pointAt(base, feet.back()));
  }
  if (detour.site == DetourSite::LeftFoot) {
    if (!isOnFront) {
      feet.back() = {base.size() - 1, 1.0};
      found.places.back() = side.leftFoot;
    }
    found.offsets.back() = Point2D(0.0, nodes.back().y - pointAt(base, feet.back()).y);
  }
  for (std::size_t i = 1; i < feet.size(); ++i) {
    found.bases.push_back(partBetween(base, feet[i - 1], feet[i]));
  }
  found.low = std::min(found.places.front(), found.places.back());
  found.high = std::max(found.places.front(), found.places.back());
  return found;
}

/// Where a place of one outline is on the other: where it is, or as far from the same foot.

/// Length that two mouths have in common, negative when they are apart. There is one bench at a
/// foot, so two benches always belong together.
double overlap(const PlacedDetour& a, const PlacedDetour& b, const Point2D& shift) {
  if (a.site != b.site) return 0.0;
  if (a.site == DetourSite::LeftFoot) return HUGE_VAL;
  const double s = a.site == DetourSite::LeftWall ? shift.y : shift.x;
  return std::min(a.high, b.high + s) - std::max(a.low, b.low + s);
}

/// Fractions of its length at which a detour has its nodes.
std::vector<double> fractionsOf(const TurningChords& pieces) {
  std::vector<double> fractions{0.0};
  for (const TurningChord& piece : pieces)
    fractions.push_back(fractions.back() + piece.length());
  for (double& f : fractions)
    f /= fractions.back() > 0.0 ? fractions.back() : 1.0;
  fractions.back() = 1.0;
  return fractions;
}

/// Cuts the pieces at fractions of the whole length, among which its own are.
TurningChords cutAt(const TurningChords& pieces, const std::vector<double>& own,
                    const std::vector<double>& fractions) {
  TurningChords cut;
  std::size_t index = 0;
  for (std::size_t k = 1; k < fractions.size(); ++k) {
    while (index + 1 < pieces.size() && own[index + 1] <= fractions[k - 1])
      ++index;
    const double length = own[index + 1] - own[index];
    const auto within = [&](double f) {
      return length > 0.0 ? std::clamp((f - own[index]) / length, 0.0, 1.0) : 1.0;
    };
    cut.push_back(pieces[index].part(within(fractions[k - 1]), within(fractions[k])));
  }
  return cut;
}

/// Both outlines with their detours, or the mirror images of both.
struct BothSides {
  Side start;
  Side end;
  Point2D shift;  ///< from the base of the start to that of the end
  DetourBase base = DetourBase::Floors;

  BothSides mirroredSides() const {
    return {start.mirroredSide(), end.mirroredSide(), Point2D(-shift.x, shift.y), base};
  }
  BothSides exchanged() const { return {end, start, shift * -1.0, base}; }
};

/// Where a place of the start is on the end: where it is, or as far from the same foot.
double onOther(const PlacedDetour& detour, double place, const BothSides& sides, bool isAlone) {
  const auto& [own, other, shift, base] = sides;
  const bool isOnWall = detour.site == DetourSite::LeftWall;
  const double same = place - (isOnWall ? shift.y : shift.x);
  if (base == DetourBase::Rings && isAlone) {
    return isOnWall ? other.placeOnWall(same) : other.placeOnBottom(same);
  }
  if (base == DetourBase::Rings || isOnWall) return same;
  if (detour.low <= own.leftFoot + kSamePoint) return place - own.leftFoot + other.leftFoot;
  if (detour.high >= own.rightFoot - kSamePoint) return place - own.rightFoot + other.rightFoot;
  return same;
}

/// Gives two detours nodes at the same fractions of their lengths.
void divideAlike(PlacedDetour& a, PlacedDetour& b, const BothSides& sides) {
  if (a.pieces.size() == b.pieces.size()) return;
  const std::vector<double> fractionsOfA = fractionsOf(a.pieces);
  const std::vector<double> fractionsOfB = fractionsOf(b.pieces);
  std::vector<double> all = fractionsOfA;
  all.insert(all.end(), fractionsOfB.begin(), fractionsOfB.end());
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  a = placed({a.site, cutAt(a.pieces, fractionsOfA, all)}, sides.start, sides.base);
  b = placed({b.site, cutAt(b.pieces, fractionsOfB, all)}, sides.end, sides.base);
}

/// The nodes of a detour of the start, with the places that they have on both bases.
DetourShape startShapeOf(const PlacedDetour& detour, const BothSides& sides, bool isAlone) {
  DetourShape shape;
  for (std::size_t i = 0; i < detour.pieces.size(); ++i) {
    shape.pieces.push_back({{detour.pieces[i]}, detour.bases[i]});
    shape.size = std::max(shape.size, shape.pieces.back().bulgeAt(0.5).length());
  }
  for (std::size_t i = 0; i < detour.places.size(); ++i) {
    const double place = detour.places[i];
    const double other = onOther(detour, place, sides, isAlone);
    shape.nodes.push_back({{place, other}, detour.offsets[i]});
    shape.size = std::max(shape.size, detour.offsets[i].length());
  }
  return shape;
}

/// The same for a detour of the end.
DetourShape endShapeOf(const PlacedDetour& detour, const BothSides& sides, bool isAlone) {
  // Seen from the end the end is the start.
  DetourShape shape = startShapeOf(detour, sides.exchanged(), isAlone);
  for (DetourNode& node : shape.nodes)
    std::swap(node.place.atStart, node.place.atEnd);
  return shape;
}

/// What a detour has become where it has grown from nothing or has vanished.
DetourShape flattened(DetourShape shape) {
  for (DetourNode& node : shape.nodes)
    node.offset = {};
  for (DetourPiece& piece : shape.pieces)
    piece.own = piece.base;
  shape.size = 0.0;
  return shape;
}

/// Back from the mirror image. Heights stay, plan distances change their sign.
void mirrorBack(DetourShape& shape, bool isOnFloor) {
  std::reverse(shape.nodes.begin(), shape.nodes.end());
  std::reverse(shape.pieces.begin(), shape.pieces.end());
  for (DetourPiece& piece : shape.pieces) {
    piece = {mirrored(piece.own), mirrored(piece.base)};
  }
  for (DetourNode& node : shape.nodes) {
    node.offset.x = -node.offset.x;
    if (!isOnFloor) continue;
    node.place.atStart = -node.place.atStart;
    node.place.atEnd = -node.place.atEnd;
  }
}

void mirrorBack(MatchedDetour& detour) {
  const bool isOnFloor = detour.site == DetourSite::LeftFoot;
  detour.site = isOnFloor ? DetourSite::RightFoot : DetourSite::RightWall;
  mirrorBack(detour.start, isOnFloor);
  mirrorBack(detour.end, isOnFloor);
}

/// Detours of the floor and the left side, or mirrored ones of the right side.
using PlacedDetours = std::vector<PlacedDetour>;

/// Right ones come mirrored, so that all that follows knows left feet and left walls only.
PlacedDetours placedOf(const OutlineReading& reading, const Side& side, bool isRight,
                       DetourBase base) {
  PlacedDetours detours;
  for (const Detour& detour : reading.detours) {
    const bool isFoot = detour.site == DetourSite::RightFoot;
    if ((isFoot || detour.site == DetourSite::RightWall) != isRight) continue;
    if (!isRight) {
      detours.push_back(placed(detour, side, base));
    } else {
      const DetourSite site = isFoot ? DetourSite::LeftFoot : DetourSite::LeftWall;
      detours.push_back(placed({site, mirrored(detour.pieces)}, side, base));
    }
  }
  return detours;
}

/// A detour of either outline or one of both, by their places in the lists.
struct DetourPair {
  std::optional<std::size_t> start;
  std::optional<std::size_t> end;
};

/// The detours of both outlines that have no partner yet.
struct AloneDetours {
  std::vector<std::size_t> starts;
  std::vector<std::size_t> ends;
};

/// Takes the two that overlap most from those that are alone; nothing when none overlap.
std::optional<DetourPair> takeMostOverlapping(AloneDetours& alone, const PlacedDetours& starts,
                                              const PlacedDetours& ends, const Point2D& shift) {
  double most = 0.0;
  DetourPair best;
  for (const std::size_t i : alone.starts) {
    for (const std::size_t j : alone.ends) {
      const double common = overlap(starts[i], ends[j], shift);
      if (!(common > most)) continue;
      most = common;
      best = {i, j};
    }
  }
  if (!best.start) return std::nullopt;
  alone.starts.erase(std::find(alone.starts.begin(), alone.starts.end(), *best.start));
  alone.ends.erase(std::find(alone.ends.begin(), alone.ends.end(), *best.end));
  return best;
}

/// Pairs what overlaps, what overlaps most first. The rest stays alone.
std::vector<DetourPair> pairsOf(const PlacedDetours& starts, const PlacedDetours& ends,
                                const Point2D& shift) {
  AloneDetours alone{std::vector<std::size_t>(starts.size()),
                     std::vector<std::size_t>(ends.size())};
  std::iota(alone.starts.begin(), alone.starts.end(), std::size_t{0});
  std::iota(alone.ends.begin(), alone.ends.end(), std::size_t{0});
  std::vector<DetourPair> pairs;
  while (const auto pair = takeMostOverlapping(alone, starts, ends, shift))
    pairs.push_back(*pair);
  for (const std::size_t i : alone.starts)
    pairs.push_back({i, std::nullopt});
  for (const std::size_t j : alone.ends)
    pairs.push_back({std::nullopt, j});
  return pairs;
}

/// A detour without a counterpart is matched with itself, laid flat on the other base.
std::vector<MatchedDetour> matchPlaced(PlacedDetours starts, PlacedDetours ends,
                                       const BothSides& sides) {
  std::vector<MatchedDetour> matched;
  for (const DetourPair& pair : pairsOf(starts, ends, sides.shift)) {
    if (!pair.end) {
      const PlacedDetour& start = starts[*pair.start];
      const DetourShape shape = startShapeOf(start, sides, true);
      matched.push_back({start.site, shape, flattened(shape)});
    } else if (!pair.start) {
      const PlacedDetour& end = ends[*pair.end];
      const DetourShape shape = endShapeOf(end, sides, true);
      matched.push_back({end.site, flattened(shape), shape});
    } else {
      PlacedDetour& start = starts[*pair.start];
      PlacedDetour& end = ends[*pair.end];
      divideAlike(start, end, sides);
      matched.push_back(
          {start.site, startShapeOf(start, sides, false), endShapeOf(end, sides, false)});
    }
  }
  return matched;
}

}  // namespace

double DetourPiece::turning() const {
  double turning = 0.0;
  for (const TurningChord& piece : own)
    turning += piece.turning;
  for (const TurningChord& piece : base)
    turning -= piece.turning;
  return turning;
}

Point2D DetourPiece::bulgeAt(double fraction) const {
  const auto fromChord = [fraction](const TurningChords& chain) {
    const Point2D start = chain.front().start;
    const Point2D chord = chain.back().end - start;
    return pointAlong(chain, fraction * lengthOf(chain)) - (start + chord * fraction);
  };
  return fromChord(own) - fromChord(base);
}

/// Of both places the mean at the fraction of the way, weighted by the sizes: a ditch that hardly
/// is there must not draw the mouth of a large one to itself.
double MatchedDetour::placeOf(std::size_t node, double t) const {
  const double larger = std::max(start.size, end.size);
  const double startWeight = weightOf(start.size, larger) * (1.0 - t);
  const double endWeight = weightOf(end.size, larger) * t;
  const double sum = startWeight + endWeight;
  const double startPlace = start.nodes[node].place.at(t);
  const double endPlace = end.nodes[node].place.at(t);
  return sum > 0.0 ? (startWeight * startPlace + endWeight * endPlace) / sum
                   : (1.0 - t) * startPlace + t * endPlace;
}

/// Linear: the depth changes evenly.
Point2D MatchedDetour::offsetOf(std::size_t node, double t) const {
  return start.nodes[node].offset * (1.0 - t) + end.nodes[node].offset * t;
}

/// Linear like the offsets: an arc of a detour grows from its base.
double MatchedDetour::turningOf(std::size_t piece, double t) const {
  return start.pieces[piece].turning() * (1.0 - t) + end.pieces[piece].turning() * t;
}

Point2D MatchedDetour::bulgeOf(std::size_t piece, double fraction, double t) const {
  return start.pieces[piece].bulgeAt(fraction) * (1.0 - t) +
         end.pieces[piece].bulgeAt(fraction) * t;
}

/// The left side and the floor as they are, the right side mirrored: then all that is said of
/// places holds for both sides, and a mirrored pair is matched as the mirror image.
std::vector<MatchedDetour> matchDetours(const OutlineReading& start, const OutlineReading& end,
                                        const Point2D& shift, DetourBase base) {
  if (start.detours.empty() && end.detours.empty()) return {};
  const BothSides left{Side(start), Side(end), shift, base};
  std::vector<MatchedDetour> matched = matchPlaced(placedOf(start, left.start, false, base),
                                                   placedOf(end, left.end, false, base), left);
  const BothSides right = left.mirroredSides();
  for (MatchedDetour& detour : matchPlaced(placedOf(start, right.start, true, base),
                                           placedOf(end, right.end, true, base), right)) {
    mirrorBack(detour);
    matched.push_back(detour);
  }
  return matched;
}

}  // namespace Calculations
}  // namespace Ruv
