// SPDX-License-Identifier: BSL-1.0
/// @file
/// The command line.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_OPTIONS_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_OPTIONS_H

#include "common/console/AxisFile.h"
#include "common/console/CommandLine.h"
#include "common/console/TableOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// Empty texts and lists stand for options that are not given.
struct Options {
  std::string landXml;
  Console::AxisOptions axis;
  double step = 100.0;
  std::string points;
  double largestOffset = 100.0;
  std::string setOut;
  std::string check;
  double exaggeration = 10.0;

  std::string design;
  std::string sections;
  std::string origins;
  std::string scan;
  double spacing = 5.0;
  std::vector<std::string> stations;  ///< as "7310" or "7+310 ahead"
  double slab = 0.5;
  bool sort = false;
  bool followDesign = false;
  std::optional<double> excludeAbove;
  std::optional<double> excludeBelow;
  std::optional<double> geologyBeyond;
  std::optional<double> geologyFrom;
  double magnify = 1.0;

  std::string transitionTo;
  std::vector<std::string> transitionStations;

  Console::TableOptions tables;
  bool accept = false;

  std::string output;
  bool isSingleFile = false;
  std::string json;

  /// How the table of an option is written: "points", "setout", "check", "design", "sections",
  /// "origins", "scan" or "transition-to".
  Exchange::TableFormat formatOf(const std::string& table) const;
};

/// Throws WrongUsage for words about tables that the command does not read.
void checkTableOptions(const Options& options);

void addOptions(Console::OptionGroup all, Options& options);

}  // namespace TunnelSurvey

#endif
