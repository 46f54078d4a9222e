// SPDX-License-Identifier: BSL-1.0
/// @file
/// Matches outlines by the directions in which they are seen from a point inside both.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_BEARING_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_BEARING_MATCH_H

#include "profiles/morphing/pairing/PiecePairing.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// Two outlines matched ray by ray.
struct BearingMatch {
  Point2D centre;      ///< from which every ray meets either outline once
  MatchedPieces ring;  ///< clockwise, coordinates relative to the centre
};

/// Pairs what lies on the same ray from a point that sees all of both outlines. Nodes then move
/// along their rays, so their order never changes and straights cannot cross on the way; headings
/// and tangents are not kept, which is why this is the way for caves only.
///
/// The point is the centroid of all that see both outlines: the common kernel. Nothing when there
/// is none. O(n k) for n pieces and a kernel of k corners.
/// @param start,end clockwise
std::optional<BearingMatch> matchByBearings(const TurningChords& start, const TurningChords& end);

}  // namespace Calculations
}  // namespace Ruv

#endif
