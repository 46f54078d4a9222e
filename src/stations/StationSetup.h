// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a resection finds.

#ifndef CALCULATIONS_STATIONS_STATION_SETUP_H
#define CALCULATIONS_STATIONS_STATION_SETUP_H

#include <Calculations/Points.h>

namespace Ruv {
namespace Calculations {

/// Place and orientation of an instrument, with standard deviations.
struct StationSetup {
  ENHPoint station;
  double tiltAboutEast = 0.0;   ///< rad, omega of SpatialAngles, not normalised
  double tiltAboutNorth = 0.0;  ///< rad, phi, in [-pi/2, pi/2]
  double orientation = 0.0;     ///< rad, clockwise, not normalised
  double scale = 1.0;
  ENHPoint stationStdDev;
  double orientationStdDev = 0.0;
  double scaleStdDev = 0.0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
