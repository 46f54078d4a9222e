// SPDX-License-Identifier: BSL-1.0
/// @file
/// Areas while a calculation goes on: bands with their holes, and pieces as the clipper makes them.

#ifndef CALCULATIONS_PROFILES_PATHS_BANDS_H
#define CALCULATIONS_PROFILES_PATHS_BANDS_H

#include <Calculations/Paths.h>

namespace Ruv {
namespace Calculations {

/// Grows bands as Pathes::expandLines does, but holes stay paths of their own, of negative area.
/// Areas and further operations are the same, as both fill by the even-odd rule.
Pathes bandsWithHoles(const Pathes& lines, double halfWidth);

/// The areas of Path::without and Pathes::within sooner: in pieces as the clipper makes them, which
/// are enough for their size.
/// @{
Pathes rawWithout(const Path& a, const Path& b);
Pathes rawWithin(const Pathes& a, const Pathes& b);
/// @}

/// What Pathes::expandLines makes of such bands: pieces without holes.
Pathes simplePieces(const Pathes& bands);

}  // namespace Calculations
}  // namespace Ruv

#endif
