// SPDX-License-Identifier: BSL-1.0
/// @file
/// The axis at regular stationings.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_STATION_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_STATION_TABLE_H

#include "common/exchange/StationRange.h"
#include "common/exchange/Stationing.h"
#include "tunnel_survey/ResultTable.h"
#include "tunnel_survey/SurveySheet.h"

#include <Calculations/Calculations.h>

#include <optional>
#include <vector>

namespace TunnelSurvey {

struct AxisPlace {
  double station = 0.0;
  double tunnelMeter = 0.0;
  Ruv::Calculations::ENHPoint grid;
  double azimuth = 0.0;  ///< rad
  double radius = 0.0;   ///< positive to the right, 0 on a straight
  double grade = 0.0;    ///< percent
};

/// Nothing outside the axis.
std::optional<AxisPlace> placeAt(const Ruv::Calculations::AxisCalculator& calculator,
                                 double station);

/// Both ends of a range and the multiples of the step between them. A step that gives more than
/// 100 000 stations gives the ends only.
std::vector<double> regularStations(const Exchange::Stationing& stationing,
                                    const Exchange::StationRange& range, double step);

/// The places in a range where the station that people read is a multiple of the step.
std::vector<double> roundStations(const Exchange::Stationing& stationing,
                                  const Exchange::StationRange& range, double step);

/// The stations of the picture; leaves out what lies outside the axis.
ResultTable stationTable(const SurveyPicture& picture);

/// The distance of two stationings along the axis in space, or of the stationings where there is
/// no axis.
double lengthBetween(const Ruv::Calculations::AxisCalculator& calculator, double from, double to);

}  // namespace TunnelSurvey

#endif
