// SPDX-License-Identifier: BSL-1.0
/// @file
/// By how much one outline is rolled against the other.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_ROLL_SEARCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_ROLL_SEARCH_H

#include "profiles/morphing/reading/TurningChord.h"

namespace Ruv {
namespace Calculations {

/// Walls and crown of an outline. An open chain stands on its feet and counts as going on below
/// them: where a floor cuts the walls says nothing about a roll.
struct RolledChain {
  TurningChords pieces;
  bool isOpen = false;
};

/// The angle (rad, clockwise) by which the end is rolled against the start.
///
/// Both chains are laid on each other by shifting, scaling and turning so that the squares of their
/// distances are least, and once more without turning. As far as turning explains the difference it
/// is a roll: all of it where the distances shrink to kFollowedResidue or less, nothing from
/// kIgnoredResidue on, in proportion in between.
/// @param largest roll that is followed; from there on it fades out, to nothing at 4/3 of it
double rollBetween(const RolledChain& start, const RolledChain& end, double largest);

}  // namespace Calculations
}  // namespace Ruv

#endif
