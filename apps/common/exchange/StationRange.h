// SPDX-License-Identifier: BSL-1.0
/// @file
/// A stretch of an axis, and stations along it.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_STATION_RANGE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_STATION_RANGE_H

#include <Calculations/Calculations.h>

#include <vector>

namespace Exchange {

struct StationRange {
  double from = 0.0;
  double to = 0.0;

  double length() const { return to - from; }
};

/// Stations at equal distances, near to the step, from one end to the other; at most 2000 parts.
std::vector<double> evenStations(const StationRange& range, double step);

StationRange rangeOf(const Ruv::Calculations::AxisDefinition& axis);

}  // namespace Exchange

#endif
