// SPDX-License-Identifier: BSL-1.0
/// @file
/// Compares the library with coordinates that others computed.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_CHECK_REPORT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_CHECK_REPORT_H

#include "common/exchange/PointFile.h"
#include "common/exchange/Stationing.h"
#include "tunnel_survey/ResultTable.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// The size of one kind of difference over many points.
struct DifferenceSummary {
  double largest = 0.0;
  double stationOfLargest = 0.0;
  double sumOfSquares = 0.0;
  std::size_t count = 0;

  void add(double difference, double station);
  double rms() const;
};

struct CheckReport {
  std::string source;         ///< the file of the coordinates
  DifferenceSummary plan;     ///< distance in east and north (m)
  DifferenceSummary height;   ///< m
  DifferenceSummary azimuth;  ///< rad
  std::vector<Exchange::Remark> rejected;
};

/// Points whose station lies outside the axis are rejected.
CheckReport compareWith(const std::vector<Exchange::CheckPoint>& points,
                        const Ruv::Calculations::AxisCalculator& calculator,
                        const Exchange::Stationing& stationing);

ResultTable checkTable(const CheckReport& report, const Exchange::Stationing& stationing);

}  // namespace TunnelSurvey

#endif
