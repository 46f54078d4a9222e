/// @file
/// Where the instrument stands.

#ifndef CALCULATIONS_APPS_FREE_STATION_STATION_H
#define CALCULATIONS_APPS_FREE_STATION_STATION_H

#include "free_station/Identification.h"

#include <Calculations/Calculations.h>

#include <vector>

namespace FreeStation {

/// How far the instrument's vertical is from the plumb line (rad).
struct Tilt {
  double forward = 0.0;  ///< positive when its zero direction points upwards
  double right = 0.0;    ///< positive when the direction to the right of it points upwards
};

struct Station {
  Ruv::Calculations::ENHPoint position;
  double orientation = 0.0;  ///< azimuth of the circle's zero
  double scale = 1.0;
  Ruv::Calculations::ENHPoint positionStdDev;
  double orientationStdDev = 0.0;
  double scaleStdDev = 0.0;
  Tilt tilt;

  /// Where a measured point lies.
  Ruv::Calculations::ENHPoint toGrid(const Ruv::Calculations::PolarPoint& measured) const;
};

/// Sets the station up by a resection in space. Throws a TunnelSurvey::Failure when the fix points
/// do not determine it.
Station setUpStation(const std::vector<Sighting>& sightings);

/// The measured place less the known one, of each sighting.
std::vector<Ruv::Calculations::ENHPoint> residualsOf(const Station& station,
                                                     const std::vector<Sighting>& sightings);

/// Standard deviation of one coordinate of a measured point.
double sigma0Of(const std::vector<Ruv::Calculations::ENHPoint>& residuals);

}  // namespace FreeStation

#endif
