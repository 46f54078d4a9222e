// SPDX-License-Identifier: BSL-1.0
/// @file
/// Where an outline stands and where it is highest.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_BASE_ANALYSIS_H
#define CALCULATIONS_PROFILES_MORPHING_READING_BASE_ANALYSIS_H

#include "profiles/morphing/reading/TurningChord.h"

namespace Ruv {
namespace Calculations {

/// The plumb lines on which the base and the crown of an outline lie.
struct PlumbLines {
  double baseX = 0.0;
  double crownX = 0.0;
};

/// Through the first of the lowest points and the first of the highest; the lowest point of an arc
/// counts as one.
PlumbLines plumbLinesThroughFirst(const TurningChords& elements);

/// Midway between the outermost of the lowest points, and likewise of the highest. An invert then
/// has its base in the middle, and mirroring an outline mirrors its base.
PlumbLines plumbLinesThroughMiddle(const TurningChords& elements);

}  // namespace Calculations
}  // namespace Ruv

#endif
