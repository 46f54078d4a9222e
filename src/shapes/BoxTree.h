// SPDX-License-Identifier: BSL-1.0
/// @file
/// Bounding boxes over a chain of curves, for searches that need not look at every curve.

#ifndef CALCULATIONS_SHAPES_BOX_TREE_H
#define CALCULATIONS_SHAPES_BOX_TREE_H

#include "shapes/PlaneGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#if defined(_MSC_VER)
#include <intrin.h>
#endif

namespace Ruv {

/// An axis-parallel box; empty as constructed.
struct CBox {
  Point2D low{1e308, 1e308};
  Point2D high{-1e308, -1e308};

  /// True also when a bound is not a number.
  bool isEmpty() const { return !(low.x <= high.x && low.y <= high.y); }
  void include(const CBox& other);
};

/// Encloses every curve of the given length between two points: no point of it lies farther off
/// the chord than the short axis of the ellipse with the foci at the points and that length.
CBox boxAroundCurve(const Point2D& start, const Point2D& end, double length);

/// A tree over boxes in chain order. Curves that follow each other lie near each other, so groups
/// of consecutive boxes are as good as any and need no sorting.
///
/// Boxes are kept in single precision, from the middle of the tree: half the memory to fetch, and
/// twice as many of them to an instruction. What that rounds away is added to the reach of every
/// search, so a box too many may be looked at, but none is missed.
class CBoxTree {
 public:
  CBoxTree() = default;
  explicit CBoxTree(std::vector<CBox> boxes);

  /// Calls look(index) for every box that may hold something as near to p as reach(), nearest
  /// boxes of a group first; empty boxes are left out. reach() is asked again after each look, so
  /// it may shrink on the way: it is the distance beyond which nothing matters, with the margin
  /// for rounding that the caller needs. Time is O(log n) when the first looks shrink the reach
  /// well, O(n) when they do not.
  /// @param p finite
  /// @param reach gives finite distances
  template <class Reach, class Look>
  void visitNear(const Point2D& p, const Reach& reach, const Look& look) const {
    if (!m_levels.empty()) visitGroup(m_levels.size() - 1, 0, blurred(p), reach, look);
  }

  /// Mean width and height together of the boxes that have a size.
  double meanSize() const { return m_meanSize; }

  /// How far around a point there is no box but those from first to last; a distance that is enough
  /// where it is farther.
  double clearanceAround(const Point2D& p, std::size_t first, std::size_t last,
                         double enough) const;

  class Neighbourhood;

  /// The same as visitNear for the points of a list one after the other, each near the one before:
  /// looks at the boxes around a place where one of them was, and through the tree only for points
  /// that leave it. The boxes come in another order, and some twice.
  template <class Reach, class Look>
  void visitNear(const Point2D& p, const Reach& reach, const Look& look,
                 Neighbourhood& around) const;

  /// The same, faster where reach() is small from the start and mostly leaves no box of a group.
  template <class Reach, class Look>
  void visitWithin(const Point2D& p, const Reach& reach, const Look& look) const {
    if (!m_levels.empty()) visitGroupWithin(m_levels.size() - 1, 0, blurred(p), reach, look);
  }

 private:
  static constexpr std::size_t kGroup = 8;
  /// Trees of so few levels are searched as fast without a neighbourhood.
  static constexpr std::size_t kFewLevels = 2;
  using Eight = std::array<float, kGroup>;
  /// A set of places: a bit for each, the lowest for the first.
  using Places = std::uint32_t;
  static constexpr std::array<Places, kGroup> kPlaceBits = {1, 2, 4, 8, 16, 32, 64, 128};

  /// Coordinates farther than this (m) from the middle of a tree have too few digits left. Boxes
  /// that reach beyond are looked at in every search; points beyond are brought to this limit,
  /// which takes them nearer to every other box.
  static constexpr double kFar = 1e8;
  /// Half the size of a box that holds all points, and minus that of one that holds none.
  static constexpr double kBoundless = 4.0 * kFar;
  static constexpr double kNowhere = 16.0 * kFar;
  /// Between four times the square of the distance of any box and of one that holds no point.
  static constexpr double kFarthestSquare = 100.0 * kFar * kFar;

