// SPDX-License-Identifier: BSL-1.0
/// @file
/// The test for outlines that cross themselves.

#ifndef CALCULATIONS_PROFILES_MORPHING_EVALUATION_SELF_CROSSING_H
#define CALCULATIONS_PROFILES_MORPHING_EVALUATION_SELF_CROSSING_H

#include "profiles/morphing/reading/TurningChord.h"

namespace Ruv {
namespace Calculations {

/// True when no two parts of a closed chain cross. Arcs are looked at as chords of a few degrees.
/// False also when coordinates are not finite, and when there are too many pieces to tell.
bool isSimple(const TurningChords& ring);

}  // namespace Calculations
}  // namespace Ruv

#endif
