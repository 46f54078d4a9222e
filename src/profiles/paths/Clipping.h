// SPDX-License-Identifier: BSL-1.0
/// @file
/// Boolean operations and offsets on the clipping library's own paths.

#ifndef CALCULATIONS_PROFILES_PATHS_CLIPPING_H
#define CALCULATIONS_PROFILES_PATHS_CLIPPING_H

#include "profiles/paths/FailsafeClipper.h"

#include <Calculations/ClipperLib.h>

namespace Ruv {
namespace Calculations {

// All of them fail as FailsafeClipper does.

/// These results are free of holes, and the same pieces in the same order wherever the outlines
/// begin, in whatever order they come and whichever way they run.
/// @{
ClipperLib::Paths intersectionOf(const PathViews& a, const PathViews& b);
ClipperLib::Paths differenceOf(const PathViews& a, const PathViews& b);
/// @param distance in clipping units
ClipperLib::Paths bandsAround(const PathViews& lines, ClipperLib::cInt distance);
/// @}

/// The same areas in pieces as the clipper makes them, in its order: enough for their size.
/// @{
ClipperLib::Paths rawIntersectionOf(const PathViews& a, const PathViews& b);
ClipperLib::Paths rawDifferenceOf(const PathViews& a, const PathViews& b);
/// @}

/// The same bands with their holes: enough for areas and for further operations, which fill by the
/// even-odd rule, and much faster where rough lines leave thousands of slivers.
/// @param distance in clipping units
ClipperLib::Paths bandsWithHoles(const PathViews& lines, ClipperLib::cInt distance);
/// Bands cut at their holes, in the order of the others.
ClipperLib::Paths simplePieces(ClipperLib::Paths bands);

/// May hold holes, as the outlines may. Begin and follow each other as the clipper has it, since
/// who closes one cleans it from where it begins.
/// @param distance in clipping units
ClipperLib::Paths offsetOutlines(const PathViews& outlines, ClipperLib::cInt distance);

}  // namespace Calculations
}  // namespace Ruv

#endif