  /// A point in single precision from the middle of the tree.
  struct BlurredPoint {
    float x = 0.0F;
    float y = 0.0F;
    double blur = 0.0;  ///< no distance from a box is given too large by more than this (m)

    /// Compares with what Group::quadrupledSquaresFrom gives.
    float limitOf(double reach) const;
  };
  BlurredPoint blurred(const Point2D& p) const;

  /// Eight boxes, component by component, so that their distances are worked out side by side. Two
  /// lines of a cache.
  struct alignas(64) Group {
    Eight centreX;
    Eight centreY;
    Eight halfWidth;
    Eight halfHeight;

    /// @param middle of the tree
    void set(std::size_t place, const CBox& box, const Point2D& middle);
    /// A box of another group.
    void take(std::size_t place, const Group& other, std::size_t from);
    Eight quadrupledSquaresFrom(const BlurredPoint& p) const;
  };

  /// What visitNear does with the places of one group.
  template <class Reach, class Visit>
  static void visitPlaces(const Group& group, const BlurredPoint& p, const Reach& reach,
                          const Visit& visit) {
    const Eight squares = group.quadrupledSquaresFrom(p);
    const std::size_t first = placeOfSmallest(squares);
    if (!(squares[first] <= p.limitOf(reach()))) return;  // the others are farther still
    visit(first);
    const Places others = placesWithin(squares, p.limitOf(reach())) & ~(1U << first);
    visitInOrder(others, squares, p, reach, visit);
  }

  /// Visits places from the nearest on, as long as they are within reach.
  template <class Reach, class Visit>
  static void visitInOrder(Places places, const Eight& quadrupledSquares, const BlurredPoint& p,
                           const Reach& reach, const Visit& visit) {
    while (places != 0) {
      const std::size_t nearest = nearestOf(places, quadrupledSquares);
      if (!(quadrupledSquares[nearest] <= p.limitOf(reach()))) return;
      visit(nearest);
      places &= ~(1U << nearest);
    }
  }

  static std::size_t placeOfSmallest(const Eight& values);

  static Places placesWithin(const Eight& quadrupledSquares, float limit);
  static std::size_t lowestPlace(Places places);
  /// @param places at least one
  static std::size_t nearestOf(Places places, const Eight& quadrupledSquares);

  template <class Reach, class Look>
  void visitGroup(std::size_t level, std::size_t index, const BlurredPoint& p, const Reach& reach,
                  const Look& look) const {
    visitPlaces(m_levels[level][index], p, reach, [&](std::size_t place) {
      const std::size_t child = index * kGroup + place;
      if (level == 0) {
        look(child);
      } else {
        visitGroup(level - 1, child, p, reach, look);
      }
    });
  }

  template <class Reach, class Look>
  void visitGroupWithin(std::size_t level, std::size_t index, const BlurredPoint& p,
                        const Reach& reach, const Look& look) const {
    const Eight squares = m_levels[level][index].quadrupledSquaresFrom(p);
    const auto visit = [&](std::size_t place) {
      const std::size_t child = index * kGroup + place;
      if (level == 0) {
        look(child);
      } else {
        visitGroupWithin(level - 1, child, p, reach, look);
      }
    };
    visitInOrder(placesWithin(squares, p.limitOf(reach())), squares, p, reach, visit);
  }

  /// No more than the distance of anything in the box.
  double distanceFrom(const BlurredPoint& p, std::size_t box) const;

