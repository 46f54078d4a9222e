#include "tunnel_survey/SurveyOutput.h"

#include "common/console/Files.h"
#include "common/console/Progress.h"
#include "common/console/ResultFolder.h"
#include "tunnel_survey/CrossSectionDrawing.h"
#include "tunnel_survey/DevelopedMap.h"
#include "tunnel_survey/HtmlReport.h"
#include "tunnel_survey/PlanDrawing.h"
#include "tunnel_survey/SectionDrawing.h"
#include "tunnel_survey/SectionTable.h"
#include "tunnel_survey/TransitionDrawing.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace TunnelSurvey {

namespace {

using Console::ResultFolder;
using Drawing::Sheet;

void writeNamedText(ResultFolder& folder, const std::string& name, const std::string& text) {
  folder.write(name, text);
  std::cout << folder.placeOf(name) << '\n';
}

/// @return the text of the SVG
std::string writeNamedSheet(ResultFolder& folder, const std::string& name, const Sheet& sheet) {
  std::string svg = folder.writeSheet(sheet, name);
  std::cout << folder.placeOf(name) << ".svg\n" << folder.placeOf(name) << ".png\n";
  return svg;
}

/// "007_ring_45": in the order of the sections, whatever their names.
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
  return name.substr(0, kLongestName);
}

/// Every section as files and into the report.
void writeSections(const SectionSurvey& survey, ResultFolder& folder, HtmlReport& report) {
  const CrossSectionLayout layout = crossSectionLayout(survey);
  Console::Progress progress("Drawing the sections", survey.results.size());
  for (std::size_t i = 0; i < survey.results.size(); ++i) {
    const SectionResult& result = survey.results[i];
    const Sheet sheet = crossSectionSheet(survey, result, layout);
    report.writeSection(result, folder.writeSheet(sheet, "sections/" + fileNameOf(survey, i)));
    progress.advance();
  }
}

void writeSectionResults(const SectionSurvey& survey, std::vector<Chapter> chapters,
                         ResultFolder& folder) {
  writeNamedText(folder, "sections.csv", sectionsAsCsv(survey));
  chapters.push_back({"Map",
                      {{"Distances of the measured from the design profile over stationing and "
                        "derolment, interpolated between points and sections.",
                        writeNamedSheet(folder, "developed_map", developedMapSheet(survey))}}});
  std::ofstream file(folder.draft("report.html"), std::ios::binary);
  HtmlReport report(file, survey);
  report.writeHead(chapters);
  for (const Chapter& chapter : chapters) {
    report.writeChapter(chapter);
  }
  report.writeTables();
  report.beginSections();
  writeSections(survey, folder, report);
  report.writeEnd();
  file.close();
  const std::string path = folder.placeOf("report.html");
  if (!file) throw Console::Failure(path + ": cannot be written");
  std::cout << folder.placeOf("sections") << ": " << survey.results.size()
            << " drawings as SVG and PNG\n"
            << path << '\n';
}

Chapter writeAxis(const Options& options, const SurveyResults& results, ResultFolder& folder) {
  SurveyPicture picture = *results.axis;
  if (!options.points.empty()) {
    writeNamedText(folder, "points_on_axis.csv", Exchange::convertedPointsAsCsv(picture.points));
  }
  if (results.sections && results.sections->hasStations()) {
    picture.sections = {*results.sections->results.front().section.station,
                        *results.sections->results.back().section.station};
  }
  std::string plan = writeNamedSheet(folder, "plan", planSheet(picture));
  std::string section =
      writeNamedSheet(folder, "section", sectionSheet(picture, options.exaggeration));
  return {"Axis",
          {{"Plan of axis " + picture.name, std::move(plan)},
           {"Longitudinal section of axis " + picture.name, std::move(section)}}};
}

Chapter writeTransition(const Transition& transition, ResultFolder& folder) {
  writeNamedText(folder, "transition.csv", transitionAsCsv(transition));
  const std::string caption = "The design profile on its way from " + transition.startSource +
                              " to " + transition.endSource + ".";
  return {"Transition",
          {{caption, writeNamedSheet(folder, "transition", transitionSheet(transition))}}};
}

}  // namespace

void writeResults(const Options& options, const SurveyResults& results) {
  ResultFolder folder(options.output);
  Console::printHeading("Written");
  std::vector<Chapter> chapters;
  if (results.axis) chapters.push_back(writeAxis(options, results, folder));
  if (results.transition) chapters.push_back(writeTransition(*results.transition, folder));
  if (results.sections) writeSectionResults(*results.sections, std::move(chapters), folder);
  folder.publish();
}

}  // namespace TunnelSurvey
