// SPDX-License-Identifier: BSL-1.0
// A packed R-tree (Roussopoulos and Leifker 1985, Direct spatial search on pictorial databases
// using packed R-trees): full groups of boxes, groups of groups, and so on. Packing asks for an
// order in which near things follow each other, which a chain has by nature.

#include "shapes/BoxTree.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {

namespace {

/// Widens boxes by more than the rounding of what they enclose: by 4500 units in the last place of
/// the coordinates, and by 1 nm at the origin.
constexpr double kRelativeMargin = 1e-12;
constexpr double kAbsoluteMargin = 1e-9;

}  // namespace

void CBox::include(const CBox& other) {
  low = {std::min(low.x, other.low.x), std::min(low.y, other.low.y)};
  high = {std::max(high.x, other.high.x), std::max(high.y, other.high.y)};
}

CBox boxAroundCurve(const Point2D& start, const Point2D& end, double length) {
  const double chord = (end - start).length();
  const double longer = std::max(length - chord, 0.0);
  // Half the short axis of the ellipse, b = sqrt(length^2 - chord^2) / 2. It exceeds half of the
  // surplus length, by which a curve may pass its ends.
  const double bulge = std::sqrt(longer * (length + chord)) / 2.0;
  const double largest = std::max(std::max(std::abs(start.x), std::abs(start.y)),
                                  std::max(std::abs(end.x), std::abs(end.y)));
  const double margin = bulge + kRelativeMargin * (largest + length) + kAbsoluteMargin;
  CBox box;
  box.low = {std::min(start.x, end.x) - margin, std::min(start.y, end.y) - margin};
  box.high = {std::max(start.x, end.x) + margin, std::max(start.y, end.y) + margin};
  return box;
}

/// Half the size of a box that holds every point within 1e153 m, or minus that of one that holds
/// none: twice its square is still finite.
constexpr double kBoundless = 1e153;

void CBoxTree::Group::set(std::size_t place, const CBox& box) {
  centreX[place] = centreY[place] = 0.0;
  halfWidth[place] = halfHeight[place] = box.isEmpty() ? -kBoundless : kBoundless;
  // Halved before they are added, as the sum of two bounds may be beyond the range of a double.
  const Point2D centre(box.low.x / 2.0 + box.high.x / 2.0, box.low.y / 2.0 + box.high.y / 2.0);
  const Point2D half(box.high.x / 2.0 - box.low.x / 2.0, box.high.y / 2.0 - box.low.y / 2.0);
  if (box.isEmpty() || !isFinite(centre) || !isFinite(half)) return;
  centreX[place] = centre.x;
  centreY[place] = centre.y;
  halfWidth[place] = half.x;
  halfHeight[place] = half.y;
}

CBoxTree::CBoxTree(std::vector<CBox> boxes) {
  // Built from the leaves up: each level groups the boxes of the one below, until one group is
  // left.
  while (!boxes.empty()) {
    std::vector<Group> groups((boxes.size() + kGroup - 1) / kGroup);
    std::vector<CBox> around(groups.size());
    boxes.resize(groups.size() * kGroup);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      groups[i / kGroup].set(i % kGroup, boxes[i]);
      around[i / kGroup].include(boxes[i]);
    }
    m_levels.push_back(std::move(groups));
    if (around.size() == 1) return;
    boxes = std::move(around);
  }
}

}  // namespace Ruv
