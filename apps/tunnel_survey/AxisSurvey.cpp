// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/AxisSurvey.h"

#include "common/console/AxisFile.h"
#include "common/console/Files.h"
#include "tunnel_survey/CheckReport.h"
#include "tunnel_survey/PointTable.h"
#include "tunnel_survey/SetOut.h"
#include "tunnel_survey/StationTable.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::Utilities;

std::size_t countOf(const Exchange::Alignment& alignment, Exchange::ElementKind kind) {
  return static_cast<std::size_t>(
      std::count_if(alignment.plan.begin(), alignment.plan.end(),
                    [kind](const Exchange::PlanElement& element) { return element.kind == kind; }));
}

void printSummary(const Options& options, const Exchange::Alignment& alignment,
                  const Exchange::BuiltAxis& built) {
  const double from = built.axis->minimumStng2d();
  const double to = built.axis->maximumStng2d();
  std::cout << "Alignment        " << alignment.name << " (" << options.landXml << ", lengths in "
            << alignment.lengthUnit << ")\n"
            << "Plan             " << alignment.plan.size()
            << " elements: " << countOf(alignment, Exchange::ElementKind::Straight)
            << " straights, " << countOf(alignment, Exchange::ElementKind::Arc) << " arcs, "
            << countOf(alignment, Exchange::ElementKind::Clothoid) << " clothoids\n"
            << "Profile          " << alignment.profile.size() << " points\n"
            << "Stationing       " << built.stationing.text(from, 3) << " to "
            << built.stationing.text(to, 3) << ", " << fixed(to - from, 3) << " m\n"
            << "Largest misfit   " << Drawing::scientific(built.largestMisfit, 1)
            << " m between the end of an element and its printed end\n"
            << "Largest kink     " << Drawing::scientific(Utilities::rad2gon(built.largestKink), 1)
            << " gon between two elements\n";
}

void printPoints(const std::vector<Exchange::ConvertedPoint>& points,
                 const SurveyPicture& picture) {
  constexpr std::size_t kMostShown = 15;
  const std::size_t shown = std::min(points.size(), kMostShown);
  print(std::cout,
        pointTable({points.begin(), points.begin() + static_cast<long>(shown)}, picture));
  if (points.size() > shown) std::cout << "  and " << points.size() - shown << " more\n";
}

void convertPointFile(const Options& options, const AxisCalculator& calculator,
                      SurveyPicture& picture) {
  const auto file =
      Console::readTable(options.points, Exchange::readSurveyedPoints, options.formatOf("points"));
  const Exchange::PointPlacer placer(calculator, options.largestOffset);
  auto converted = Exchange::convertPoints(placer, file.points);
  Console::printHeading("Surveyed points");
  printPoints(converted.points, picture);
  std::vector<Exchange::Remark> rejected = file.rejected;
  rejected.insert(rejected.end(), converted.rejected.begin(), converted.rejected.end());
  std::cout << "\nConverted " << converted.points.size() << " points, rejected " << rejected.size()
            << (rejected.empty() ? ".\n" : ":\n");
  Console::printRemarks(options.points, rejected);
  if (converted.points.empty()) {
    const bool areSwapped = converted.swapped > 0 && converted.swapped == converted.rejected.size();
    throw Console::Failure(options.points + ": no point lies beside the axis" +
                           (areSwapped ? "; east and north are swapped: name the columns by "
                                         "--columns id,north,east,height, in their order"
                                       : ""));
  }
  if (converted.swapped > converted.points.size()) {
    picture.doubts.emplace_back("most points lie beside the axis only with east and north swapped");
    Console::printDoubts(options.points, picture.doubts);
  }
  picture.points = std::move(converted.points);
}

CheckReport compareWithCheckFile(const Options& options, const AxisCalculator& calculator,
                                 const Exchange::Stationing& stationing) {
  const auto file =
      Console::readTable(options.check, Exchange::readCheckPoints, options.formatOf("check"));
  CheckReport check = compareWith(file.points, calculator, stationing);
  check.source = Console::fileName(options.check);
  Console::printHeading("Comparison with " + options.check);
  print(std::cout, checkTable(check, stationing));
  Console::printRemarks(options.check, file.rejected);
  Console::printRemarks(options.check, check.rejected);
  return check;
}

std::vector<double> tabulatedStations(const Options& options, const SurveyPicture& picture) {
  constexpr double kMostLines = 100000.0;
  const Exchange::StationRange range = Exchange::rangeOf(*picture.axis);
  if (!(range.length() / options.step <= kMostLines)) {
    throw Console::WrongUsage("--step " + fixed(options.step, 2) +
                              " gives more than 100 000 lines");
  }
  return regularStations(picture.stationing, range, options.step);
}

}  // namespace

SurveyPicture surveyAxis(const Options& options) {
  const auto& [alignment, built] = Console::readAxisFile(options.landXml, options.axis);
  const AxisCalculator calculator(built.axis);
  printSummary(options, alignment, built);
  Console::printRemarks(options.landXml, built.notes);

  Console::printHeading("Axis");
  SurveyPicture picture;
  picture.axis = built.axis;
  picture.stationing = built.stationing;
  picture.hasHeights = built.hasHeights;
  picture.stations = tabulatedStations(options, picture);
  print(std::cout, stationTable(picture));
  picture.name = alignment.name;
  picture.source = Console::fileName(options.landXml);
  if (!options.points.empty()) convertPointFile(options, calculator, picture);
  if (!options.setOut.empty()) picture.setOut = setOut(options, calculator, picture);
  if (!options.check.empty())
    picture.check = compareWithCheckFile(options, calculator, picture.stationing);
  return picture;
}

}  // namespace TunnelSurvey
