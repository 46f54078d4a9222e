#include "tunnel_survey/Options.h"

#include "common/console/RangeCheck.h"

#include <CLI/CLI.hpp>

namespace TunnelSurvey {

namespace {

constexpr double kFarthest = 1000.0;  // of a cross-section's coordinates

CLI::Option* addAxisOptions(CLI::App& app, Options& options) {
  auto* landXml = app.add_option("landxml", options.landXml, "LandXML file with the alignment");
  auto* group = app.add_option_group("Axis");
  group->add_option("--alignment", options.alignment, "Name of the alignment (default: the first)")
      ->needs(landXml);
  group->add_option("--step", options.step, "Distance of the tabulated stationings (m)")
      ->check(Console::between(0.01, 1e6))
      ->capture_default_str();
  group
      ->add_option("--points", options.points,
                   "CSV of surveyed points to convert: id, east, north, height")
      ->needs(landXml);
  group
      ->add_option("--max-offset", options.largestOffset,
                   "Points farther from the axis are rejected (m)")
      ->check(Console::between(0.0, 1e6))
      ->capture_default_str();
  group
      ->add_option("--check", options.check,
                   "CSV of coordinates to compare with: station, offset, height_above_axis, east, "
                   "north, height (m), azimuth (rad)")
      ->needs(landXml);
  group
      ->add_option("--exaggeration", options.exaggeration,
                   "Of the heights in the longitudinal section")
      ->check(Console::between(1.0, 1000.0))
      ->capture_default_str();
  return landXml;
}

CLI::Option* addDesignOption(CLI::Option_group& group, Options& options) {
  return group.add_option("--design", options.design,
                          "CSV of the design profile: start_x, start_y, end_x, end_y, radius (m; "
                          "positive for arcs traversed clockwise, 0 straight)");
}

/// What is measured.
void addMeasurementOptions(CLI::Option_group& group, Options& options, CLI::Option* landXml,
                           CLI::Option* design) {
  auto* sections = group.add_option("--sections", options.sections,
                                    "CSV of measured profile points in the order around the "
                                    "profile: section or ring, x (right), y (up), and optionally "
                                    "station (m)");
  group
      .add_option("--origins", options.origins,
                  "CSV of where the design's origin lies in each section: section or ring, x, y, "
                  "and optionally station (m)")
      ->needs(sections);
  auto* scan = group.add_option("--scan", options.scan,
                                "CSV of scanned points, cut into sections along the axis: east, "
                                "north, height (m)");
  scan->needs(landXml)->needs(design)->excludes(sections);
  sections->needs(design);
  auto* spacing = group.add_option("--spacing", options.spacing,
                                   "Distance of the sections cut from a scan (m)");
  spacing->check(Console::between(0.01, 1e6))->capture_default_str();
  group
      .add_option("--stations", options.stations,
                  "Cut the scan at these stationings instead (m, separated by commas)")
      ->delimiter(',')
      ->check(Console::between(-1e9, 1e9))
      ->excludes(spacing);
  group
      .add_option("--slab", options.slab,
                  "Points up to half of this before or behind a section belong to it (m)")
      ->check(Console::between(0.001, 1e6))
      ->capture_default_str();
}

/// How it is compared and drawn.
void addComparisonOptions(CLI::Option_group& group, Options& options) {
  group.add_flag("--follow-design", options.followDesign,
                 "Between measured points the outline keeps the distance from the design "
                 "(interpolated) instead of running straight: for few points");
  group
      .add_option("--exclude-above", options.excludeAbove,
                  "Leave out what lies above this height in the section (m)")
      ->check(Console::between(-kFarthest, kFarthest));
  group
      .add_option("--exclude-below", options.excludeBelow,
                  "Leave out what lies below this height in the section (m)")
      ->check(Console::between(-kFarthest, kFarthest));
  auto* beyond = group.add_option("--geology-beyond", options.geologyBeyond,
                                  "What is excavated beyond this distance from the design counts "
                                  "as geological over-break (m)");
  beyond->check(Console::between(0.001, kFarthest));
  group
      .add_option("--geology-from", options.geologyFrom,
                  "and with it, beside such places, the band from this distance (m; 0: from the "
                  "design) to the first")
      ->check(Console::between(0.0, kFarthest))
      ->needs(beyond);
  group
      .add_option("--magnify", options.magnify,
                  "Draw the distances from the design this many times larger in the sections")
      ->check(Console::between(1.0, 1000.0))
      ->capture_default_str();
}

void addTransitionOptions(CLI::Option_group& group, Options& options, CLI::Option* design) {
  auto* transition = group.add_option("--transition-to", options.transitionTo,
                                      "CSV of a profile to which the design profile changes: draws "
                                      "the profiles on the way. Measured sections are compared "
                                      "with the design profile everywhere");
  auto* stations = group.add_option("--transition-stations", options.transitionStations,
                                    "Where the change begins and ends (m)");
  stations->delimiter(',')->expected(2)->check(Console::between(-1e9, 1e9))->needs(transition);
  transition->needs(design)->needs(stations);
}

}  // namespace

void addOptions(CLI::App& app, Options& options) {
  CLI::Option* landXml = addAxisOptions(app, options);
  auto* sections = app.add_option_group("Cross-sections");
  CLI::Option* design = addDesignOption(*sections, options);
  addMeasurementOptions(*sections, options, landXml, design);
  addComparisonOptions(*sections, options);
  addTransitionOptions(*sections, options, design);
  app.add_option("--output", options.output,
                 "Directory for the results: drawings (SVG and PNG), tables (CSV) and, with "
                 "cross-sections, the report (HTML)");
}

}  // namespace TunnelSurvey
