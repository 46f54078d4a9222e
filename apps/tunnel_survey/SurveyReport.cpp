// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SurveyReport.h"

#include "tunnel_survey/CrossSectionDrawing.h"
#include "tunnel_survey/DevelopedMap.h"
#include "tunnel_survey/PlanDrawing.h"
#include "tunnel_survey/PointTable.h"
#include "tunnel_survey/SectionDrawing.h"
#include "tunnel_survey/SectionTable.h"
#include "tunnel_survey/StationTable.h"
#include "tunnel_survey/SurveyDxf.h"
#include "tunnel_survey/TransitionDrawing.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;

const char* const kDerolmentNote =
    "Derolment: length along the design profile from its crown, positive clockwise looking "
    "forward. Over break is positive, under break negative.";
const char* const kFitNote =
    "Through the compared points, in profile coordinates: x to the right, y up from the axis. "
    "Rotation: of the longer semi-axis, from right towards up.";
const char* const kPointNote =
    "Offset: from the axis, positive to the right. Height above axis: from the axis there; height: "
    "of the point.";

std::string rangeText(const Exchange::Stationing& stationing, const Exchange::StationRange& range) {
  return stationing.text(range.from, 3) + " to " + stationing.text(range.to, 3);
}

/// Long tables are in files of their own anyway.
ReportTable shortened(ReportTable table, const std::string& file) {
  constexpr std::size_t kMostRows = 500;
  const std::size_t rows = table.table.rows.size();
  if (rows <= kMostRows) return table;
  table.table.rows.resize(kMostRows);
  table.title += ", the first " + std::to_string(kMostRows) + " of " + std::to_string(rows);
  if (!file.empty()) table.title += "; all in " + file;
  return table;
}

/// "007_Ring_45": in the order of the sections, whatever their names.
std::string fileNameOf(const SectionSurvey& survey, std::size_t index) {
  constexpr std::size_t kDigits = 3;
  std::string number = std::to_string(index + 1);
  if (number.size() < kDigits) number.insert(0, kDigits - number.size(), '0');
  std::string name = number + "_" + survey.noun + "_" + survey.results[index].section.name;
  const auto isPlain = [](char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'z') ||
           (letter >= 'A' && letter <= 'Z') || letter == '+' || letter == '-' || letter == '.';
  };
  std::replace_if(
      name.begin(), name.end(), [&isPlain](char letter) { return !isPlain(letter); }, '_');
  constexpr std::size_t kLongestName = 100;
  return "sections/" + name.substr(0, kLongestName);
}

void addAxis(Report& report, const Options& options, const SurveyResults& results) {
  SurveyPicture picture = *results.axis;
  if (results.sections && results.sections->hasStations()) {
    picture.sections = {*results.sections->results.front().section.station,
                        *results.sections->results.back().section.station};
  }
  const std::string axis = "axis " + picture.name;
  Chapter drawings{"Axis", {}, {}};
  drawings.figures.push_back(
      {"plan", "Plan of " + axis, "", planSheet(picture),
       [picture](const std::string& path) { return writePlanDxf(path, picture); }});
  if (picture.hasHeights) {
    drawings.figures.push_back(
        {"section", "Longitudinal section of " + axis, "",
         sectionSheet(picture, options.exaggeration),
         [picture](const std::string& path) { return writeLongitudinalDxf(path, picture); }});
  }
  report.chapters.push_back(std::move(drawings));

  Chapter tables{"Axis table", {}, {}};
  tables.tables.push_back(
      shortened({"Axis " + picture.name,
                 "Radius: positive for curves to the right. Grade: positive uphill.",
                 stationTable(picture),
                 {}},
                ""));
  if (!picture.points.empty()) {
    tables.tables.push_back(
        shortened({"Surveyed points", kPointNote, pointTable(picture.points, picture), {}},
                  "points_on_axis.csv"));
  }
  if (!picture.setOut.empty()) {
    tables.tables.push_back(shortened(
        {"Setting out", kPointNote, pointTable(picture.setOut, picture), {}}, "setting_out.csv"));
  }
  if (picture.check) {
    tables.tables.push_back({"Comparison with " + picture.check->source,
                             "Computed here less the coordinates of the file.",
                             checkTable(*picture.check, picture.stationing),
                             {}});
  }
  report.chapters.push_back(std::move(tables));
}

void addTransition(Report& report, const Transition& transition, const AxisPointer& axis) {
  Chapter chapter{"Transition", {}, {}};
  chapter.tables.push_back(
      {"Profiles between " + transition.startSource + " and " + transition.endSource,
       "Left and right of the axis, looking forward. Volumes by mean end "
       "areas, over the length along the axis.",
       transitionTable(transition),
       {}});
  chapter.figures.push_back(
      {"transition", "Transition " + rangeText(transition.stationing, transition.range()), "",
       transitionSheet(transition), [&transition, axis](const std::string& path) {
         return writeTransitionDxf(path, transition, axis);
       }});
  report.chapters.push_back(std::move(chapter));
}

