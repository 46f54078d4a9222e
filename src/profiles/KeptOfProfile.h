// SPDX-License-Identifier: BSL-1.0
/// @file
/// What is worked out from a profile, kept as long as the profile stays as it is.

#ifndef CALCULATIONS_PROFILES_KEPT_OF_PROFILE_H
#define CALCULATIONS_PROFILES_KEPT_OF_PROFILE_H

#include "profiles/ProfileCopy.h"

#include <memory>

namespace Ruv {
namespace Calculations {

/// What is worked out from a profile, kept until the profile's segments change. It takes the place
/// of what was before when it is complete, so that nothing older answers after an exception.
/// @tparam T constructed from a ProfileCopy
template <class T>
class KeptOfProfile {
 public:
  const T& of(const IProfileSegmentProvider& profile) {
    if (!m_kept || !m_kept->copy.isCopyOf(profile)) {
      m_kept = std::make_unique<const Kept>(profile);
    }
    return m_kept->value;
  }

 private:
  struct Kept {
    explicit Kept(const IProfileSegmentProvider& profile) : copy(profile), value(copy) {}

    ProfileCopy copy;
    T value;
  };

  std::unique_ptr<const Kept> m_kept;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
