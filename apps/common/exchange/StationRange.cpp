// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/StationRange.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Exchange {

using Ruv::Calculations::AxisDefinition;

std::vector<double> evenStations(const StationRange& range, double step) {
  constexpr double kMostParts = 2000.0;
  const double parts = std::min(kMostParts, std::max(1.0, std::ceil(range.length() / step)));
  const int count = static_cast<int>(parts);
  std::vector<double> stations;
  stations.reserve(static_cast<std::size_t>(count) + 1);
  for (int i = 0; i < count; ++i) {
    stations.push_back(range.from + range.length() * i / count);
  }
  stations.push_back(range.to);
  return stations;
}

StationRange rangeOf(const AxisDefinition& axis) {
  return {axis.minimumStng2d(), axis.maximumStng2d()};
}

}  // namespace Exchange
