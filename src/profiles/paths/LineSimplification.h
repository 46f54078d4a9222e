// SPDX-License-Identifier: BSL-1.0
/// @file
/// Leaves out points that hardly bend a line.

#ifndef CALCULATIONS_PROFILES_PATHS_LINE_SIMPLIFICATION_H
#define CALCULATIONS_PROFILES_PATHS_LINE_SIMPLIFICATION_H

#include <Calculations/ClipperLib.h>

namespace Ruv {
namespace Calculations {

/// Distance of two points in clipping units.
double unitsBetween(const ClipperLib::IntPoint& a, const ClipperLib::IntPoint& b);

/// Walks the line and keeps a point where the next one leaves the strip, as wide as the tolerance
/// to both sides, along the direction from the last kept point to the point after it. Kept is the
/// last point that still lay in the strip, so corners stay corners.
ClipperLib::Path simplified(const ClipperLib::Path& line, double tolerance);
/// Simplifies each of the lines.
ClipperLib::Paths simplified(const ClipperLib::Paths& lines, double tolerance);

}  // namespace Calculations
}  // namespace Ruv

#endif
