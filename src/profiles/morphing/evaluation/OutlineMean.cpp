// SPDX-License-Identifier: BSL-1.0
// The mean at the share t of the way is built in three steps. First comes the base: every matched
// piece has parallel chords and tangents in both outlines, so (1 - t) start + t end is a piece of
// the same headings again. Of convex outlines without a floor this is the Minkowski sum of (1 - t)
// times the one and t times the other (Schneider, Convex Bodies: The Brunn-Minkowski Theory), which
// is convex and whose circumference is the mean of theirs.
//
// Then ditches, benches and niches are set on the base. Each has places on it, plan distances on a
// floor and heights on a wall, and offsets from there. Last, the parts of the base below them are
// left out, and all is carried back to where the outlines lie.

#include "profiles/morphing/evaluation/OutlineMean.h"

#include "foundation/MathConstants.h"
#include "profiles/morphing/evaluation/SelfCrossing.h"
#include "profiles/morphing/reading/ChainParts.h"
#include "profiles/morphing/reading/ChainPlaces.h"
#include "profiles/morphing/reading/OutlineStore.h"
#include "shapes/ShapeTolerances.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

/// Arcs of floors turn by no more than this (rad).
constexpr double kMostTurning = 0.99 * kPi;

template <class Value>
Value mean(const Value& start, const Value& end, double t) {
  return start * (1.0 - t) + end * t;
}

/// Height of an arc above the middle of its chord c, which turns by w: c / 2 tan(w / 4).
double sagittaOf(const TurningChord& piece) {
  return piece.chord().length() / 2.0 * std::tan(piece.turning / 4.0);
}

/// Floors have no tangents to keep. Their arcs take the mean sagitta, which makes them the mean of
/// both arcs at every place to the second order; so a corner that another floor has somewhere
/// changes the more the sharper it is, and a mere joint changes next to nothing.
TurningChord meanOf(const MatchedPiece& piece, double t) {
  TurningChord found{mean(piece.start.start, piece.end.start, t),
                     mean(piece.start.end, piece.end.end, t),
                     mean(piece.start.turning, piece.end.turning, t)};
  if (piece.isFloor && found.isArc()) {
    const double sagitta = mean(sagittaOf(piece.start), sagittaOf(piece.end), t);
    const double turning = 4.0 * std::atan2(2.0 * sagitta, found.chord().length());
    found.turning = std::clamp(turning, -kMostTurning, kMostTurning);
  }
  return found;
}

bool isLower(const TurningChord& a, const TurningChord& b) { return a.start.y < b.start.y; }

/// The piece that begins at the lowest node.
TurningChords::iterator lowestOf(TurningChords& ring) {
  return std::min_element(ring.begin(), ring.end(), isLower);
}

/// The base of a mean outline, on which places are looked for.
class MeanBase {
 public:
  MeanBase(const MatchedOutlines& outlines, double t) {
    for (const MatchedPiece& piece : outlines.ring) {
      if (!piece.isFloor) ++m_floorFirst;
      ring.push_back(meanOf(piece, t));
    }
    m_floorEnd = ring.size();
    m_leftEnd = m_floorFirst;
    m_rightEnd = m_floorFirst;
    if (m_floorFirst < m_floorEnd) return;
    std::rotate(ring.begin(), lowestOf(ring), ring.end());
    if (!outlines.detours.empty()) takeBottomForFloor();
  }

  TurningChords ring;

  /// The place of the floor at a plan distance; at its nearer end when there is none. The floor
  /// leads from right to left, so the first piece that ends farther left holds it.
  ChainPlace onFloor(double x) const {
    std::size_t index = m_floorFirst;
    while (index + 1 < m_floorEnd && ring[index].end.x > x)
      ++index;
    return {index, fractionLeftwards(ring[index], x)};
  }

  /// The lowest place of the left wall that is as high as asked for. The crown is the end of either
  /// wall.
  ChainPlace onLeftWall(double y) const {
    for (std::size_t i = m_leftFirst; i < m_leftEnd; ++i) {
      if (leadsUpTo(ring[i], y)) return {i, fractionUpwards(ring[i], y)};
    }
    return {m_leftEnd - 1, 1.0};
  }

  /// Likewise on the right, where the ring leads down: so it is walked backwards and mirrored.
  ChainPlace onRightWall(double y) const {
    for (std::size_t i = m_rightEnd; i-- > 0;) {
      const TurningChord piece = ring[i].reversed().mirrored();
      if (leadsUpTo(piece, y)) return {i, 1.0 - fractionUpwards(piece, y)};
    }
    return {0, 0.0};
  }