  // m_levels[0] are the boxes themselves, in groups; a box of level k + 1 encloses a group of
  // level k. The top level is one group.
  std::vector<std::vector<Group>> m_levels;
  Point2D m_middle;
  double m_extent = 0.0;    // of the coordinates to either side of the middle
  double m_meanSize = 0.0;  // width and height of a box together
};

/// The eight boxes nearest to one place, and how far around it there is no other.
///
/// A point at a distance d from the place, with a reach r, has all that matters to it among these
/// boxes where d + r is no more than that radius; and in the nearest box alone where it is no more
/// than the distance of the second one. In the lists that scanners write, hundreds of points follow
/// each other in which that holds. In lists without order it never does, and moving the place costs
/// as much as several searches. So it moves only after two points in a row that were not served and
/// lie near each other, and a place that has served few points is kept the longer, the more often
/// that happens.
class CBoxTree::Neighbourhood {
 public:
  /// Looks at the boxes that may hold something as near as reach().
  /// @return false when others may hold such things too
  template <class Reach, class Look>
  bool visit(const Point2D& p, const CBoxTree& tree, const Reach& reach, const Look& look) {
    const double moved = (p - m_place).length();
    if (!(moved < m_radius / 2.0)) return false;  // farther out, the reach seldom suffices
    const auto visitPlace = [&](std::size_t place) {
      const double before = reach();
      look(m_boxes[place]);
      if (reach() < before) m_nearest = place;
    };
    const bool mayBeAlone = m_nearest == m_first;
    visitPlace(m_nearest);
    if (mayBeAlone && moved + reach() <= m_radiusOfFirst) {
      ++m_numServed;
      return true;
    }
    const BlurredPoint blurred = tree.blurred(p);
    const Eight squares = m_group.quadrupledSquaresFrom(blurred);
    const Places others = placesWithin(squares, blurred.limitOf(reach())) & ~(1U << m_nearest);
    visitInOrder(others, squares, blurred, reach, visitPlace);
    if (!(moved + reach() <= m_radius)) return false;
    ++m_numServed;
    return true;
  }

  /// To be asked once for each point that was not served.
  bool isDue(const Point2D& p, const CBoxTree& tree) {
    const Point2D step = p - m_missed;
    m_missed = p;
    if (m_numServed >= kWorthMoving) m_pause = 1;
    ++m_numMissed;
    const bool isNear = std::abs(step.x) + std::abs(step.y) <= tree.m_meanSize;
    return isNear && m_numMissed >= m_pause;
  }
  void moveTo(const Point2D& p, const CBoxTree& tree);

 private:
  static constexpr unsigned kWorthMoving = 4;      // points served
  static constexpr unsigned kLongestPause = 1024;  // points not served

