// SPDX-License-Identifier: BSL-1.0
/// @file
/// Spatial similarity transformation from measured points to fix points.

#ifndef CALCULATIONS_STATIONS_HELMERT_3D_H
#define CALCULATIONS_STATIONS_HELMERT_3D_H

#include "stations/PointPairs.h"
#include "stations/ResectionDiagnostics.h"
#include "stations/StationSetup.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// The station by a seven-parameter similarity transformation, by Gauss-Newton iteration.
/// @param pairs at least three
/// @param start approximate station, orientation and scale of a level instrument
/// @return nothing when the points leave the rotation open or are not finite
std::optional<StationSetup> fitHelmert3d(const PointPairs& pairs, const StationSetup& start,
                                         ResectionDiagnostics& diagnostics);

}  // namespace Calculations
}  // namespace Ruv

#endif