  double leftEnd() const { return ring[m_floorEnd - 1].end.x; }
  double rightEnd() const { return ring[m_floorFirst].start.x; }

 private:
  /// A level straight leads to a wall and is none: what is as high begins at its far end.
  static bool leadsUpTo(const TurningChord& piece, double y) {
    const bool isLevel = !piece.isArc() && std::abs(piece.chord().y) < kSamePoint;
    return !isLevel && comesUpTo(piece, y);
  }

  /// Without a floor of its own all that lies between the outermost points counts as one, and walls
  /// lead up from the lowest. The ring begins at its highest node, where no detour is.
  void takeBottomForFloor() {
    const auto isLeft = [](const TurningChord& a, const TurningChord& b) {
      return a.start.x < b.start.x;
    };
    const auto indexOf = [this](TurningChords::const_iterator piece) {
      return static_cast<std::size_t>(piece - ring.cbegin());
    };
    std::rotate(ring.begin(), std::max_element(ring.begin(), ring.end(), isLower), ring.end());
    m_rightEnd = m_leftFirst = indexOf(lowestOf(ring));
    m_leftEnd = ring.size();
    m_floorFirst = indexOf(std::max_element(ring.cbegin(), ring.cend(), isLeft));
    m_floorEnd = indexOf(std::min_element(ring.cbegin(), ring.cend(), isLeft));
    if (m_floorEnd <= m_floorFirst) m_floorEnd = ring.size();
  }

  // The left wall leads up, the right one down to its end.
  std::size_t m_leftFirst = 0;
  std::size_t m_leftEnd = 0;
  std::size_t m_rightEnd = 0;
  std::size_t m_floorFirst = 0;
  std::size_t m_floorEnd = 0;
};

/// A detour on a mean base. Its nodes stand on the base where their places are now, offset by the
/// mean of what both outlines have there: so a ditch becomes deeper where it is, whatever the floor
/// does below it. A bench is different at its wall end, which slides up the wall.
class MeanDetour {
 public:
  MeanDetour(const MatchedDetour& detour, double t) : m_detour(&detour), m_t(t) {
    for (std::size_t i = 0; i < detour.numNodes(); ++i) {
      m_places.push_back(detour.placeOf(i, t));
    }
  }

  DetourSite site() const { return m_detour->site; }
  double low() const { return std::min(m_places.front(), m_places.back()); }
  double high() const { return std::max(m_places.front(), m_places.back()); }

  bool hasRoom() const { return m_depth > 0.0; }

  /// Keeps all places between two of them. What has less room is less deep.
  void keepWithin(double lowest, double highest) {
    const double width = high() - low();
    for (double& own : m_places)
      own = std::clamp(own, lowest, std::max(lowest, highest));
    if (width > 0.0) m_depth *= (high() - low()) / width;
  }

  std::vector<Point2D> nodesOn(const MeanBase& base) const {
    std::vector<Point2D> nodes;
    for (std::size_t i = 0; i < m_places.size(); ++i) {
      const Point2D foot = pointAt(base.ring, placeOn(base, m_places[i]));
      nodes.push_back(foot + m_detour->offsetOf(i, m_t) * m_depth);
    }
    // A bench ends on the wall itself, wherever that has come to be.
    if (m_detour->site == DetourSite::LeftFoot) nodes.back() = pointAt(base.ring, endOn(base));
    if (m_detour->site == DetourSite::RightFoot) nodes.front() = pointAt(base.ring, startOn(base));
    return nodes;
  }

  ChainPlace startOn(const MeanBase& base) const {
    if (m_detour->site != DetourSite::RightFoot) return placeOn(base, m_places.front());
    return base.onRightWall(topOn(base));
  }

  ChainPlace endOn(const MeanBase& base) const {
    if (m_detour->site != DetourSite::LeftFoot) return placeOn(base, m_places.back());
    return base.onLeftWall(topOn(base));
  }

  /// The height at which a bench meets the wall: above the place of its last node on the floor.
  double topOn(const MeanBase& base) const {
    const std::size_t wallEnd = site() == DetourSite::RightFoot ? 0 : m_places.size() - 1;
    return pointAt(base.ring, placeOn(base, m_places[wallEnd])).y +
           m_detour->offsetOf(wallEnd, m_t).y;
  }

