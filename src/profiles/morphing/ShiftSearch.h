/// @file
/// By how much one outline is rolled against the other.

#ifndef CALCULATIONS_PROFILES_MORPHING_SHIFT_SEARCH_H
#define CALCULATIONS_PROFILES_MORPHING_SHIFT_SEARCH_H

#include "profiles/morphing/OutlineStore.h"

namespace Ruv {
namespace Calculations {

struct ShiftLimits {
  int divisions = 0;            ///< of the full turn
  double angularStep = 0.0;     ///< of one division (rad)
  int mostDivisionsTurned = 0;  ///< largest shift that is looked for
};

/// Turns one of two outlines upright, so that both stand alike: the one that is less symmetric
/// about the plumb line through its centroid. Choosing by shape, not by order, makes the way back
/// from end to start the same.
///
/// The outlines are compared by their distances from the centroids, division by division. A shift
/// is found when it leaves at most a quarter of the squared differences that no shift and the
/// opposite shift leave; so two symmetric outlines have none.
/// @return false when no shift is found and nothing was turned
bool turnUpright(OutlineStore& start, OutlineStore& end, const ShiftLimits& limits);

}  // namespace Calculations
}  // namespace Ruv

#endif
