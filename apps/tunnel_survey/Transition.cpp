// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/Transition.h"

#include "common/console/Files.h"
#include "tunnel_survey/Options.h"
#include "tunnel_survey/StationTable.h"

#include "common/drawing/NumberText.h"

#include <cstddef>
#include <iostream>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;
using Drawing::signedFixed;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileDefinition;
using Ruv::Calculations::ThProfileMorpher;

constexpr int kParts = 8;         // between the sections
constexpr int kEdgesPerPart = 4;  // the edges of walls that lean or bulge are curved lines

Exchange::StationRange rangeOf(const Options& options, const Exchange::Stationing& stationing) {
  constexpr double kShortest = 0.1;
  constexpr double kLongest = 10000.0;
  const auto placeOf = [&stationing](const std::string& station) {
    return Console::placeOf("--transition-stations", station, stationing);
  };
  const Exchange::StationRange range{placeOf(options.transitionStations.front()),
                                     placeOf(options.transitionStations.back())};
  if (!(range.length() >= kShortest && range.length() <= kLongest)) {
    throw Console::WrongUsage("--transition-stations: from the first to the second must be " +
                              fixed(kShortest, 1) + " to " + fixed(kLongest, 0) + " m");
  }
  return range;
}

Exchange::DesignProfile readDesign(const std::string& path, const Exchange::TableFormat& format) {
  std::ifstream in = Console::openFile(path);
  return Console::valueOrFail(Exchange::readDesignProfile(in, format), path);
}

}  // namespace

Exchange::Outcome<Transition> transitionBetween(const Exchange::DesignProfile& start,
                                                const Exchange::DesignProfile& end,
                                                const Exchange::StationRange& range) {
  const ThProfileMorpher morpher(start.definition(), end.definition(), range.from, range.to);
  Transition transition;
  const double step = range.length() / (kParts * kEdgesPerPart);
  for (const double station : Exchange::evenStations(range, step)) {
    const auto definition = morpher.getMorphedProfile(station);
    const auto profile =
        definition ? std::optional<Exchange::DesignProfile>(definition) : std::nullopt;
    if (!profile || profile->outline().empty()) {
      return Exchange::Outcome<Transition>::failure(
          {0,
           "the design profile cannot be morphed into this one "
           "(not at " +
               Drawing::stationText(station, 3) + ")"});
    }
    if (transition.edges.size() % kEdgesPerPart == 0) {
      transition.sections.push_back({station, *profile, station - range.from});
    }
    transition.edges.push_back({station, profile->lowerLeft().x, profile->upperRight().x});
  }
  return Exchange::Outcome<Transition>::success(std::move(transition));
}

std::optional<Transition> surveyTransition(
    const Options& options, const boost::shared_ptr<const Ruv::Calculations::AxisDefinition>& axis,
    const Exchange::Stationing& stationing) {
  const Exchange::StationRange range = rangeOf(options, stationing);
  const Exchange::DesignProfile start = readDesign(options.design, options.formatOf("design"));
  const Exchange::DesignProfile end =
      readDesign(options.transitionTo, options.formatOf("transition-to"));
  Console::printHeading("Transition");
  Exchange::Outcome<Transition> outcome = transitionBetween(start, end, range);
  if (!outcome.value) {
    Console::printRemarks(options.transitionTo, {outcome.error});
    std::cout << "Left out: the profiles cannot be morphed.\n";
    return std::nullopt;
  }
  outcome.value->stationing = stationing;
  outcome.value->startSource = Console::fileName(options.design);
  outcome.value->endSource = Console::fileName(options.transitionTo);
  std::cout << "Start profile    " << options.design << '\n'
            << "End profile      " << options.transitionTo << "\n\n";
  const Ruv::Calculations::AxisCalculator calculator(axis);
  for (TransitionSection& section : outcome.value->sections) {
    section.fromStart = lengthBetween(calculator, range.from, section.station);
  }
  print(std::cout, transitionTable(*outcome.value));
  return std::move(outcome.value);
}

ResultTable transitionTable(const Transition& transition) {
  ResultTable table{{"stationing\nm", "elements\n", "left\nm", "right\nm", "width\nm", "height\nm",
                     "area\nm\u00b2", "from the start\nm", "volume from the start\nm\u00b3"},
                    {}};
  double volume = 0.0;
  for (std::size_t i = 0; i < transition.sections.size(); ++i) {
    const Exchange::DesignProfile& profile = transition.sections[i].profile;
    const Point2D low = profile.lowerLeft();
    const Point2D high = profile.upperRight();
    const double length = transition.sections[i].fromStart;
    if (i > 0) {
      const TransitionSection& before = transition.sections[i - 1];
      volume += (before.profile.area() + profile.area()) / 2.0 * (length - before.fromStart);
    }
    table.rows.push_back({transition.stationing.metresText(transition.sections[i].station, 3),
                          std::to_string(profile.definition()->getNumSegments()),
                          signedFixed(low.x, 3), signedFixed(high.x, 3), fixed(high.x - low.x, 3),
                          fixed(high.y - low.y, 3), fixed(profile.area(), 3), fixed(length, 3),
                          fixed(volume, 3)});
  }
  return table;
}

ResultTable elementTable(const Transition& transition) {
  constexpr int kDecimals = 6;
  ResultTable table{
      {"stationing\nm", "start x\nm", "start y\nm", "end x\nm", "end y\nm", "radius\nm"}, {}};
  for (const TransitionSection& section : transition.sections) {
    const ThProfileDefinition& definition = *section.profile.definition();
    for (unsigned i = 0; i < definition.getNumSegments(); ++i) {
      const Point2D start = definition.getSegmentStartAt(i);
      const Point2D end = definition.getSegmentEndAt(i);
      std::vector<std::string> row = {transition.stationing.metresText(section.station, 3)};
      for (const double number :
           {start.x, start.y, end.x, end.y, definition.getSegmentRadiusAt(i)}) {
        row.push_back(fixed(number, kDecimals));
      }
      table.rows.push_back(std::move(row));
    }
  }
  return table;
}

}  // namespace TunnelSurvey
