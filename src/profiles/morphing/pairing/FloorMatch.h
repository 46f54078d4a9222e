// SPDX-License-Identifier: BSL-1.0
/// @file
/// Matches floors.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_FLOOR_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_FLOOR_MATCH_H

#include "profiles/morphing/pairing/PiecePairing.h"

namespace Ruv {
namespace Calculations {

/// Pairs two floors, corner with corner.
/// @param start,end from the right foot to the left one
/// @param shift from the origin of the start's coordinates to that of the end's
MatchedPieces matchFloors(const TurningChords& start, const TurningChords& end,
                          const Point2D& shift);

}  // namespace Calculations
}  // namespace Ruv

#endif
