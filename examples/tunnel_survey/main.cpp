// Reads a tunnel axis from LandXML, tabulates it, converts surveyed points, compares with
// coordinates that others computed, and draws plan and longitudinal section.

#include "tunnel_survey/AxisBuilder.h"
#include "tunnel_survey/CheckReport.h"
#include "tunnel_survey/LandXmlReader.h"
#include "tunnel_survey/NumberParsing.h"
#include "tunnel_survey/PlanDrawing.h"
#include "tunnel_survey/PointFile.h"
#include "tunnel_survey/SectionDrawing.h"
#include "tunnel_survey/StationTable.h"
#include "tunnel_survey/TextTable.h"

#include "drawing/Canvas.h"
#include "drawing/NumberText.h"

#include <Calculations/Calculations.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace TunnelSurvey;
using Drawing::fixed;
using Drawing::signedFixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::Utilities;
namespace fs = std::filesystem;

/// Of the PNG: A3 is 2480 pixels wide.
constexpr double kPixelsPerMillimetre = 2480.0 / 420.0;

struct Options {
  std::string landXml;
  std::string alignment;
  double step = 100.0;
  std::string points;
  double largestOffset = 100.0;
  std::string check;
  std::string output;
  double exaggeration = 10.0;
};

/// What ends the program: told to the user, exit code 1.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string located(const std::string& path, const Remark& remark) {
  const std::string line = remark.line > 0 ? ":" + std::to_string(remark.line) : "";
  return path + line + ": " + remark.message;
}

template <class T>
T valueOrFail(const Outcome<T>& outcome, const std::string& path) {
  if (!outcome.value) throw Failure(located(path, outcome.error));
  return *outcome.value;
}

std::string textOf(const std::string& path) {
  if (!fs::exists(path)) throw Failure(path + ": there is no such file");
  if (fs::is_directory(path)) throw Failure(path + ": is a directory");
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!file) throw Failure(path + ": cannot be read");
  if (text.empty()) throw Failure(path + ": the file is empty");
  return text;
}

void report(const std::string& path, const std::vector<Remark>& remarks) {
  constexpr std::size_t kMostShown = 20;
  for (std::size_t i = 0; i < std::min(remarks.size(), kMostShown); ++i) {
    std::cerr << located(path, remarks[i]) << '\n';
  }
  if (remarks.size() > kMostShown) {
    std::cerr << path << ": " << remarks.size() - kMostShown << " more of these\n";
  }
}

void printHeading(const std::string& heading) {
  std::cout << '\n' << heading << '\n' << std::string(heading.size(), '=') << "\n\n";
}

std::size_t countOf(const Alignment& alignment, ElementKind kind) {
  return static_cast<std::size_t>(
      std::count_if(alignment.plan.begin(), alignment.plan.end(),
                    [kind](const PlanElement& element) { return element.kind == kind; }));
}

void printSummary(const Options& options, const Alignment& alignment, const BuiltAxis& built) {
  const double from = built.axis->minimumStng2d();
  const double to = built.axis->maximumStng2d();
  std::cout << "Alignment        " << alignment.name << " (" << options.landXml << ", lengths in "
            << alignment.lengthUnit << ")\n"
            << "Plan             " << alignment.plan.size()
            << " elements: " << countOf(alignment, ElementKind::Straight) << " straights, "
            << countOf(alignment, ElementKind::Arc) << " arcs, "
            << countOf(alignment, ElementKind::Clothoid) << " clothoids\n"
            << "Profile          " << alignment.profile.size() << " points\n"
            << "Stationing       " << Drawing::stationText(from, 3) << " to "
            << Drawing::stationText(to, 3) << ", " << fixed(to - from, 3) << " m\n"
            << "Largest misfit   " << Drawing::scientific(built.largestMisfit, 1)
            << " m between the end of an element and its printed end\n"
            << "Largest kink     " << Drawing::scientific(Utilities::rad2gon(built.largestKink), 1)
            << " gon between two elements\n";
}

void printPoints(const std::vector<ConvertedPoint>& points) {
  constexpr std::size_t kMostShown = 15;
  TextTable table({"point\n", "stationing\nm", "offset\nm", "above axis\nm", "height\nm"});
  for (std::size_t i = 0; i < std::min(points.size(), kMostShown); ++i) {
    const ConvertedPoint& point = points[i];
    table.addRow({point.id, fixed(point.onAxis.stationing, 3), signedFixed(point.onAxis.offset, 3),
                  signedFixed(point.onAxis.height, 3), fixed(point.grid.height, 3)});
  }
  table.print(std::cout);
  if (points.size() > kMostShown) {
    std::cout << "  and " << points.size() - kMostShown << " more\n";
  }
}

