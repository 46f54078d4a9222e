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

void CBoxTree::Group::set(std::size_t place, const CBox& box, const Point2D& middle) {
  // Halved before they are added, as the sum of two bounds may be beyond the range of a double.
  const double x = (box.low.x / 2.0 + box.high.x / 2.0) - middle.x;
  const double y = (box.low.y / 2.0 + box.high.y / 2.0) - middle.y;
  const double width = box.high.x / 2.0 - box.low.x / 2.0;
  const double height = box.high.y / 2.0 - box.low.y / 2.0;
  const bool isNear = std::abs(x) + width <= kFar && std::abs(y) + height <= kFar;
  const bool isBox = !box.isEmpty() && isNear;
  const double other = box.isEmpty() ? -kNowhere : kBoundless;
  centreX[place] = static_cast<float>(isBox ? x : 0.0);
  centreY[place] = static_cast<float>(isBox ? y : 0.0);
  halfWidth[place] = static_cast<float>(isBox ? width : other);
  halfHeight[place] = static_cast<float>(isBox ? height : other);
}

void CBoxTree::Group::take(std::size_t place, const Group& other, std::size_t from) {
  centreX[place] = other.centreX[from];
  centreY[place] = other.centreY[from];
  halfWidth[place] = other.halfWidth[from];
  halfHeight[place] = other.halfHeight[from];
}

CBoxTree::CBoxTree(std::vector<CBox> boxes) {
  m_meanSize = meanSizeOf(boxes);
  CBox all;
  for (const CBox& box : boxes) {
    all.include(box);
  }
  const Point2D middle(all.low.x / 2.0 + all.high.x / 2.0, all.low.y / 2.0 + all.high.y / 2.0);
  m_extent = kFar;
  if (isFinite(middle)) {
    m_middle = middle;
    m_extent = std::min(std::max(all.high.x - middle.x, all.high.y - middle.y), kFar);
  }
  // Built from the leaves up: each level groups the boxes of the one below, until one group is
  // left.
  while (!boxes.empty()) {
    std::vector<Group> groups((boxes.size() + kGroup - 1) / kGroup);
    std::vector<CBox> around(groups.size());
    boxes.resize(groups.size() * kGroup);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      groups[i / kGroup].set(i % kGroup, boxes[i], m_middle);
      around[i / kGroup].include(boxes[i]);
    }
    m_levels.push_back(std::move(groups));
    if (around.size() == 1) return;
    boxes = std::move(around);
  }
}

double CBoxTree::distanceFrom(const BlurredPoint& p, std::size_t box) const {
  const Group& group = m_levels.front()[box / kGroup];
  const double square = group.quadrupledSquaresFrom(p)[box % kGroup];
  constexpr double kSquaring = 1.0 - 0x1p-20;
  return std::max(kSquaring * std::sqrt(square) / 2.0 - p.blur, 0.0);
}

double CBoxTree::clearanceAround(const Point2D& p, std::size_t first, std::size_t last,
                                 double enough) const {
  const BlurredPoint from = blurred(p);
  double clearance = enough;
  visitNear(
      p, [&] { return clearance; },
      [&](std::size_t box) {
        const bool isExcepted = box >= first && box <= last;
        if (!isExcepted) clearance = std::min(clearance, distanceFrom(from, box));
      });
  return clearance;
}

void CBoxTree::Neighbourhood::moveTo(const Point2D& p, const CBoxTree& tree) {
  const BlurredPoint blurred = tree.blurred(p);
  m_place = p;
  m_radius = kFarthestDistance;
  std::array<double, kGroup> distances{};
  std::size_t count = 0;
  tree.visitNear(
      p, [&] { return m_radius; },
      [&](std::size_t box) {
        std::size_t place = count;
        const double distance = tree.distanceFrom(blurred, box);
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
      m_group.set(place, CBox(), tree.m_middle);
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
