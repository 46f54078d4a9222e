// SPDX-License-Identifier: BSL-1.0
/// @file
/// Neighbours that are one straight or one arc.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_SEGMENT_MERGING_H
#define CALCULATIONS_PROFILES_MORPHING_READING_SEGMENT_MERGING_H

#include "profiles/morphing/reading/TurningChord.h"

namespace Ruv {
namespace Calculations {

/// True when two turnings make one that is no half circle or nearly one: its chord would hardly
/// tell how much it turns.
bool areJoinable(const TurningChord& a, const TurningChord& b);

/// True when the second of two neighbours is collinear or cocircular with the first, and both are
/// joinable.
bool isContinued(const TurningChord& a, const TurningChord& b);

TurningChord joined(const TurningChord& a, const TurningChord& b);

/// Joins all neighbours of an open chain that continue each other.
TurningChords merged(const TurningChords& chain);

}  // namespace Calculations
}  // namespace Ruv

#endif
