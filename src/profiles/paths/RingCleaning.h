// SPDX-License-Identifier: BSL-1.0
/// @file
/// Rings without the points that say nothing.

#ifndef CALCULATIONS_PROFILES_PATHS_RING_CLEANING_H
#define CALCULATIONS_PROFILES_PATHS_RING_CLEANING_H

#include <Calculations/ClipperLib.h>

namespace Ruv {
namespace Calculations {

/// Points this close (clipping units of 0.1 mm) to their neighbours or to their neighbours' line
/// are removed: just above sqrt(2), hence the diagonal neighbour too.
constexpr double kCleaningDistanceUnits = 1.415;

/// Leaves out of a ring what ClipperLib::CleanPolygon leaves out at that distance, and begins it
/// where that does. That one takes nearly twice as long, for a fine section longer than clipping.
void cleanRing(ClipperLib::Path& ring);

}  // namespace Calculations
}  // namespace Ruv

#endif
