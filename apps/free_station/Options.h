/// @file
/// The command line.

#ifndef CALCULATIONS_APPS_FREE_STATION_OPTIONS_H
#define CALCULATIONS_APPS_FREE_STATION_OPTIONS_H

#include "free_station/Identification.h"

#include "common/console/AxisFile.h"
#include "common/console/CommandLine.h"
#include "common/console/TableOptions.h"

#include <string>
#include <vector>

namespace FreeStation {

struct Options {
  std::string fixPoints;
  std::string measurements;
  std::string landXml;
  Console::AxisOptions axis;
  std::string boom = "boom";
  Tolerances tolerances;
  std::vector<double> origin;
  double ahead = 5.0;
  Console::TableOptions tables;
  std::string output;  ///< empty: no drawing
};

void addOptions(Console::OptionGroup all, Options& options);

}  // namespace FreeStation

#endif
