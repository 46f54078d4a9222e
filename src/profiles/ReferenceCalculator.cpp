#include "profiles/ReferenceCalculator.h"

#include <boost/shared_ptr.hpp>

namespace Ruv {
namespace Calculations {

namespace {

boost::shared_ptr<const ThProfileDefinition> profileThrough(
    const std::vector<ProfileSegment>& segments) {
  const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
  for (const ProfileSegment& s : segments) {
    if (s.radius == 0.0) {
      profile->addSegmentStraight(s.start.x, s.start.y, s.end.x, s.end.y);
    } else {
      profile->addSegmentArc(s.start.x, s.start.y, s.end.x, s.end.y, s.radius);
    }
  }
  return profile;
}

}  // namespace

bool ReferenceCalculator::isCopyOf(const IProfileSegmentProvider& reference) const {
  const unsigned int count = reference.getNumSegments();
  if (!m_calculator || m_segments.size() != count) return false;
  for (unsigned int i = 0; i < count; ++i) {
    const ProfileSegment now{reference.getSegmentStartAt(i), reference.getSegmentEndAt(i),
                             reference.getSegmentRadiusAt(i)};
    if (!now.isSameAs(m_segments[i])) return false;
  }
  return true;
}

const ThProfileCalculator& ReferenceCalculator::calculatorOn(
    const IProfileSegmentProvider& reference) {
  if (!isCopyOf(reference)) {
    m_segments = segmentsOf(reference);
    m_calculator = std::make_unique<ThProfileCalculator>(profileThrough(m_segments));
  }
  return *m_calculator;
}

}  // namespace Calculations
}  // namespace Ruv
