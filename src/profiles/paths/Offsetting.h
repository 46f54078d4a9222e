// SPDX-License-Identifier: BSL-1.0
/// @file
/// Outlines and lines offset by a distance.

#ifndef CALCULATIONS_PROFILES_PATHS_OFFSETTING_H
#define CALCULATIONS_PROFILES_PATHS_OFFSETTING_H

#include "profiles/paths/FailsafeClipper.h"
#include "profiles/paths/GridUnits.h"

#include <Calculations/ClipperLib.h>

#include <cmath>

namespace Ruv {
namespace Calculations {

/// An offset in clipping units.
/// @throw ClippingFailure for a distance that is not finite: nothing is offset by it
inline ClipperLib::cInt offsetUnits(double metres) {
  if (!std::isfinite(metres)) throw ClippingFailure();
  return gridUnits(metres);
}

/// Offsets paths as the clipping library does, with round corners, and with holes as paths of
/// negative orientation. Failure is that of FailsafeClipper: the library's own operation hands out
/// nothing.
/// @param ends  closed polygons, or lines with flat ends
/// @param distance in clipping units; lines have no band for one that is not positive
ClipperLib::Paths offsetBy(ClipperLib::cInt distance, const PathViews& paths,
                           ClipperLib::EndType ends);

}  // namespace Calculations
}  // namespace Ruv

#endif
