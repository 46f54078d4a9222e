#include "profiles/ProfileOutline.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

}  // namespace

Path outlineOf(const IProfileSegmentProvider& profile, bool clean) {
  Path path;
  for (const ProfileSegment& segment : segmentsOf(profile)) {
    if (path.numDiscretePathPoints() == 0) {
      path.addSegment(PathSegment(segment.start.x, segment.start.y));
    }
    path.addSegment(PathSegment(segment.end.x, segment.end.y, segment.radius));
  }
  path.close(clean);
  return path;
}

bool ProfileSegment::isSameAs(const ProfileSegment& other) const {
  return isSame(start.x, other.start.x) && isSame(start.y, other.start.y) &&
         isSame(end.x, other.end.x) && isSame(end.y, other.end.y) && isSame(radius, other.radius);
}

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
