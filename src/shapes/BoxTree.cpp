// SPDX-License-Identifier: BSL-1.0
// A packed R-tree (Roussopoulos and Leifker 1985, Direct spatial search on pictorial databases
// using packed R-trees): full groups of boxes, groups of groups, and so on. Packing asks for an
// order in which near things follow each other, which a chain has by nature.

#include "shapes/BoxTree.h"

#include "shapes/ShapeTolerances.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {

namespace {

/// Widens boxes by more than the rounding of what they enclose: by 4500 units in the last place of
/// the coordinates, and by 1 nm at the origin.
constexpr double kRelativeMargin = 1e-12;
constexpr double kAbsoluteMargin = 1e-9;

/// Width and height together, of the boxes that have a size.
double meanSizeOf(const std::vector<CBox>& boxes) {
  double sum = 0.0;
  std::size_t count = 0;
  for (const CBox& box : boxes) {
    const Point2D size = box.high - box.low;
    if (box.isEmpty() || !isFinite(size)) continue;
    sum += size.x + size.y;
    ++count;
  }
  return count == 0 ? 0.0 : sum / static_cast<double>(count);
}

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

void CBoxTree::Group::take(std::size_t place, const Group& other, std::size_t from) {
  centreX[place] = other.centreX[from];
  centreY[place] = other.centreY[from];
  halfWidth[place] = other.halfWidth[from];
  halfHeight[place] = other.halfHeight[from];
}

CBoxTree::CBoxTree(std::vector<CBox> boxes) {
  m_meanSize = meanSizeOf(boxes);
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

double CBoxTree::distanceFrom(const Point2D& p, std::size_t box) const {
  const Group& group = m_levels.front()[box / kGroup];
  return std::sqrt(group.quadrupledSquaresFrom(p)[box % kGroup]) / 2.0;
}

void CBoxTree::Neighbourhood::moveTo(const Point2D& p, const CBoxTree& tree) {
  m_place = p;
  m_radius = kFarthestDistance;
  std::array<double, kGroup> distances{};
  std::size_t count = 0;
  tree.visitNear(
      p, [&] { return m_radius; },
      [&](std::size_t box) {
        std::size_t place = count;
        const double distance = tree.distanceFrom(p, box);
        if (count < kGroup) {
          ++count;
        } else {
          const auto farthest = std::max_element(distances.begin(), distances.end());
          place = static_cast<std::size_t>(farthest - distances.begin());
          m_radius = std::min(m_radius, std::max(distance, *farthest));
          if (distance >= *farthest) return;
        }
        distances[place] = distance;
        m_boxes[place] = box;
      });
  for (std::size_t place = 0; place < kGroup; ++place) {
    if (place < count) {
      m_group.take(place, tree.m_levels.front()[m_boxes[place] / kGroup], m_boxes[place] % kGroup);
    } else {
      m_group.set(place, CBox());
    }
  }
  const auto end = distances.begin() + static_cast<std::ptrdiff_t>(count);
  const auto nearest = std::min_element(distances.begin(), end);
  m_first = static_cast<std::size_t>(nearest - distances.begin());
  m_nearest = m_first;
  m_radius *= 1.0 - kRelativeMargin;
  m_radiusOfFirst = m_radius;
  if (nearest != end) {
    *nearest = m_radius;
    m_radiusOfFirst = std::min(m_radius, *std::min_element(distances.begin(), end));
    m_radiusOfFirst *= 1.0 - kRelativeMargin;
  }
  m_pause = std::min(2 * m_pause, kLongestPause);
  m_numServed = 0;
  m_numMissed = 0;
}

}  // namespace Ruv
