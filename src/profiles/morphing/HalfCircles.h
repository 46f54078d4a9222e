/// @file
/// The test for half circles.

#ifndef CALCULATIONS_PROFILES_MORPHING_HALF_CIRCLES_H
#define CALCULATIONS_PROFILES_MORPHING_HALF_CIRCLES_H

#include "profiles/morphing/TurningChord.h"

namespace Ruv {
namespace Calculations {

/// True when an arc turns by half a turn, the most that an arc can.
bool hasHalfCircle(const TurningChords& elements);

}  // namespace Calculations
}  // namespace Ruv

#endif
