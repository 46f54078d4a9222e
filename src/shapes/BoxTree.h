/// @file
/// Bounding boxes over a chain of curves, for searches that need not look at every curve.

#ifndef CALCULATIONS_SHAPES_BOX_TREE_H
#define CALCULATIONS_SHAPES_BOX_TREE_H

#include "shapes/PlaneGeometry.h"

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace Ruv {

/// An axis-parallel box; empty as constructed.
struct CBox {
  Point2D low{1e308, 1e308};
  Point2D high{-1e308, -1e308};

  void include(const CBox& other);
  /// Square of the distance from p, 0 inside. Not-a-number never occurs for finite p.
  double squaredDistanceFrom(const Point2D& p) const;
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
  /// groups first. reach() is asked again after each look, so it may shrink on the way: it is the
  /// distance beyond which nothing matters, with the margin for rounding that the caller needs.
  /// Time is O(log n) when the first looks shrink the reach well, O(n) when they do not.
  template <class Reach, class Look>
  void visitNear(const Point2D& p, const Reach& reach, const Look& look) const {
    if (!m_levels.empty()) visitGroup(m_levels.size() - 1, 0, p, reach, look);
  }

 private:
  static constexpr std::size_t kGroup = 8;

  template <class Reach, class Look>
  void visitGroup(std::size_t level, std::size_t first, const Point2D& p, const Reach& reach,
                  const Look& look) const {
    const std::vector<CBox>& boxes = m_levels[level];
    std::array<std::pair<double, std::size_t>, kGroup> near;
    std::size_t count = 0;
    for (std::size_t i = first; i < first + kGroup && i < boxes.size(); ++i) {
      std::pair<double, std::size_t> entry(boxes[i].squaredDistanceFrom(p), i);
      std::size_t place = count++;
      for (; place > 0 && entry.first < near[place - 1].first; --place) {
        near[place] = near[place - 1];
      }
      near[place] = entry;
    }
    for (std::size_t k = 0; k < count; ++k) {
      const double limit = reach();
      if (near[k].first > limit * limit) return;  // the others are farther still
      if (level == 0) {
        look(near[k].second);
      } else {
        visitGroup(level - 1, near[k].second * kGroup, p, reach, look);
      }
    }
  }

  // m_levels[0] are the boxes themselves; a box of level k + 1 encloses kGroup boxes of level k.
  // The top level has at most kGroup boxes.
  std::vector<std::vector<CBox>> m_levels;
};

}  // namespace Ruv

#endif
