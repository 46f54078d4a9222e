#include "tunnel_survey/SectionSurvey.h"

#include "common/console/Files.h"
#include "common/console/Progress.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/Options.h"
#include "tunnel_survey/SectionCutter.h"
#include "tunnel_survey/SectionTable.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <utility>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;

constexpr std::size_t kMostSections = 2000;  // each gets a drawing

ComparisonRule ruleOf(const Options& options) {
  ComparisonRule rule{options.followDesign, options.excludeAbove, options.excludeBelow, {}};
  if (options.geologyBeyond) rule.geology = {*options.geologyBeyond, options.geologyFrom};
  if (rule.geology && !(options.geologyFrom.value_or(0.0) < rule.geology->beyond)) {
    throw Console::WrongUsage("--geology-from must be less than --geology-beyond");
  }
  if (rule.excludeAbove && rule.excludeBelow && !(*rule.excludeBelow < *rule.excludeAbove)) {
    throw Console::WrongUsage("--exclude-below must be less than --exclude-above");
  }
  return rule;
}

/// Drops sections that are no polygon.
void dropThinSections(SectionFile& file) {
  constexpr std::size_t kFewestPoints = 3;
  std::vector<MeasuredSection> kept;
  for (MeasuredSection& section : file.sections) {
    if (section.points.size() >= kFewestPoints) {
      kept.push_back(std::move(section));
    } else {
      file.rejected.push_back({0, "section " + section.name + " has " +
                                      std::to_string(section.points.size()) +
                                      " points, fewer than three"});
    }
  }
  file.sections = std::move(kept);
}

SectionFile readSectionFile(const Options& options) {
  SectionFile file =
      Console::valueOrFail(readSections(Console::textOf(options.sections)), options.sections);
  if (!options.origins.empty()) {
    const OriginFile origins =
        Console::valueOrFail(readOrigins(Console::textOf(options.origins)), options.origins);
    Console::printRemarks(options.origins, origins.rejected);
    placeOnOrigins(file, origins.origins);
  }
  sortAlongTunnel(file.sections);
  return file;
}

SectionFile cutScan(const Options& options, const boost::shared_ptr<const AxisDefinition>& axis,
                    const Exchange::DesignProfile& design) {
  constexpr std::size_t kLongScan = 100000;
  const AxisCalculator calculator(axis);
  const auto scan = Console::valueOrFail(Exchange::readScannedPoints(Console::textOf(options.scan)),
                                         options.scan);
  SectionFile file;
  file.rejected = scan.rejected;
  SectionCutter cutter({options.stations, options.spacing, options.slab});
  Console::Progress progress("Cutting " + options.scan, scan.points.size(), kLongScan);
  for (const Exchange::SurveyedPoint& point : scan.points) {
    auto converted = Exchange::convertPoint(calculator, point, options.largestOffset);
    if (converted.value) {
      cutter.add(converted.value->onAxis);
    } else {
      file.rejected.push_back(std::move(converted.error));
    }
    progress.advance();
  }
  file.sections = cutter.sections(design.centroid());
  std::cout << "Scan             " << scan.points.size() << " points, " << file.rejected.size()
            << " rejected, " << cutter.unused() << " between the sections\n";
  return file;
}

std::vector<SectionResult> compareAll(const std::vector<MeasuredSection>& sections,
                                      const Exchange::DesignProfile& design,
                                      const ComparisonRule& rule) {
  constexpr std::size_t kManySections = 200;
  std::vector<SectionResult> results;
  results.reserve(sections.size());
  Console::Progress progress("Comparing the sections", sections.size(), kManySections);
  for (const MeasuredSection& section : sections) {
    results.push_back(compareWithDesign(section, design, rule));
    progress.advance();
  }
  return results;
}

/// Along the axis in space if there is one that covers both stationings.
double lengthBetween(const AxisCalculator& calculator, double from, double to) {
  double first = from;
  double last = to;
  const bool isOnAxis = calculator.stationingToTunnelmeter(from, first) &&
                        calculator.stationingToTunnelmeter(to, last);
  return isOnAxis ? last - first : to - from;
}

void printSummary(const Options& options, const SectionSurvey& survey) {
  std::cout << "Design profile   " << options.design << ", "
            << survey.design.definition()->getNumSegments() << " elements, circumference "
            << fixed(survey.design.circumference(), 3) << " m\n"
            << "Sections         " << survey.results.size() << " from " << survey.source << '\n';
  if (survey.rule.followDesign) {
    std::cout << "Outline          between the points along the design\n";
  }
}

}  // namespace

std::string titleOf(const SectionSurvey& survey, const SectionResult& result) {
  const MeasuredSection& section = result.section;
  const std::string title = survey.noun + " " + section.name;
  return section.station ? title + " at " + Drawing::stationText(*section.station, 3) : title;
}

SectionSurvey surveySections(const Options& options,
                             const boost::shared_ptr<const AxisDefinition>& axis) {
  const ComparisonRule rule = ruleOf(options);
  const bool isScan = !options.scan.empty();
  const std::string& source = isScan ? options.scan : options.sections;
  const Exchange::DesignProfile design = Console::valueOrFail(
      Exchange::readDesignProfile(Console::textOf(options.design)), options.design);
  Console::printHeading("Cross-sections");
  SectionFile file = isScan ? cutScan(options, axis, design) : readSectionFile(options);
  dropThinSections(file);
  Console::printRemarks(source, file.rejected);
  if (file.sections.empty()) throw Console::Failure(source + ": there is no section to compare");
  if (file.sections.size() > kMostSections) {
    throw Console::Failure(source + ": " + std::to_string(file.sections.size()) +
                           " sections, more than 2000");
  }
  SectionSurvey survey{design,
                       rule,
                       file.noun,
                       Console::fileName(options.design),
                       Console::fileName(source),
                       options.magnify,
                       compareAll(file.sections, design, rule),
                       {}};
  const AxisCalculator calculator(axis);
  survey.volumes = volumesOf(survey.results, [&calculator](double from, double to) {
    return lengthBetween(calculator, from, to);
  });
  printSummary(options, survey);
  printSectionTables(std::cout, survey);
  return survey;
}

}  // namespace TunnelSurvey
