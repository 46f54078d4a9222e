#include <Calculations/MeasuredProfile.h>

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

class MeasuredProfileImpl {
 public:
  std::vector<Point2D> points;
};

MeasuredProfile::MeasuredProfile() : m_impl(new MeasuredProfileImpl) {}

MeasuredProfile::~MeasuredProfile() = default;

void MeasuredProfile::addPoint(const Point2D& point) { m_impl->points.push_back(point); }

void MeasuredProfile::reset() { m_impl->points.clear(); }

unsigned int MeasuredProfile::getNumPoints() const {
  return static_cast<unsigned int>(m_impl->points.size());
}

Point2D MeasuredProfile::getPointAt(unsigned int index) const {
  return index < m_impl->points.size() ? m_impl->points[index] : Point2D();
}

unsigned int MeasuredProfile::getNumSegments() const { return getNumPoints(); }

Point2D MeasuredProfile::getSegmentStartAt(unsigned int index) const { return getPointAt(index); }

Point2D MeasuredProfile::getSegmentEndAt(unsigned int index) const {
  const unsigned int count = getNumPoints();
  const bool isLast = count <= 1 || index == count - 1;
  return getPointAt(isLast ? 0 : index < count ? index + 1 : count);
}

double MeasuredProfile::getSegmentRadiusAt(unsigned int /*index*/) const { return 0.0; }

double MeasuredProfile::getCircumference() const {
  const std::vector<Point2D>& points = m_impl->points;
  if (points.size() < 2) return 0.0;
  double length = 0.0;
  Point2D before = points.back();
  for (const Point2D& point : points) {
    length += (point - before).length();
    before = point;
  }
  return length;
}

}  // namespace Calculations
}  // namespace Ruv
