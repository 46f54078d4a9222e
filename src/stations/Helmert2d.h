// SPDX-License-Identifier: BSL-1.0
/// @file
/// Plane similarity transformation from measured points to fix points.

#ifndef CALCULATIONS_STATIONS_HELMERT_2D_H
#define CALCULATIONS_STATIONS_HELMERT_2D_H

#include "stations/PointPairs.h"
#include "stations/StationSetup.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// The station by a plane similarity transformation in closed form, its height as a mean.
/// Coincident measured points give a setup that is not a number.
/// @return nothing with fewer than three pairs
std::optional<StationSetup> fitHelmert2d(const PointPairs& pairs);

}  // namespace Calculations
}  // namespace Ruv

#endif
