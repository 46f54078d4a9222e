#include "shapes/BoxTree.h"

#include <algorithm>
#include <cmath>

namespace Ruv {

namespace {

/// Widens boxes by more than the rounding of what they enclose.
constexpr double kRelativeMargin = 1e-12;
constexpr double kAbsoluteMargin = 1e-9;

}  // namespace

void CBox::include(const CBox& other) {
  low = {std::min(low.x, other.low.x), std::min(low.y, other.low.y)};
  high = {std::max(high.x, other.high.x), std::max(high.y, other.high.y)};
}

double CBox::squaredDistanceFrom(const Point2D& p) const {
  const double dx = std::max(std::max(low.x - p.x, p.x - high.x), 0.0);
  const double dy = std::max(std::max(low.y - p.y, p.y - high.y), 0.0);
  return dx * dx + dy * dy;
}

CBox boxAroundCurve(const Point2D& start, const Point2D& end, double length) {
  const double chord = (end - start).length();
  const double longer = std::max(length - chord, 0.0);
  // Half the short axis; it exceeds half of the surplus length, by which a curve may pass its ends.
  const double bulge = std::sqrt(longer * (length + chord)) / 2.0;
  const double largest = std::max(std::max(std::abs(start.x), std::abs(start.y)),
                                  std::max(std::abs(end.x), std::abs(end.y)));
  const double margin = bulge + kRelativeMargin * (largest + length) + kAbsoluteMargin;
  CBox box;
  box.low = {std::min(start.x, end.x) - margin, std::min(start.y, end.y) - margin};
  box.high = {std::max(start.x, end.x) + margin, std::max(start.y, end.y) + margin};
  return box;
}

CBoxTree::CBoxTree(std::vector<CBox> boxes) {
  if (boxes.empty()) return;
  m_levels.push_back(std::move(boxes));
  while (m_levels.back().size() > kGroup) {
    const std::vector<CBox>& lower = m_levels.back();
    std::vector<CBox> groups((lower.size() + kGroup - 1) / kGroup);
    for (std::size_t i = 0; i < lower.size(); ++i) {
      groups[i / kGroup].include(lower[i]);
    }
    m_levels.push_back(std::move(groups));
  }
}

}  // namespace Ruv
