// SPDX-License-Identifier: BSL-1.0
/// @file
/// Cuts outlines with holes into pieces without.

#ifndef CALCULATIONS_PROFILES_PATHS_RING_CUTTING_H
#define CALCULATIONS_PROFILES_PATHS_RING_CUTTING_H

#include <Calculations/ClipperLib.h>

namespace Ruv {
namespace Calculations {

/// Replaces every outline that holds holes by pieces without, whose areas add up to the area of
/// the outline less its holes. Holes are the paths of negative orientation. The cuts are vertical,
/// through the middle of a hole, so a symmetric ring gives symmetric pieces and no piece has a
/// bridge of width zero. A hole narrower than two clipping units is filled, one in no outline
/// stays. Failure is that of FailsafeClipper.
ClipperLib::Paths cutAtHoles(const ClipperLib::Paths& paths);

}  // namespace Calculations
}  // namespace Ruv

#endif
