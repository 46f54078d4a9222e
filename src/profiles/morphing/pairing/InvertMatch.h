// SPDX-License-Identifier: BSL-1.0
/// @file
/// Matches inverts that are single elements.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_INVERT_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_INVERT_MATCH_H

#include "profiles/morphing/pairing/PiecePairing.h"
#include "profiles/morphing/pairing/SideMatch.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// Takes the invert off both sides when in both outlines it is one straight or arc between two
/// corners, and in one of them an arc. A flat invert then bends to a curved one, which matching by
/// headings would let grow from its ends. Without tangents at its ends nothing is lost by that.
///
/// @return the matched invert, from right to left; nothing when the sides stay as they are
std::optional<MatchedPiece> takeInvert(MatchedLines& left, MatchedLines& right);

}  // namespace Calculations
}  // namespace Ruv

#endif
