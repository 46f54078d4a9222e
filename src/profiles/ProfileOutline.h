// SPDX-License-Identifier: BSL-1.0
/// @file
/// Profiles as closed outlines for the polygon clipper.

#ifndef CALCULATIONS_PROFILES_PROFILE_OUTLINE_H
#define CALCULATIONS_PROFILES_PROFILE_OUTLINE_H

#include "profiles/ProfileCopy.h"

#include <Calculations/Paths.h>
#include <Calculations/ThProfileDefinition.h>

namespace Ruv {
namespace Calculations {

/// The closed outline of a profile through its finite points; empty for a profile without
/// segments.
Path outlineOf(const IProfileSegmentProvider& profile, bool clean);

/// The cleaned outline of a profile. Worth keeping: cleaning a fine one takes longer than clipping
/// it.
class CleanOutline {
 public:
  explicit CleanOutline(const ProfileCopy& profile);

  const Path& path() const { return m_path; }

 private:
  Path m_path;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
