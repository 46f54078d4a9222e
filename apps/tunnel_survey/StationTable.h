/// @file
/// The axis at regular stationings.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_STATION_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_STATION_TABLE_H

#include "tunnel_survey/ResultTable.h"

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
std::vector<double> regularStations(double lowest, double highest, double step);

/// Leaves out what lies outside the axis.
ResultTable stationTable(const Ruv::Calculations::AxisCalculator& calculator,
                         const std::vector<double>& stations);

/// The distance of two stationings along the axis in space, or of the stationings where there is
/// no axis.
double lengthBetween(const Ruv::Calculations::AxisCalculator& calculator, double from, double to);

}  // namespace TunnelSurvey

#endif
