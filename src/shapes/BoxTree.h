// SPDX-License-Identifier: BSL-1.0
/// @file
/// Bounding boxes over a chain of curves, for searches that need not look at every curve.

#ifndef CALCULATIONS_SHAPES_BOX_TREE_H
#define CALCULATIONS_SHAPES_BOX_TREE_H

#include "shapes/PlaneGeometry.h"

#include <array>
#include <cmath>
#include <cstddef>
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
    if (!m_levels.empty()) visitGroup(m_levels.size() - 1, 0, p, reach, look);
  }

  class Neighbourhood;

  /// The same for the points of a list one after the other, each near the one before: looks at the
  /// boxes around a place where one of them was, and through the tree only for points that leave
  /// it. The boxes come in another order, and some twice.
  template <class Reach, class Look>
  void visitNear(const Point2D& p, const Reach& reach, const Look& look,
                 Neighbourhood& around) const;

  /// The same, faster where reach() is small from the start: boxes of a group come in any order
  /// when few of them are within reach. Every look should shrink the reach to what it finds.
  template <class Reach, class Look>
  void visitWithin(const Point2D& p, const Reach& reach, const Look& look) const {
    if (!m_levels.empty()) visitGroupWithin(m_levels.size() - 1, 0, p, reach, look);
  }

 private:
  static constexpr std::size_t kGroup = 8;
  /// Trees of so few levels are searched as fast without a neighbourhood.
  static constexpr std::size_t kFewLevels = 2;
  using Eight = std::array<double, kGroup>;

  /// Eight boxes, component by component, so that their distances are worked out side by side.
  struct Group {
    Eight centreX;
    Eight centreY;
    Eight halfWidth;
    Eight halfHeight;

    void set(std::size_t place, const CBox& box);
    /// A box of another group.
    void take(std::size_t place, const Group& other, std::size_t from);
    Eight quadrupledSquaresFrom(const Point2D& p) const;
  };

  /// What visitNear does with the places of one group.
  template <class Reach, class Visit>
  static void visitPlaces(const Group& group, const Point2D& p, const Reach& reach,
                          const Visit& visit) {
    Eight squares = group.quadrupledSquaresFrom(p);
    std::size_t nearest = placeOfSmallest(squares);
    if (!(squares[nearest] <= quadrupledSquare(reach()))) return;  // the others are farther still
    for (;;) {
      squares[nearest] = std::numeric_limits<double>::infinity();
      visit(nearest);
      if (placesWithin(squares, reach()) == 0) return;  // quicker told than the nearest
      nearest = placeOfSmallest(squares);
    }
  }

  static double quadrupledSquare(double distance) { return 4.0 * distance * distance; }
  static std::size_t placeOfSmallest(const Eight& values);

  /// A set of places: a bit for each, the lowest for the first.
  using Places = unsigned;
  static Places placesWithin(const Eight& quadrupledSquares, double reach);
  /// More than three: few enough not to need an order.
  static bool areMany(Places places);
  static std::size_t lowestPlace(Places places);

  template <class Reach, class Look>
  void visitGroup(std::size_t level, std::size_t index, const Point2D& p, const Reach& reach,
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
  void visitGroupWithin(std::size_t level, std::size_t index, const Point2D& p, const Reach& reach,
                        const Look& look) const {
    Eight squares = m_levels[level][index].quadrupledSquaresFrom(p);
    const auto visit = [&](std::size_t place) {
      const std::size_t child = index * kGroup + place;
      if (level == 0) {
        look(child);
      } else {
        visitGroupWithin(level - 1, child, p, reach, look);
      }
    };
    Places places = placesWithin(squares, reach());
    while (areMany(places)) {
      const std::size_t nearest = placeOfSmallest(squares);
      visit(nearest);
      squares[nearest] = std::numeric_limits<double>::infinity();
      places = placesWithin(squares, reach());
    }
    for (; places != 0; places &= places - 1) {
      const std::size_t place = lowestPlace(places);
      if (squares[place] <= quadrupledSquare(reach())) visit(place);
    }
  }

  double distanceFrom(const Point2D& p, std::size_t box) const;

  // m_levels[0] are the boxes themselves, in groups; a box of level k + 1 encloses a group of
  // level k. The top level is one group.
  std::vector<std::vector<Group>> m_levels;
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
  bool visit(const Point2D& p, const Reach& reach, const Look& look) {
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
    const Eight squares = m_group.quadrupledSquaresFrom(p);
    Places places = placesWithin(squares, reach()) & ~(1U << m_nearest);
    if (areMany(places)) {
      visitPlaces(m_group, p, reach, visitPlace);
      places = 0;
    }
    for (; places != 0; places &= places - 1) {
      const std::size_t place = lowestPlace(places);
      if (squares[place] <= quadrupledSquare(reach())) visitPlace(place);
    }
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
  if (around.visit(p, reach, look)) return;
  visitNear(p, reach, look);
  if (around.isDue(p, *this)) around.moveTo(p, *this);
}

/// Twice the distance of a coordinate outside an interval, squared and summed over both axes. The
/// doubling spares the choice of a maximum: e + |e| is 0 or 2 e.
inline CBoxTree::Eight CBoxTree::Group::quadrupledSquaresFrom(const Point2D& p) const {
  Eight squares;
  for (std::size_t i = 0; i < kGroup; ++i) {
    const double outsideX = std::abs(p.x - centreX[i]) - halfWidth[i];
    const double outsideY = std::abs(p.y - centreY[i]) - halfHeight[i];
    const double dx = outsideX + std::abs(outsideX);
    const double dy = outsideY + std::abs(outsideY);
    squares[i] = dx * dx + dy * dy;
  }
  return squares;
}

/// A tournament: a running minimum would mispredict.
inline std::size_t CBoxTree::placeOfSmallest(const Eight& values) {
  const auto smaller = [&](std::size_t a, std::size_t b) { return values[b] < values[a] ? b : a; };
  return smaller(smaller(smaller(0, 1), smaller(2, 3)), smaller(smaller(4, 5), smaller(6, 7)));
}

/// All comparisons at once: branches would mispredict.
inline CBoxTree::Places CBoxTree::placesWithin(const Eight& quadrupledSquares, double reach) {
  const double limit = quadrupledSquare(reach);
  Places places = 0;
  for (unsigned i = 0; i < kGroup; ++i) {
    places |= (quadrupledSquares[i] <= limit ? 1U : 0U) << i;
  }
  return places;
}

inline bool CBoxTree::areMany(Places places) {
  places &= places - 1;  // takes the lowest away
  places &= places - 1;
  return (places & (places - 1)) != 0;
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

}  // namespace Ruv

#endif
