/// @file
/// Everything that the program finds out.

#ifndef CALCULATIONS_APPS_FREE_STATION_SURVEY_H
#define CALCULATIONS_APPS_FREE_STATION_SURVEY_H

#include "free_station/FieldBook.h"
#include "free_station/Guidance.h"
#include "free_station/Identification.h"
#include "free_station/Station.h"

#include <string>
#include <vector>

namespace FreeStation {

struct Survey {
  FieldBook book;
  Identification identification;
  Ruv::Calculations::StationPlacement placement;
  std::vector<Ruv::Calculations::ENHPoint> residuals;  ///< of the sightings
  std::string axisName;
  Ruv::Calculations::AxisPoint stationOnAxis;
  double axisAzimuth = 0.0;  ///< beside the station
  GuidanceTask guidance;
  std::vector<GuidanceResult> guided;
};

}  // namespace FreeStation

#endif
