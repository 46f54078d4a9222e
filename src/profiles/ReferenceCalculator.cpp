// SPDX-License-Identifier: BSL-1.0
// The theoretical calculator asks for a theoretical profile. A reference may be a measured one, or
// have points that are not finite, so it is built anew from the sound nodes: segment by segment, a
// radius of 0 being a straight.

#include "profiles/ReferenceCalculator.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

boost::shared_ptr<const ThProfileDefinition> profileThrough(
    const std::vector<ProfileCopy::Node>& nodes) {
  const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    const Point2D& start = nodes[i - 1].point;
    const Point2D& end = nodes[i].point;
    profile->addSegmentArc(start.x, start.y, end.x, end.y, nodes[i].radius);
  }
  return profile;
}

}  // namespace

ReferenceCalculator::ReferenceCalculator(const ProfileCopy& reference)
    : m_calculator(profileThrough(reference.soundNodes())) {}

}  // namespace Calculations
}  // namespace Ruv
