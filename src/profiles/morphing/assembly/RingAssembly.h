// SPDX-License-Identifier: BSL-1.0
/// @file
/// Joins the matched sides to a ring.

#ifndef CALCULATIONS_PROFILES_MORPHING_ASSEMBLY_RING_ASSEMBLY_H
#define CALCULATIONS_PROFILES_MORPHING_ASSEMBLY_RING_ASSEMBLY_H

#include "profiles/morphing/pairing/PiecePairing.h"

namespace Ruv {
namespace Calculations {

/// Clockwise from the base: the left side, then the right one mirrored and reversed. An invert of
/// its own closes the ring.
MatchedPieces ringOf(const MatchedSides& sides);

/// Without the pieces that have no length in either outline.
MatchedPieces withoutVanished(const MatchedPieces& ring);

/// Joins neighbours that are one straight or one arc in both outlines, and therefore on the whole
/// way between them. When the first piece is joined, the ring begins where the joined one does.
MatchedPieces withJointsRemoved(const MatchedPieces& ring);

}  // namespace Calculations
}  // namespace Ruv

#endif
