// SPDX-License-Identifier: BSL-1.0
// A measured profile is a closed polygon: as many segments as points, each from a point to the next
// and the last one back to the first. Points are kept as they come, those that are not finite too,
// so that indices stay those of adding; what is calculated leaves them out.

#include <Calculations/MeasuredProfile.h>

#include "profiles/MeasuredProfileImpl.h"
#include "shapes/PlaneGeometry.h"

#include <algorithm>
#include <vector>

namespace Ruv {
namespace Calculations {

MeasuredProfile::MeasuredProfile() : m_impl(new MeasuredProfileImpl) {}

MeasuredProfile::~MeasuredProfile() = default;

void MeasuredProfile::addPoint(const Point2D& point) { m_impl->points.push_back(point); }

void MeasuredProfile::reset() { m_impl->points.clear(); }

unsigned int MeasuredProfile::getNumPoints() const { return m_impl->count(); }

Point2D MeasuredProfile::getPointAt(unsigned int index) const { return m_impl->at(index); }

unsigned int MeasuredProfile::getNumSegments() const { return m_impl->count(); }

Point2D MeasuredProfile::getSegmentStartAt(unsigned int index) const { return m_impl->at(index); }

Point2D MeasuredProfile::getSegmentEndAt(unsigned int index) const {
  const unsigned int count = m_impl->count();
  // The last segment leads back to the first point. Out of range at() gives (0, 0).
  const bool isLast = count <= 1 || index == count - 1;
  return m_impl->at(isLast ? 0 : index < count ? index + 1 : count);
}

double MeasuredProfile::getSegmentRadiusAt(unsigned int /*index*/) const { return 0.0; }

double MeasuredProfile::getCircumference() const {
  const auto isSound = [](const Point2D& p) { return isFinite(p); };
  const std::vector<Point2D>& points = m_impl->points;
  // The walk starts at the last finite point, so that the closing segment is counted first.
  const auto last = std::find_if(points.rbegin(), points.rend(), isSound);
  if (last == points.rend()) return 0.0;
  double length = 0.0;
  Point2D before = *last;
  for (const Point2D& point : points) {
    if (!isSound(point)) continue;
    length += (point - before).length();
    before = point;
  }
  return length;
}

}  // namespace Calculations
}  // namespace Ruv
