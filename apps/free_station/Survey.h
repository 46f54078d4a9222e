// SPDX-License-Identifier: BSL-1.0
/// @file
/// Everything that the program finds out.

#ifndef CALCULATIONS_APPS_FREE_STATION_SURVEY_H
#define CALCULATIONS_APPS_FREE_STATION_SURVEY_H

#include "free_station/FieldBook.h"
#include "free_station/Guidance.h"
#include "free_station/Identification.h"
#include "free_station/Reliability.h"
#include "free_station/Station.h"

#include "common/exchange/Stationing.h"

#include <optional>
#include <string>
#include <vector>

namespace FreeStation {

/// A measured point that is no fix point.
struct NewPoint {
  std::string id;
  Ruv::Calculations::ENHPoint grid;
  std::optional<Ruv::Calculations::AxisPoint> onAxis;  ///< where there is an axis beside it
};

struct Survey {
  FieldBook book;
  Identification identification;
  /// Nothing more is computed from fix points that may be others.
  bool hasStation = true;
  Ruv::Calculations::StationPlacement placement;
  std::vector<Ruv::Calculations::ENHPoint> residuals;  ///< of the sightings
  Reliability reliability;
  std::vector<NewPoint> newPoints;  ///< the boom is the last one, if there is one
  std::string axisName;
  Exchange::Stationing stationing;  ///< the stations that people read
  /// Without an axis the origin of the drawings.
  Ruv::Calculations::AxisPoint stationOnAxis;
  double axisAzimuth = 0.0;  ///< beside the station; without an axis, towards the fix points
  GuidanceTask guidance;     ///< without an axis, nothing but the boom
  std::vector<GuidanceResult> guided;
  std::vector<std::string> doubts;  ///< why the results may be wrong, in sentences

  bool hasAxis() const { return guidance.axis != nullptr; }
  bool hasBoom() const { return book.boom.has_value(); }
  bool isGuided() const { return !guided.empty(); }
  /// Of the ground point below the instrument, if its height is known.
  std::optional<double> groundHeight() const {
    if (!book.instrumentHeight) return std::nullopt;
    return placement.station().height - *book.instrumentHeight;
  }
};

}  // namespace FreeStation

#endif
