// SPDX-License-Identifier: BSL-1.0
#include "profiles/ProfileSegments.h"

namespace Ruv {
namespace Calculations {

/// Reads a profile once through its virtual functions, for those who look at every segment often.
std::vector<ProfileSegment> segmentsOf(const IProfileSegmentProvider& profile) {
  const unsigned int count = profile.getNumSegments();
  std::vector<ProfileSegment> segments;
  segments.reserve(count);
  for (unsigned int i = 0; i < count; ++i) {
    segments.push_back(
        {profile.getSegmentStartAt(i), profile.getSegmentEndAt(i), profile.getSegmentRadiusAt(i)});
  }
  return segments;
}

}  // namespace Calculations
}  // namespace Ruv
