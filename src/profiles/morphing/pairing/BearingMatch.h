// SPDX-License-Identifier: BSL-1.0
/// @file
/// Matches outlines by the directions in which they are seen from a point inside both.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_BEARING_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_BEARING_MATCH_H

#include "profiles/morphing/evaluation/OutlineMean.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// Two outlines matched ray by ray.
struct BearingMatch {
  MatchedOutlines outlines;  ///< begun at the first node of the start
  double visibility = 0.0;   ///< from 0 to 1: how well both are seen
};

/// Pairs what lies on the same ray from a point that sees all of both outlines. Nodes then move
/// along their rays, so their order never changes and straights cannot cross on the way; headings
/// and tangents are not kept, which is why this is the way for caves only. The match changes evenly
/// with the outlines.
///
/// The point is the centroid of all that see both outlines: the common kernel. Nothing when there
/// is none. O(n k) for n pieces and a kernel of k corners.
/// @param start,end clockwise
/// @param roll of the end against the start (rad, clockwise), taken out before
std::optional<BearingMatch> matchByBearings(const TurningChords& start, const TurningChords& end,
                                            double roll);

}  // namespace Calculations
}  // namespace Ruv

#endif