void addSections(Report& report, const SectionSurvey& survey) {
  Chapter map{"Map", {}, {}};
  map.figures.push_back({"developed_map",
                         "Developed map",
                         "Distances of the measured from the design profile over stationing and "
                         "derolment, interpolated between points and sections.",
                         developedMapSheet(survey),
                         {}});
  report.chapters.push_back(std::move(map));

  Chapter sections{survey.noun + "s", {}, {}};
  const CrossSectionLayout layout = crossSectionLayout(survey);
  std::vector<std::string> names;
  for (std::size_t i = 0; i < survey.results.size(); ++i) {
    const SectionResult& result = survey.results[i];
    names.push_back(fileNameOf(survey, i));
    sections.figures.push_back({names.back(), titleOf(survey, result), "",
                                crossSectionSheet(survey, result, layout),
                                [&survey, &result](const std::string& path) {
                                  return writeCrossSectionDxf(path, survey, result);
                                }});
  }
  Chapter tables{"Tables", {}, {}};
  tables.tables.push_back(
      {"Areas and largest deviations", kDerolmentNote, areaTable(survey), names});
  tables.tables.push_back({"Best-fit circles and ellipses", kFitNote, fitTable(survey), names});
  if (survey.volumes) {
    tables.tables.push_back({"Volumes between neighbours",
                             "By mean end areas, over the length along the axis.",
                             volumeTable(survey), names});
  }
  report.chapters.push_back(std::move(tables));
  report.chapters.push_back(std::move(sections));
}

std::string geologyText(const GeologyRule& rule) {
  const std::string beyond = fixed(rule.beyond, 2) + " m from the design";
  if (!rule.from) return "what is excavated beyond " + beyond;
  const std::string from = *rule.from > 0.0 ? fixed(*rule.from, 2) + " m" : "the design";
  return "what is excavated beyond " + beyond + ", and beside it the band from " + from;
}

Facts axisFacts(const SurveyPicture& picture) {
  const Exchange::StationRange range = Exchange::rangeOf(*picture.axis);
  Facts facts = {{"Axis", picture.name + ", " + picture.source},
                 {"Stationing",
                  rangeText(picture.stationing, range) + ", " + fixed(range.length(), 3) + " m"}};
  if (!picture.hasHeights) facts.emplace_back("Heights", "none: the alignment has no profile");
  if (!picture.points.empty()) {
    facts.emplace_back("Points", std::to_string(picture.points.size()) + " surveyed points");
  }
  return facts;
}

Facts sectionFacts(const SectionSurvey& survey) {
  const ComparisonRule& rule = survey.rule;
  Facts facts = {{"Design profile", survey.designSource + ", circumference " +
                                        fixed(survey.design.circumference(), 3) + " m, area " +
                                        fixed(survey.design.area(), 3) + " m\u00b2"},
                 {"Measured", survey.source},
                 {survey.noun + "s", std::to_string(survey.results.size())}};
  if (survey.hasStations()) {
    facts.emplace_back("From, to",
                       rangeText(survey.stationing, {*survey.results.front().section.station,
                                                     *survey.results.back().section.station}));
  }
  facts.emplace_back("Outline", rule.followDesign
                                    ? "between measured points along the design, distances "
                                      "interpolated"
                                    : "straight between measured points");
  if (rule.excludeAbove) {
    facts.emplace_back("Left out", "what lies above " + fixed(*rule.excludeAbove, 2) + " m");
  }
  if (rule.excludeBelow) {
    facts.emplace_back("Left out", "what lies below " + fixed(*rule.excludeBelow, 2) + " m");
  }
  if (rule.geology) facts.emplace_back("Geological", geologyText(*rule.geology));
  return facts;
}

void nameReport(Report& report, const SurveyResults& results) {
  if (results.sections) {
    report.title = "Measured and design profile";
    report.subtitle = "Cross-sections of " + results.sections->source + " against " +
                      results.sections->designSource;
    if (results.sections->volumes) {
      report.note = "Volumes between sections by mean end areas, over the length along the axis.";
    }
  } else if (results.axis) {
    report.title = "Axis " + results.axis->name;
    report.subtitle = results.axis->source;
  } else if (results.transition) {
    report.title = "Transition";
    report.subtitle = results.transition->startSource + " to " + results.transition->endSource;
  }
}

}  // namespace

Report reportOf(const Options& options, const SurveyResults& results) {
  Report report;
  nameReport(report, results);
  if (results.axis) {
    report.sources = axisFacts(*results.axis);
    addAxis(report, options, results);
  }
  if (results.transition) {
    addTransition(report, *results.transition, results.axis ? results.axis->axis : nullptr);
  }
  if (results.sections) {
    const Facts facts = sectionFacts(*results.sections);
    report.sources.insert(report.sources.end(), facts.begin(), facts.end());
    report.summary = summaryOf(*results.sections);
    addSections(report, *results.sections);
  }
  return report;
}

}  // namespace TunnelSurvey
