// SPDX-License-Identifier: BSL-1.0
/// @file
/// The parts of open lines inside areas.

#ifndef CALCULATIONS_PROFILES_PATHS_LINE_CLIPPING_H
#define CALCULATIONS_PROFILES_PATHS_LINE_CLIPPING_H

#include "profiles/paths/Clipping.h"

#include <Calculations/ClipperLib.h>

namespace Ruv {
namespace Calculations {

/// Parts that run along the outline of the area may count as inside or not.
ClipperLib::Paths linesInside(const PathViews& lines, const PathViews& area);

}  // namespace Calculations
}  // namespace Ruv

#endif
