// SPDX-License-Identifier: BSL-1.0
/// @file
/// One way among the many to write the same outlines.

#ifndef CALCULATIONS_PROFILES_PATHS_CANONICAL_OUTLINES_H
#define CALCULATIONS_PROFILES_PATHS_CANONICAL_OUTLINES_H

#include "profiles/paths/FailsafeClipper.h"

namespace Ruv {
namespace Calculations {

/// Whether outlines may be turned round, which changes nothing for the even-odd rule.
enum class Sense { Free, Kept };

/// The same list for the same outlines, wherever each of them begins, in whatever order they come
/// and, where their sense is free, whichever way each of them runs. O(n log n) for n points.
ClipperLib::Paths canonicalOutlines(const PathViews& outlines, Sense sense);

/// Results of a clipping, free of holes, in one way: outlines whose area narrows to a point are
/// split there. Each begins with its uppermost point, of those on one level the leftmost, and so
/// the outlines are sorted, those without points last. The area stays the same. O(n log n).
ClipperLib::Paths canonicalPieces(const ClipperLib::Paths& outlines);

}  // namespace Calculations
}  // namespace Ruv

#endif
