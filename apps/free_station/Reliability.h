// SPDX-License-Identifier: BSL-1.0
/// @file
/// How well the measurements of a station control each other.

#ifndef CALCULATIONS_APPS_FREE_STATION_RELIABILITY_H
#define CALCULATIONS_APPS_FREE_STATION_RELIABILITY_H

#include "free_station/Station.h"

#include <optional>
#include <vector>

namespace FreeStation {

/// Of the east, north and height of a sighting.
struct Control {
  /// Redundancy numbers: the part of an error that shows in the residual, 0 (nothing) to 1. They
  /// sum up to the redundancy.
  Ruv::Calculations::ENHPoint redundancy;
  /// Residuals divided by their standard deviations (w-test).
  Ruv::Calculations::ENHPoint w;

  double largestW() const;
};

/// One standard deviation in plan (m).
struct ErrorEllipse {
  double semiMajor = 0.0;
  double semiMinor = 0.0;
  double azimuth = 0.0;  ///< of the larger axis, in [0, pi)
};

struct Reliability {
  std::vector<Control> sightings;
  int redundancy = 0;                  ///< observed coordinates less the seven unknowns
  double criticalW = 0.0;              ///< exceeded by one w in a thousand without any error
  std::optional<std::size_t> outlier;  ///< the sighting of the largest w, if it exceeds that
  ErrorEllipse ellipse;                ///< of the station
};

/// Of the spatial resection, whose observations are the coordinates of the sighted points, all
/// equally accurate (Baarda 1968; with the standard deviation from the residuals themselves, w is
/// distributed as tau: Pope 1976).
Reliability reliabilityOf(const Ruv::Calculations::StationPlacement& station,
                          const std::vector<Sighting>& sightings);

}  // namespace FreeStation

#endif
