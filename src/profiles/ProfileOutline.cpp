#include "profiles/ProfileOutline.h"

#include "profiles/paths/GridUnits.h"
#include "profiles/paths/PathImpl.h"

#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

Path outlineThrough(const std::vector<ProfileCopy::Node>& nodes, bool clean) {
  ClipperLib::Path points;
  points.reserve(nodes.size() + 1);  // the first point comes again at the end
  Point2D before;
  for (const ProfileCopy::Node& node : nodes) {
    if (node.radius == 0.0) {
      appendOnGrid(points, node.point);
    } else {
      appendArcTo(points, before, node.point, node.radius);
    }
    before = node.point;
  }
  closeRing(points, clean);
  return PathImpl::pathOf(std::move(points));
}

}  // namespace

Path outlineOf(const IProfileSegmentProvider& profile, bool clean) {
  return outlineThrough(ProfileCopy(profile).soundNodes(), clean);
}

CleanOutline::CleanOutline(const ProfileCopy& profile)
    : m_path(outlineThrough(profile.soundNodes(), true)) {}

}  // namespace Calculations
}  // namespace Ruv
