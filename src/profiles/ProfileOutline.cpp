// SPDX-License-Identifier: BSL-1.0
#include "profiles/ProfileOutline.h"

#include "profiles/paths/Ring.h"

namespace Ruv {
namespace Calculations {

/// Points that are not finite are left out before, as the grid has no place for them.
Path outlineOf(const IProfileSegmentProvider& profile, bool clean) {
  return ringThrough(ProfileCopy(profile).soundNodes(), clean);
}

CleanOutline::CleanOutline(const ProfileCopy& profile)
    : m_path(ringThrough(profile.soundNodes(), true)) {}

}  // namespace Calculations
}  // namespace Ruv
