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

namespace Ruv {

/// An axis-parallel box; empty as constructed.
struct CBox {
  Point2D low{1e308, 1e308};
  Point2D high{-1e308, -1e308};

  /// False also when a bound is not a number.
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
  template <class Reach, class Look>
  void visitNear(const Point2D& p, const Reach& reach, const Look& look) const {
    if (!m_levels.empty()) visitGroup(m_levels.size() - 1, 0, p, reach, look);
  }

 private:
  static constexpr std::size_t kGroup = 8;
  using Eight = std::array<double, kGroup>;

  /// Eight boxes, component by component, so that their distances are worked out side by side.
  struct Group {
    Eight centreX;
    Eight centreY;
    Eight halfWidth;
    Eight halfHeight;

    void set(std::size_t place, const CBox& box);
    Eight quadrupledSquaresFrom(const Point2D& p) const;
  };

  static std::size_t placeOfSmallest(const Eight& values);

  template <class Reach, class Look>
  void visitGroup(std::size_t level, std::size_t index, const Point2D& p, const Reach& reach,
                  const Look& look) const {
    Eight squares = m_levels[level][index].quadrupledSquaresFrom(p);
    for (;;) {
      const std::size_t nearest = placeOfSmallest(squares);
      const double limit = 2.0 * reach();
      if (!(squares[nearest] <= limit * limit)) return;  // the others are farther still
      squares[nearest] = std::numeric_limits<double>::infinity();
      const std::size_t child = index * kGroup + nearest;
      if (level == 0) {
        look(child);
      } else {
        visitGroup(level - 1, child, p, reach, look);
      }
    }
  }

  // m_levels[0] are the boxes themselves, in groups; a box of level k + 1 encloses a group of
  // level k. The top level is one group.
  std::vector<std::vector<Group>> m_levels;
};

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

}  // namespace Ruv

#endif
