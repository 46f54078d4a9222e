// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionSurvey.h"

#include "common/console/Files.h"
#include "common/console/Progress.h"
#include "common/exchange/PointCloud.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/Options.h"
#include "tunnel_survey/SectionChecks.h"
#include "tunnel_survey/SectionCutter.h"
#include "tunnel_survey/SectionTable.h"
#include "tunnel_survey/StationTable.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
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

/// Stations of a table are those that people read.
void takePlaces(SectionFile& file, const Exchange::Stationing& stationing) {
  if (!stationing.hasEquations()) return;
  std::vector<MeasuredSection> placed;
  for (MeasuredSection& section : file.sections) {
    const auto place =
        section.station ? stationing.placeOf(*section.station) : Exchange::Outcome<double>();
    if (section.station && !place.value) {
      file.rejected.push_back({0, "section " + section.name + ": " + place.error.message});
      continue;
    }
    section.station = place.value;
    placed.push_back(std::move(section));
  }
  file.sections = std::move(placed);
}

SectionFile readSectionFile(const Options& options, const Exchange::Stationing& stationing) {
  SectionFile file =
      Console::readTable(options.sections, readSections, options.formatOf("sections"));
  if (!options.origins.empty()) {
    const OriginFile origins =
        Console::readTable(options.origins, readOrigins, options.formatOf("origins"));
    Console::printRemarks(options.origins, origins.rejected);
    placeOnOrigins(file, origins.origins);
  }
  takePlaces(file, stationing);
  sortAlongTunnel(file.sections);
  return file;
}

/// The size of a file; 0 for what is none, as a pipe.
std::uint64_t sizeOf(const std::string& path) {
  std::error_code problem;
  const std::uintmax_t size = std::filesystem::file_size(path, problem);
  return problem ? 0 : size;
}

void refuseTooMany(const SectionCutter& cutter, const std::string& path) {
  constexpr std::size_t kMostStarted = 100000;
  if (cutter.usableSections() > kMostSections || cutter.startedSections() > kMostStarted) {
    throw Console::Failure(path + ": more than " + std::to_string(kMostSections) +
                           " sections; give a larger --spacing, or --stations");
  }
}

void printScan(const Options& options, const SectionCutter& cutter, std::size_t points,
               std::size_t rejected) {
  std::cout << "Scan             " << points << " points, " << rejected << " rejected, "
            << cutter.unused() << " between the sections\n"
            << "Slabs            points up to " << fixed(options.slab / 2.0, 3)
            << " m before and behind a section belong to it\n";
  if (cutter.thinnedSections() > 0) {
    std::cout << "Thinned          " << cutter.thinnedSections() << " of "
              << cutter.startedSections() << " sections: points in cells of up to "
              << fixed(cutter.largestCell(), 3) << " m became their mean\n";
  }
}

/// Where to cut a scan; nothing for regular distances.
std::vector<double> stationsOf(const Options& options, const AxisDefinition& axis,
                               const Exchange::Stationing& stationing) {
  std::vector<double> stations;
  for (const std::string& station : options.stations) {
    stations.push_back(Console::placeOf("--stations", station, stationing));
    if (!(stations.back() >= axis.minimumStng2d() && stations.back() <= axis.maximumStng2d())) {
      throw Console::WrongUsage("--stations: " + station + " lies outside the axis");
    }
  }
  return stations;
}

SectionFile cutScan(const Options& options, const boost::shared_ptr<const AxisDefinition>& axis,
                    const Exchange::DesignProfile& design, const Exchange::Stationing& stationing) {
  constexpr std::size_t kMostRemarks = 20;
  const AxisCalculator calculator(axis);
  const Exchange::PointPlacer placer(calculator, options.largestOffset);
  std::ifstream in = Console::openFile(options.scan);
  const auto cloud =
      Console::valueOrFail(Exchange::openPointCloud(in, options.formatOf("scan")), options.scan);
  Console::tellDescription(options.scan, cloud->description());
  SectionCutter cutter({stationsOf(options, *axis, stationing), options.spacing, options.slab});
  SectionFile file;
  std::size_t points = 0;
  std::size_t misplaced = 0;
  std::size_t swapped = 0;
  {
    Console::Progress progress("Cutting " + options.scan, sizeOf(options.scan));
    std::vector<Exchange::CloudPoint> part;
    while (cloud->next(part)) {
      points += part.size();
      for (const Exchange::CloudPoint& point : part) {
        Ruv::Calculations::AxisPoint onAxis;
        if (placer.place(point.grid, onAxis)) {
          cutter.add(onAxis);
          continue;
        }
        if (++misplaced > kMostRemarks) continue;
        file.rejected.push_back({point.line, placer.reason("the point", point.grid)});
        if (placer.isSwapped(point.grid)) ++swapped;
      }
      refuseTooMany(cutter, options.scan);
      progress.reach(cloud->bytesRead());
    }
  }
  if (!cloud->problem().message.empty()) {
    throw Console::Failure(Console::located(options.scan, cloud->problem()));
  }
  if (misplaced > 0 && misplaced == points) {
    Console::printRemarks(options.scan, file.rejected);
    throw Console::Failure(options.scan + ": no point lies beside the axis" +
                           (swapped > 0 ? "; east and north are swapped: name the columns by "
                                          "--columns north,east,height, in their order"
                                        : ""));
  }
  const auto& unread = cloud->firstRejected();
  file.rejected.insert(file.rejected.end(), unread.begin(), unread.end());
  printScan(options, cutter, points, misplaced + cloud->rejected());
  file.sections = cutter.sections(design.centroid());
  return file;
}

std::optional<Exchange::StationRange> rangeOf(const boost::shared_ptr<const AxisDefinition>& axis) {
  if (!axis) return std::nullopt;
  return Exchange::rangeOf(*axis);
}

std::vector<SectionResult> compareAll(const std::vector<MeasuredSection>& sections,
                                      const Exchange::DesignProfile& design,
                                      const ComparisonRule& rule) {
  std::vector<SectionResult> results;
  results.reserve(sections.size());
  Console::Progress progress("Comparing the sections", sections.size());
  for (const MeasuredSection& section : sections) {
    results.push_back(compareWithDesign(section, design, rule));
    progress.advance();
  }
  return results;
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
  return section.station ? title + " at " + survey.stationing.text(*section.station, 3) : title;
}

SectionSurvey surveySections(const Options& options,
                             const boost::shared_ptr<const AxisDefinition>& axis,
                             const Exchange::Stationing& stationing) {
  const ComparisonRule rule = ruleOf(options);
  const bool isScan = !options.scan.empty();
  const std::string& source = isScan ? options.scan : options.sections;
  std::ifstream designFile = Console::openFile(options.design);
  const Exchange::DesignProfile design = Console::valueOrFail(
      Exchange::readDesignProfile(designFile, options.formatOf("design")), options.design);
  Console::printHeading("Cross-sections");
  SectionFile file =
      isScan ? cutScan(options, axis, design, stationing) : readSectionFile(options, stationing);
  dropThinSections(file);
  if (options.sort) {
    for (MeasuredSection& section : file.sections) {
      sortAround(design.centroid(), section.points);
    }
  }
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
                       {},
                       stationing,
                       doubtsOn(file.sections, design, rangeOf(axis))};
  Console::printDoubts(source, survey.doubts);
  const AxisCalculator calculator(axis);
  survey.volumes = volumesOf(survey.results, [&calculator](double from, double to) {
    return lengthBetween(calculator, from, to);
  });
  printSummary(options, survey);
  printSectionTables(std::cout, survey);
  return survey;
}

}  // namespace TunnelSurvey
