// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/Options.h"

#include "common/exchange/DesignProfile.h"
#include "common/exchange/PointCloud.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/SectionFile.h"
#include "tunnel_survey/SetOut.h"

#include <algorithm>

namespace TunnelSurvey {

namespace {

constexpr double kFarthest = 1000.0;  // of a cross-section's coordinates

/// The tables that are given, by their options.
std::vector<Console::NamedTable> tablesOf(const Options& options) {
  std::vector<Console::NamedTable> tables;
  const auto add = [&tables](const char* name, const std::string& path,
                             const Exchange::TableSchema& schema) {
    if (!path.empty()) tables.push_back({name, &schema});
  };
  add("points", options.points, Exchange::surveyedPointColumns());
  add("setout", options.setOut, setOutColumns());
  add("check", options.check, Exchange::checkPointColumns());
  add("design", options.design, Exchange::designProfileColumns());
  add("transition-to", options.transitionTo, Exchange::designProfileColumns());
  add("sections", options.sections, sectionColumns());
  add("origins", options.origins, sectionColumns());
  add("scan", options.scan, Exchange::scanColumns());
  return tables;
}

Console::Option addAxisOptions(Console::OptionGroup all, Options& options) {
  auto landXml = all.add("landxml", options.landXml, "LandXML file with the alignment");
  auto group = all.group("Axis");
  Console::addAxisOptions(group, options.axis, landXml);
  group.add("--step", options.step, "Distance of the tabulated stationings (m)")
      .between(0.01, 1e6)
      .tellDefault();
  group
      .add("--points", options.points, "CSV of surveyed points to convert: id, east, north, height")
      .needs(landXml);
  group.add("--max-offset", options.largestOffset, "Points farther from the axis are rejected (m)")
      .between(0.0, 1e6)
      .tellDefault();
  group
      .add("--setout", options.setOut,
           "CSV of points whose coordinates are wanted: station, and if given id, offset to the "
           "right and height_above_axis (m)")
      .needs(landXml);
  group
      .add("--check", options.check,
           "CSV of coordinates to compare with: station, offset, height_above_axis, east, "
           "north, height (m), azimuth (rad)")
      .needs(landXml);
  group.add("--exaggeration", options.exaggeration, "Of the heights in the longitudinal section")
      .between(1.0, 1000.0)
      .tellDefault();
  return landXml;
}

Console::Option addDesignOption(Console::OptionGroup group, Options& options) {
  return group.add("--design", options.design,
                   "CSV of the design profile: start_x, start_y, end_x, end_y, radius (m; "
                   "positive for arcs traversed clockwise, 0 straight)");
}

/// What is measured.
void addMeasurementOptions(Console::OptionGroup group, Options& options, Console::Option landXml,
                           Console::Option design) {
  auto sections = group.add("--sections", options.sections,
                            "CSV of measured profile points in the order around the "
                            "profile: section or ring, x (right), y (up), and optionally "
                            "station (m)");
  group
      .add("--origins", options.origins,
           "CSV of where the design's origin lies in each section: section or ring, x, y, "
           "and optionally station (m)")
      .needs(sections);
  group
      .addFlag("--sort", options.sort,
               "Take the points of a section in their order around the design, not in that of the "
               "table")
      .needs(sections);
  auto scan = group.add("--scan", options.scan,
                        "Scanned points, cut into sections along the axis: text of east, north, "
                        "height and more (m; xyz, pts, CSV), or LAS 1.0 to 1.4; of any size");
  scan.needs(landXml).needs(design).excludes(sections);
  sections.needs(design);
  auto spacing =
      group.add("--spacing", options.spacing, "Distance of the sections cut from a scan (m)");
  spacing.between(0.01, 1e6).tellDefault();
  group
      .add("--stations", options.stations,
           "Cut the scan at these stationings instead, as 7310 or 7+310, separated by commas")
      .list()
      .excludes(spacing);
  group
      .add("--slab", options.slab,
           "Points up to half of this before or behind a section belong to it (m)")
      .between(0.001, 1e6)
      .tellDefault();
}

/// How it is compared and drawn.
void addComparisonOptions(Console::OptionGroup group, Options& options) {
  group.addFlag("--follow-design", options.followDesign,
                "Between measured points the outline keeps the distance from the design "
                "(interpolated) instead of running straight: for few points");
  group
      .add("--exclude-above", options.excludeAbove,
           "Leave out what lies above this height in the section (m)")
      .between(-kFarthest, kFarthest);
  group
      .add("--exclude-below", options.excludeBelow,
           "Leave out what lies below this height in the section (m)")
      .between(-kFarthest, kFarthest);
  auto beyond = group.add("--geology-beyond", options.geologyBeyond,
                          "What is excavated beyond this distance from the design counts "
                          "as geological over-break (m)");
  beyond.between(0.001, kFarthest);
  group
      .add("--geology-from", options.geologyFrom,
           "and with it, beside such places, the band from this distance (m; 0: from the "
           "design) to the first")
      .between(0.0, kFarthest)
      .needs(beyond);
  group
      .add("--magnify", options.magnify,
           "Draw the distances from the design this many times larger in the sections")
      .between(1.0, 1000.0)
      .tellDefault();
}

void addTransitionOptions(Console::OptionGroup group, Options& options, Console::Option design) {
  auto transition = group.add("--transition-to", options.transitionTo,
                              "CSV of a profile to which the design profile changes: draws "
                              "the profiles on the way. Measured sections are compared "
                              "with the design profile everywhere");
  auto stations = group.add("--transition-stations", options.transitionStations,
                            "Where the change begins and ends, as 7370,7400 or 7+370,7+400");
  stations.list(2).needs(transition);
  transition.needs(design).needs(stations);
}

}  // namespace

void addOptions(Console::OptionGroup all, Options& options) {
  Console::Option landXml = addAxisOptions(all, options);
  auto sections = all.group("Cross-sections");
  Console::Option design = addDesignOption(sections, options);
  addMeasurementOptions(sections, options, landXml, design);
  addComparisonOptions(sections, options);
  addTransitionOptions(sections, options, design);
  Console::addTableOptions(all, options.tables,
                           "points, setout, check, design, sections, origins, scan, transition-to");
  all.addFlag("--accept", options.accept,
              "End with exit code 0 although something is doubtful; it is told all the same");
  auto output = all.add("--output", options.output,
                        "Directory for the results: the report (HTML and PDF), drawings (SVG, PNG "
                        "and DXF), tables (CSV)");
  all.addFlag("--single-file", options.isSingleFile,
              "The HTML report holds its drawings, for mailing")
      .needs(output);
  all.add("--json", options.json, "File for all results as JSON (m, gon, %)");
}

Exchange::TableFormat Options::formatOf(const std::string& table) const {
  const std::vector<Console::NamedTable> given = tablesOf(*this);
  const auto found =
      std::find_if(given.begin(), given.end(),
                   [&table](const Console::NamedTable& named) { return named.name == table; });
  return found == given.end() ? Exchange::TableFormat() : tables.formatFor(*found);
}

void checkTableOptions(const Options& options) { options.tables.check(tablesOf(options)); }

}  // namespace TunnelSurvey
