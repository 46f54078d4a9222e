// SPDX-License-Identifier: BSL-1.0
#include "profiles/ProfileOutline.h"

#include "profiles/paths/Ring.h"

namespace Ruv {
namespace Calculations {

Path outlineOf(const IProfileSegmentProvider& profile, bool clean) {
  return ringThrough(ProfileCopy(profile).soundNodes(), clean);
}

CleanOutline::CleanOutline(const ProfileCopy& profile)
    : m_path(ringThrough(profile.soundNodes(), true)) {}

}  // namespace Calculations
}  // namespace Ruv
