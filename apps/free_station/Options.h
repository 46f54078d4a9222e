// SPDX-License-Identifier: BSL-1.0
/// @file
/// The command line.

#ifndef CALCULATIONS_APPS_FREE_STATION_OPTIONS_H
#define CALCULATIONS_APPS_FREE_STATION_OPTIONS_H

#include "free_station/Identification.h"

#include "common/console/AxisFile.h"
#include "common/console/CommandLine.h"
#include "common/console/TableOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace FreeStation {

struct Options {
  std::string fixPoints;
  std::string measurements;
  std::string landXml;  ///< empty: no axis
  Console::AxisOptions axis;
  std::string boom;  ///< empty: the measurement named boom, if there is one
  std::optional<double> instrumentHeight;
  Tolerances tolerances;
  std::vector<std::string> origin;  ///< empty: nothing is guided
  double ahead = 5.0;
  Console::TableOptions tables;
  bool accept = false;
  std::string json;    ///< file; empty: none
  std::string output;  ///< empty: no drawing
};

void addOptions(Console::OptionGroup all, Options& options);

}  // namespace FreeStation

#endif