  /// Instead of what lies between two places of the base. A bench beyond the foot of a wall that
  /// leans inwards stands beside the base, and is joined to it by straights.
  void appendTo(TurningChords& chain, const MeanBase& base, const ChainPlace& from,
                const ChainPlace& to) const {
    const std::vector<Point2D> nodes = nodesOn(base);
    chain.push_back({pointAt(base.ring, from), nodes.front(), 0.0});
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
      appendPiece(chain, base, i, nodes[i], nodes[i + 1]);
    }
    chain.push_back({nodes.back(), pointAt(base.ring, to), 0.0});
  }

 private:
  /// A piece follows the base between the places of its nodes, arcs and corners and all, at the
  /// offsets of the nodes and bulging as far as it has grown.
  void appendPiece(TurningChords& chain, const MeanBase& base, std::size_t index,
                   const Point2D& start, const Point2D& end) const {
    const ChainPlace from = placeOn(base, m_places[index]);
    const ChainPlace to = placeOn(base, m_places[index + 1]);
    const double turning = m_detour->turningOf(index, m_t) * m_depth;
    TurningChords parts;
    if (from < to) appendPart(parts, base.ring, from, to);
    const double length = lengthOf(parts);
    if (!(length > 0.0)) {
      chain.push_back({start, end, turning});
      return;
    }
    const Point2D startOffset = start - parts.front().start;
    const Point2D endOffset = end - parts.back().end;
    double passed = 0.0;
    Point2D reached = start;
    for (const TurningChord& part : parts) {
      const double share = part.length() / length;
      passed = &part == &parts.back() ? 1.0 : passed + share;
      const Point2D next = part.end + startOffset * (1.0 - passed) + endOffset * passed +
                           m_detour->bulgeOf(index, passed, m_t) * m_depth;
      chain.push_back({reached, next, part.turning + share * turning});
      reached = next;
    }
  }

  ChainPlace placeOn(const MeanBase& base, double place) const {
    if (m_detour->site == DetourSite::LeftWall) return base.onLeftWall(place);
    if (m_detour->site == DetourSite::RightWall) return base.onRightWall(place);
    return base.onFloor(place);
  }

  const MatchedDetour* m_detour;
  double m_t;
  double m_depth = 1.0;
  std::vector<double> m_places;
};

/// Neighbours that would overlap meet in the middle. The order is that of their middles.
void separate(std::vector<MeanDetour*>& detours) {
  std::sort(detours.begin(), detours.end(), [](const MeanDetour* a, const MeanDetour* b) {
    return a->low() + a->high() < b->low() + b->high();
  });
  for (std::size_t i = 1; i < detours.size(); ++i) {
    const double middle = (detours[i - 1]->high() + detours[i]->low()) / 2.0;
    if (!(detours[i - 1]->high() > detours[i]->low())) continue;
    detours[i - 1]->keepWithin(-HUGE_VAL, middle);
    detours[i]->keepWithin(middle, HUGE_VAL);
  }
}

/// Benches come first: they take away from the floor and the walls what lies under them. What is
/// left is shared by ditches and niches. The detours of a mean outline, none of which overlaps
/// another one.
std::vector<MeanDetour> detoursAt(const MatchedOutlines& outlines, const MeanBase& base, double t) {
  std::vector<MeanDetour> detours;
  if (outlines.detours.empty()) return detours;  // then a ring has no floor either
  for (const MatchedDetour& matched : outlines.detours)
    detours.emplace_back(matched, t);
  const auto at = [&](DetourSite site) {
    std::vector<MeanDetour*> found;
    for (MeanDetour& detour : detours) {
      if (detour.site() == site) found.push_back(&detour);
    }
    return found;
  };
  double left = base.leftEnd();
  double right = base.rightEnd();
  double leftTop = -HUGE_VAL;
  double rightTop = -HUGE_VAL;
  for (const MeanDetour* bench : at(DetourSite::LeftFoot)) {
    left = bench->high();
    leftTop = bench->topOn(base);
  }
  for (const MeanDetour* bench : at(DetourSite::RightFoot)) {
    right = bench->low();
    rightTop = bench->topOn(base);
  }
  for (MeanDetour* ditch : at(DetourSite::Floor))
    ditch->keepWithin(left, right);
  for (MeanDetour* niche : at(DetourSite::LeftWall))
    niche->keepWithin(leftTop, HUGE_VAL);
  for (MeanDetour* niche : at(DetourSite::RightWall))
    niche->keepWithin(rightTop, HUGE_VAL);
  for (const DetourSite site : {DetourSite::Floor, DetourSite::LeftWall, DetourSite::RightWall}) {
    std::vector<MeanDetour*> neighbours = at(site);
    separate(neighbours);
  }
  return detours;
}

