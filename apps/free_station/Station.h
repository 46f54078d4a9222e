// SPDX-License-Identifier: BSL-1.0
/// @file
/// Where the instrument stands.

#ifndef CALCULATIONS_APPS_FREE_STATION_STATION_H
#define CALCULATIONS_APPS_FREE_STATION_STATION_H

#include "free_station/Identification.h"

#include <Calculations/Calculations.h>

#include <vector>

namespace FreeStation {

/// Sets the station up by a resection in space. Throws a Console::Failure when the fix points do
/// not determine it.
Ruv::Calculations::StationPlacement setUpStation(const std::vector<Sighting>& sightings);

/// The measured place less the known one, of each sighting.
std::vector<Ruv::Calculations::ENHPoint> residualsOf(
    const Ruv::Calculations::StationPlacement& station, const std::vector<Sighting>& sightings);

/// Standard deviation of one coordinate of a measured point.
double sigma0Of(const std::vector<Ruv::Calculations::ENHPoint>& residuals);

}  // namespace FreeStation

#endif
