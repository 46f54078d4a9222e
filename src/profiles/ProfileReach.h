// SPDX-License-Identifier: BSL-1.0
/// @file
/// How far a profile is looked for.

#ifndef CALCULATIONS_PROFILES_PROFILE_REACH_H
#define CALCULATIONS_PROFILES_PROFILE_REACH_H

namespace Ruv {
namespace Calculations {

/// Half length (m) of the lines that are cut with a profile, and of an allowed area where no limit
/// is set. No cross-section is nearly so large.
constexpr double kReach = 1000.0;

}  // namespace Calculations
}  // namespace Ruv

#endif
