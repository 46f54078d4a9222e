// SPDX-License-Identifier: BSL-1.0
/// @file
/// One side of an outline as a sequence of headings.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_SIDE_WALK_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_SIDE_WALK_H

#include "foundation/MathConstants.h"
#include "profiles/morphing/reading/TurningChord.h"

#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Headings of a side, base to crown: along the invert to the left, up the wall (two full turns
/// would be 4 pi, so up is 2 pi), along the crown to the right.
constexpr double kBaseHeading = 1.5 * kPi;
constexpr double kCrownHeading = 2.5 * kPi;

enum class WalkStepKind { Corner, Straight, Arc };

/// A step along a side: an element, or a corner, which has a turning but no length.
struct WalkStep {
  WalkStepKind kind = WalkStepKind::Corner;
  TurningChord chord;
  double fromHeading = 0.0;
  double toHeading = 0.0;
};

using SideWalk = std::vector<WalkStep>;

/// The steps from the base heading to the crown heading, both headings counted on through all
/// turnings. Nothing when the side arrives with full turns too many or too few: then the outline
/// crosses itself.
std::optional<SideWalk> walkAlong(const TurningChords& side);

}  // namespace Calculations
}  // namespace Ruv

#endif
