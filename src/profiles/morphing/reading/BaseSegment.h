// SPDX-License-Identifier: BSL-1.0
/// @file
/// The element on which an outline stands, and the two sides that rise from it.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_BASE_SEGMENT_H
#define CALCULATIONS_PROFILES_MORPHING_READING_BASE_SEGMENT_H

#include "profiles/morphing/reading/BaseAnalysis.h"
#include "profiles/morphing/reading/ChainPlaces.h"

#include "profiles/morphing/reading/TurningChord.h"

#include <cstdint>
#include <optional>

namespace Ruv {
namespace Calculations {

/// The lowest or highest place of a chain on a plumb line; nothing when the line misses it.
/// @param height +1 to find the highest place, -1 to find the lowest
std::optional<ChainPlace> outermostPlace(const TurningChords& chain, double x, double height);

/// The same ring begun at a place.
TurningChords begunAt(const TurningChords& ring, const ChainPlace& place);

/// The elements from the left foot to the crown, and those to the right foot mirrored and
/// reversed so that they too lead clockwise from the foot to the crown.
struct OutlineSides {
  TurningChords left;
  TurningChords right;
};

OutlineSides sidesOf(const TurningChords& upper, const ChainPlace& crown);

}  // namespace Calculations
}  // namespace Ruv

#endif
