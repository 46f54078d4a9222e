// SPDX-License-Identifier: BSL-1.0
/// @file
/// Niches in walls.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_NICHE_READING_H
#define CALCULATIONS_PROFILES_MORPHING_READING_NICHE_READING_H

#include "profiles/morphing/reading/Detour.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// Bridges the niches of both walls, and appends them. False when they are not apart.
/// @param upper walls and crown, from the left foot to the right one
bool cutNiches(TurningChords& upper, std::vector<Detour>& detours);

}  // namespace Calculations
}  // namespace Ruv

#endif
