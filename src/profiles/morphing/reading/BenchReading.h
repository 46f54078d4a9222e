// SPDX-License-Identifier: BSL-1.0
/// @file
/// What lies between a floor and a wall.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_BENCH_READING_H
#define CALCULATIONS_PROFILES_MORPHING_READING_BENCH_READING_H

#include "profiles/morphing/reading/FloorReading.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// The bench or ditch between a floor and the left wall, when there is one.
/// @param upper from the end of the floor on; on return from the foot on
/// @param lastOfFloor the part of the floor that leads to the bench
std::optional<Detour> cutFootDetour(TurningChords& upper, const TurningChord& lastOfFloor);

}  // namespace Calculations
}  // namespace Ruv

#endif
