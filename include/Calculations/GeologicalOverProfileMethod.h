// SPDX-License-Identifier: BSL-1.0
/// @file
/// The ways to separate geological over-break from the rest of the over profile.

#ifndef CALCULATIONS_GEOLOGICAL_OVER_PROFILE_METHOD_H
#define CALCULATIONS_GEOLOGICAL_OVER_PROFILE_METHOD_H

#include <cstdint>

namespace Ruv {
namespace Calculations {

/// Says which band around the reference profile counts with the geological over profile where
/// the excavation reaches beyond the outer limit a. The inner limit is b.
///
/// Conventions: limits are distances (m) outside the reference profile.
/// Failure: another value counts as GeologicalBeyondLimitOnly.
/// Cost: see MeasuredProfileCalculator.
/// @snippet snippets/Profiles.cpp GeologicalOverProfileMethod
struct GeologicalOverProfileMethod {
  /// Tells which band it is.
  enum Method : std::int32_t {
    GeologicalBandFromReference = 0,  ///< the band from the reference out to a
    GeologicalBandBetweenLimits = 1,  ///< the band from b to a
    GeologicalBeyondLimitOnly = 2     ///< no band: only what lies beyond a
  };
};

}  // namespace Calculations
}  // namespace Ruv

#endif