/// A detour and the part of the base that it replaces.
struct Replacement {
  ChainPlace from;
  ChainPlace to;
  MeanDetour detour;
};

/// The mean ring with the detours in the place of what they replace.
TurningChords ringAt(const MatchedOutlines& outlines, double t) {
  const MeanBase base(outlines, t);
  if (outlines.detours.empty()) return base.ring;
  std::vector<Replacement> replacements;
  for (const MeanDetour& detour : detoursAt(outlines, base, t)) {
    if (detour.hasRoom()) {
      replacements.push_back({detour.startOn(base), detour.endOn(base), detour});
    }
  }
  if (replacements.empty()) return base.ring;
  // In the order of the ring, so that one walk finds all that is left of the base between them.
  std::sort(replacements.begin(), replacements.end(),
            [](const Replacement& a, const Replacement& b) { return a.from < b.from; });
  TurningChords ring;
  // The one that leads over the beginning of the ring is the last.
  ChainPlace reached;
  if (replacements.back().to < replacements.back().from) reached = replacements.back().to;
  for (const Replacement& replacement : replacements) {
    if (reached < replacement.from) appendPart(ring, base.ring, reached, replacement.from);
    replacement.detour.appendTo(ring, base, replacement.from, replacement.to);
    reached = replacement.to;
  }
  if (!(replacements.back().to < replacements.back().from)) {
    appendPart(ring, base.ring, reached, {base.ring.size() - 1, 1.0});
  }
  return ring;
}

bool isSame(const Point2D& a, const Point2D& b) { return (a - b).length() < kZeroLength; }

/// Where the first node is on the way. It may be inside of a detour, hence no place of the base.
Point2D positionOf(const FirstNode& first, const MatchedOutlines& outlines, double t) {
  if (first.of == FirstNode::Of::Base) return meanOf(outlines.ring[first.index], t).start;
  const MeanBase base(outlines, t);
  return detoursAt(outlines, base, t)[first.index].nodesOn(base)[first.node];
}

/// Nothing is changed when no piece begins there: the node has vanished within a piece.
void beginAt(TurningChords& ring, const Point2D& place) {
  const auto first = std::find_if(ring.begin(), ring.end(), [&](const TurningChord& piece) {
    return isSame(piece.start, place);
  });
  if (first != ring.end()) std::rotate(ring.begin(), first, ring.end());
}

}  // namespace

FirstNode firstNodeAt(const MatchedOutlines& outlines, const Point2D& place) {
  if (outlines.ring.empty()) return {};
  const MeanBase base(outlines, 0.0);
  const std::vector<MeanDetour> detours = detoursAt(outlines, base, 0.0);
  for (std::size_t i = 0; i < detours.size(); ++i) {
    const std::vector<Point2D> nodes = detours[i].nodesOn(base);
    for (std::size_t k = 0; k < nodes.size(); ++k) {
      if (isSame(nodes[k], place)) return {FirstNode::Of::Detour, i, k};
    }
  }
  for (std::size_t i = 0; i < outlines.ring.size(); ++i) {
    if (isSame(outlines.ring[i].start.start, place)) return {FirstNode::Of::Base, i, 0};
  }
  return {};
}

TurningChords meanOf(const MatchedOutlines& outlines, double t) {
  if (outlines.ring.empty()) return {};
  TurningChords ring = ringAt(outlines, t);
  const auto hasNoLength = [](const TurningChord& piece) {
    return !(piece.chord().length() >= kSamePoint);
  };
  ring.erase(std::remove_if(ring.begin(), ring.end(), hasNoLength), ring.end());
  if (outlines.first.of != FirstNode::Of::Nothing) {
    beginAt(ring, positionOf(outlines.first, outlines, t));
  }
  const MorphPlacement& placement = outlines.placement;
  const Point2D base = mean(placement.startBase, placement.endBase, t);
  // Both outlines were turned to be matched. The mean is turned back about its base, by the mean of
  // both angles.
  const CDirection back = directionOfBearing(-mean(placement.startTurned, placement.endTurned, t));
  for (TurningChord& piece : ring)
    piece.start = base + turnedTo(back, piece.start);
  for (std::size_t i = 0; i < ring.size(); ++i) {
    // One and the same double for both, so that the outline is closed to the last digit.
    ring[i].end = ring[(i + 1) % ring.size()].start;
  }
  return ring;
}

bool isWaySimple(const MatchedOutlines& outlines, int numParts) {
  for (int i = 1; i < numParts; ++i) {
    if (!isSimple(meanOf(outlines, static_cast<double>(i) / numParts))) return false;
  }
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
