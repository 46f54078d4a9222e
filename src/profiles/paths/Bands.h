// SPDX-License-Identifier: BSL-1.0
/// @file
/// Bands around lines while a calculation goes on: with their holes.

#ifndef CALCULATIONS_PROFILES_PATHS_BANDS_H
#define CALCULATIONS_PROFILES_PATHS_BANDS_H

#include <Calculations/Paths.h>

namespace Ruv {
namespace Calculations {

/// Grows bands as Pathes::expandLines does, but holes stay paths of their own, of negative area.
/// Areas and further operations are the same, as both fill by the even-odd rule.
Pathes bandsWithHoles(const Pathes& lines, double halfWidth);

/// What Pathes::expandLines makes of such bands: pieces without holes.
Pathes simplePieces(const Pathes& bands);

}  // namespace Calculations
}  // namespace Ruv

#endif
