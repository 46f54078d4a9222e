// SPDX-License-Identifier: BSL-1.0
/// @file
/// Ditches, benches and niches.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_DETOUR_H
#define CALCULATIONS_PROFILES_MORPHING_READING_DETOUR_H

#include "profiles/morphing/reading/TurningChord.h"

namespace Ruv {
namespace Calculations {

/// Where a detour leaves the base.
enum class DetourSite {
  Floor,     ///< a ditch, a sump, a plinth
  LeftFoot,  ///< a bench: from the floor to the left wall
  RightFoot,
  LeftWall,  ///< a niche
  RightWall
};

/// A part of an outline that leaves its base and comes back to it, clockwise.
struct Detour {
  DetourSite site = DetourSite::Floor;
  TurningChords pieces;
  double turningBack = 0.0;  ///< of a bench with what it is between (rad, anticlockwise)
};

}  // namespace Calculations
}  // namespace Ruv

#endif