std::vector<ConvertedPoint> convertPointFile(const Options& options,
                                             const AxisCalculator& calculator) {
  const auto file = valueOrFail(readSurveyedPoints(textOf(options.points)), options.points);
  auto converted = convertPoints(calculator, file.points, options.largestOffset);
  printHeading("Surveyed points");
  printPoints(converted.points);
  std::vector<Remark> rejected = file.rejected;
  rejected.insert(rejected.end(), converted.rejected.begin(), converted.rejected.end());
  std::sort(rejected.begin(), rejected.end(),
            [](const Remark& a, const Remark& b) { return a.line < b.line; });
  std::cout << "\nConverted " << converted.points.size() << " points, rejected " << rejected.size()
            << (rejected.empty() ? ".\n" : ":\n");
  report(options.points, rejected);
  return converted.points;
}

void compareWithCheckFile(const Options& options, const AxisCalculator& calculator) {
  const auto file = valueOrFail(readCheckPoints(textOf(options.check)), options.check);
  const CheckReport check = compareWith(file.points, calculator);
  printHeading("Comparison with " + options.check);
  printCheckReport(std::cout, check);
  report(options.check, file.rejected);
  report(options.check, check.rejected);
}

void writeText(const fs::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw Failure(path.string() + ": cannot be written");
  std::cout << path.string() << '\n';
}

void writeSheet(const Drawing::Sheet& sheet, const fs::path& path) {
  const std::string problem = saveSheet(sheet, path.string(), kPixelsPerMillimetre);
  if (!problem.empty()) throw Failure(problem);
  std::cout << path.string() << ".svg\n" << path.string() << ".png\n";
}

void writeResults(const Options& options, const SurveyPicture& picture) {
  const fs::path directory(options.output);
  std::error_code problem;
  fs::create_directories(directory, problem);
  if (problem) throw Failure(options.output + ": " + problem.message());
  printHeading("Written");
  if (!options.points.empty()) {
    writeText(directory / "points_on_axis.csv", convertedPointsAsCsv(picture.points));
  }
  writeSheet(planSheet(picture), directory / "plan");
  writeSheet(sectionSheet(picture, options.exaggeration), directory / "section");
}

std::vector<double> tabulatedStations(const Options& options, const AxisDefinition& axis) {
  constexpr double kMostLines = 100000.0;
  const double lowest = axis.minimumStng2d();
  const double highest = axis.maximumStng2d();
  if (!((highest - lowest) / options.step <= kMostLines)) {
    throw Failure("--step " + fixed(options.step, 2) + " gives more than 100 000 lines");
  }
  return regularStations(lowest, highest, options.step);
}

void run(const Options& options) {
  const Alignment alignment =
      valueOrFail(readLandXml(textOf(options.landXml), options.alignment), options.landXml);
  const BuiltAxis built = valueOrFail(buildAxis(alignment), options.landXml);
  const AxisCalculator calculator(built.axis);
  printSummary(options, alignment, built);
  report(options.landXml, built.notes);

  printHeading("Axis");
  printStationTable(std::cout, calculator, tabulatedStations(options, *built.axis));
  SurveyPicture picture;
  picture.axis = built.axis;
  picture.name = alignment.name;
  picture.source = fs::path(options.landXml).filename().string();
  if (!options.points.empty()) picture.points = convertPointFile(options, calculator);
  if (!options.check.empty()) compareWithCheckFile(options, calculator);
  if (!options.output.empty()) writeResults(options, picture);
}

/// Unlike CLI::Range it refuses not-a-number.
CLI::Validator between(double lowest, double highest) {
  const std::string range = fixed(lowest, 2) + " to " + fixed(highest, 2);
  const auto complaint = [=](const std::string& text) {
    const auto number = parseNumber(text);
    const bool fits = number && *number >= lowest && *number <= highest;
    return fits ? std::string() : text + " is not a number from " + range;
  };
  return CLI::Validator(complaint, range);
}

void addOptions(CLI::App& app, Options& options) {
  app.add_option("landxml", options.landXml, "LandXML file with the alignment")->required();
  app.add_option("--alignment", options.alignment, "Name of the alignment (default: the first)");
  app.add_option("--step", options.step, "Distance of the tabulated stationings (m)")
      ->check(between(0.01, 1e6))
      ->capture_default_str();
  app.add_option("--points", options.points,
                 "CSV of surveyed points to convert: id, east, north, height");
  app.add_option("--max-offset", options.largestOffset,
                 "Points farther from the axis are rejected (m)")
      ->check(between(0.0, 1e6))
      ->capture_default_str();
  app.add_option("--check", options.check,
                 "CSV of coordinates to compare with: station, offset, height_above_axis, east, "
                 "north, height (m), azimuth (rad)");
  app.add_option("--output", options.output,
                 "Directory for the drawings (SVG and PNG) and the converted points (CSV)");
  app.add_option("--exaggeration", options.exaggeration, "Of the heights in the section")
      ->check(between(1.0, 1000.0))
      ->capture_default_str();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    CLI::App app{"Tabulates and draws a tunnel axis and converts surveyed points to it."};
    Options options;
    addOptions(app, options);
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? 0 : 1;
    }
    run(options);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "tunnel_survey: " << error.what() << '\n';
    return 1;
  }
}