  Point2D m_place;
  double m_radius = 0.0;
  double m_radiusOfFirst = 0.0;  // within which the nearest box of the place is alone
  Point2D m_missed{std::numeric_limits<double>::infinity(), 0.0};  // the last point not served
  Group m_group{};
  std::array<std::size_t, kGroup> m_boxes{};
  std::size_t m_first = 0;    // place in the group of the nearest box
  std::size_t m_nearest = 0;  // place in the group of what was nearest to the point before
  unsigned m_numServed = kWorthMoving;
  unsigned m_pause = 1;
  unsigned m_numMissed = 0;  // since the last move
};

template <class Reach, class Look>
void CBoxTree::visitNear(const Point2D& p, const Reach& reach, const Look& look,
                         Neighbourhood& around) const {
  if (m_levels.size() <= kFewLevels) return visitNear(p, reach, look);
  if (around.visit(p, *this, reach, look)) return;
  visitNear(p, reach, look);
  if (around.isDue(p, *this)) around.moveTo(p, *this);
}

/// With u = 2^-24 for the rounding of a single-precision number, the coordinates p of the point, c
/// of the centre and h of half the size, and E for the extent of the tree, |p - c| - h is off by at
/// most u (3 |p| + 5 E): u |p|, u E and u E by the rounding of the three, and u (|p| + E) and
/// u (|p| + 2 E) by that of the two differences. Both axes together stay below 8 u (|x| + |y| + E).
inline CBoxTree::BlurredPoint CBoxTree::blurred(const Point2D& p) const {
  constexpr double kRounding = 0x1p-21;
  const double x = std::max(-kFar, std::min(p.x - m_middle.x, kFar));
  const double y = std::max(-kFar, std::min(p.y - m_middle.y, kFar));
  return {static_cast<float>(x), static_cast<float>(y),
          kRounding * (std::abs(x) + std::abs(y) + m_extent)};
}

/// The factor covers the rounding of squaring, adding and of the limit itself.
inline float CBoxTree::BlurredPoint::limitOf(double reach) const {
  constexpr double kSquaring = 4.0 * (1.0 + 0x1p-20);
  const double distance = reach + blur;
  return static_cast<float>(std::min(kSquaring * distance * distance, kFarthestSquare));
}

/// Twice the distance of a coordinate outside an interval, squared and summed over both axes. The
/// doubling spares the choice of a maximum: e + |e| is 0 or 2 e.
inline CBoxTree::Eight CBoxTree::Group::quadrupledSquaresFrom(const BlurredPoint& p) const {
  const float x = p.x;
  const float y = p.y;
  Eight squares;
  for (std::size_t i = 0; i < kGroup; ++i) {
    const float outsideX = std::abs(x - centreX[i]) - halfWidth[i];
    const float outsideY = std::abs(y - centreY[i]) - halfHeight[i];
    const float dx = outsideX + std::abs(outsideX);
    const float dy = outsideY + std::abs(outsideY);
    squares[i] = dx * dx + dy * dy;
  }
  return squares;
}

/// Numbers that are not negative are ordered as their bits are. With the place in the lowest three
/// bits, a minimum of integers tells the place as well, in a few instructions and without branches,
/// and values that differ only there may be taken for equal.
inline std::size_t CBoxTree::placeOfSmallest(const Eight& values) {
  static_assert(sizeof(float) == sizeof(std::int32_t) && (kGroup & (kGroup - 1)) == 0, "packed");
  constexpr auto kPlace = static_cast<std::int32_t>(kGroup - 1);
  std::array<std::int32_t, kGroup> keys{};
  std::memcpy(keys.data(), values.data(), sizeof(keys));
  for (std::size_t i = 0; i < kGroup; ++i) {
    keys[i] = (keys[i] & ~kPlace) | static_cast<std::int32_t>(i);
  }
  for (std::size_t half = kGroup / 2; half > 0; half /= 2) {
    for (std::size_t i = 0; i < half; ++i) {
      keys[i] = std::min(keys[i], keys[i + half]);
    }
  }
  return static_cast<std::size_t>(keys[0] & kPlace);
}

/// All comparisons at once: branches would mispredict. A difference of bits has its sign set where
/// the limit is not exceeded; halves are joined as above.
inline CBoxTree::Places CBoxTree::placesWithin(const Eight& quadrupledSquares, float limit) {
  static_assert(sizeof(float) == sizeof(Places), "bits");
  Places limitBits = 0;
  std::memcpy(&limitBits, &limit, sizeof(limit));
  std::array<Places, kGroup> places{};
  std::memcpy(places.data(), quadrupledSquares.data(), sizeof(places));
  for (std::size_t i = 0; i < kGroup; ++i) {
    const Places isWithin = (places[i] - limitBits - 1U) >> 31U;
    places[i] = (0U - isWithin) & kPlaceBits[i];
  }
  for (std::size_t half = kGroup / 2; half > 0; half /= 2) {
    for (std::size_t i = 0; i < half; ++i) {
      places[i] |= places[i + half];
    }
  }
  return places[0];
}

/// What each compiler has built in: one or two instructions. C++17 has nothing of its own, C++20
/// will have std::countr_zero; a loop over the bits would mispredict at every box.
inline std::size_t CBoxTree::lowestPlace(Places places) {
#if defined(_MSC_VER)
  unsigned long place = 0;
  _BitScanForward(&place, places);
  return place;
#else
  return static_cast<std::size_t>(__builtin_ctz(places));
#endif
}

/// Mostly one of one or two.
inline std::size_t CBoxTree::nearestOf(Places places, const Eight& quadrupledSquares) {
  std::size_t nearest = lowestPlace(places);
  while ((places &= places - 1) != 0) {
    const std::size_t place = lowestPlace(places);
    if (quadrupledSquares[place] < quadrupledSquares[nearest]) nearest = place;
  }
  return nearest;
}

}  // namespace Ruv

#endif
