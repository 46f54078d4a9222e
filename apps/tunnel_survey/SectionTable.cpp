#include "tunnel_survey/SectionTable.h"

#include "common/console/TextTable.h"
#include "common/exchange/TableCells.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;
using Drawing::fixedOrDash;
using Drawing::signedFixed;
using Drawing::signedFixedOrDash;
using Ruv::Calculations::FittingResult;
using Ruv::Calculations::Utilities;

std::string lowerCase(std::string word) {
  if (!word.empty() && word[0] >= 'A' && word[0] <= 'Z') {
    word[0] = static_cast<char>(word[0] - 'A' + 'a');
  }
  return word;
}

/// The columns that say which section it is.
SectionTable namedTable(const SectionSurvey& survey) {
  SectionTable table;
  table.headings = {lowerCase(survey.noun) + "\n"};
  if (survey.hasStations()) table.headings.emplace_back("stationing\nm");
  for (const SectionResult& result : survey.results) {
    std::vector<std::string> row = {result.section.name};
    if (survey.hasStations()) row.push_back(fixed(*result.section.station, 3));
    table.rows.push_back(std::move(row));
  }
  return table;
}

void addExtreme(std::vector<std::string>& row, const std::optional<Extreme>& extreme) {
  row.push_back(extreme ? signedFixed(extreme->deviation.distance, 3) : "-");
  row.push_back(extreme ? signedFixed(extreme->deviation.derolment, 2) : "-");
}

void print(std::ostream& out, const SectionTable& table) {
  Console::TextTable text(table.headings);
  for (const std::vector<std::string>& row : table.rows) {
    text.addRow(row);
  }
  out << '\n';
  text.print(out);
}

std::string volumeText(double volume, const Volumes& volumes) {
  return fixed(volume, 1) + " m³, " + fixed(volume / volumes.length, 3) + " m³/m, " +
         fixed(100.0 * volume / volumes.design, 1) + " % of the design";
}

std::string extremeText(const SectionSurvey& survey, const SectionResult& result,
                        const Extreme& extreme) {
  return signedFixed(extreme.deviation.distance, 3) + " m in " +
         lowerCase(titleOf(survey, result)) + ", derolment " +
         signedFixed(extreme.deviation.derolment, 2) + " m";
}

double distanceOf(const std::optional<Extreme>& extreme) {
  return extreme ? extreme->deviation.distance : 0.0;
}

/// Empty where a fit has failed.
std::string finiteCell(double value, int decimals) {
  return std::isfinite(value) ? fixed(value, decimals) : "";
}

std::string extremeCells(const std::optional<Extreme>& extreme) {
  if (!extreme) return ",,,,";
  const Deviation& deviation = extreme->deviation;
  return "," + fixed(deviation.distance, 4) + "," + fixed(deviation.derolment, 4) + "," +
         fixed(extreme->point.x, 4) + "," + fixed(extreme->point.y, 4);
}

}  // namespace

SectionTable areaTable(const SectionSurvey& survey) {
  SectionTable table = namedTable(survey);
  table.headings.insert(table.headings.end(), {"over\nm²", "under\nm²"});
  if (survey.rule.geology) table.headings.emplace_back("geological\nm²");
  table.headings.insert(table.headings.end(), {"largest over\nm", "at derolment\nm",
                                               "largest under\nm", "at derolment\nm", "points\n"});
  for (std::size_t i = 0; i < survey.results.size(); ++i) {
    const SectionResult& result = survey.results[i];
    std::vector<std::string>& row = table.rows[i];
    row.push_back(fixed(result.overArea, 3));
    row.push_back(fixed(result.underArea, 3));
    if (survey.rule.geology) row.push_back(fixed(result.geologicalArea, 3));
    addExtreme(row, result.largestOver);
    addExtreme(row, result.largestUnder);
    row.push_back(std::to_string(result.deviations.size()));
  }
  return table;
}

SectionTable fitTable(const SectionSurvey& survey) {
  SectionTable table = namedTable(survey);
  table.headings.insert(table.headings.end(),
                        {"circle x\nm", "circle y\nm", "radius\nm", "ellipse x\nm", "ellipse y\nm",
                         "semi-axis a\nm", "semi-axis b\nm", "rotation\ngon"});
  for (std::size_t i = 0; i < survey.results.size(); ++i) {
    const FittingResult& circle = survey.results[i].circle;
    const FittingResult& ellipse = survey.results[i].ellipse;
    std::vector<std::string>& row = table.rows[i];
    for (const double coordinate : {circle.center.x, circle.center.y}) {
      row.push_back(signedFixedOrDash(coordinate, 3));
    }
    row.push_back(fixedOrDash(circle.radius, 3));
    for (const double coordinate : {ellipse.center.x, ellipse.center.y}) {
      row.push_back(signedFixedOrDash(coordinate, 3));
    }
    row.push_back(fixedOrDash(ellipse.semiAxisA, 3));
    row.push_back(fixedOrDash(ellipse.semiAxisB, 3));
    row.push_back(fixedOrDash(Utilities::rad2gon(ellipse.rotation), 1));
  }
  return table;
}

const SectionResult* largestOverOf(const SectionSurvey& survey) {
  const auto largest =
      std::max_element(survey.results.begin(), survey.results.end(),
                       [](const SectionResult& a, const SectionResult& b) {
                         return distanceOf(a.largestOver) < distanceOf(b.largestOver);
                       });
  return largest->largestOver ? &*largest : nullptr;
}

const SectionResult* largestUnderOf(const SectionSurvey& survey) {
  const auto largest =
      std::min_element(survey.results.begin(), survey.results.end(),
                       [](const SectionResult& a, const SectionResult& b) {
                         return distanceOf(a.largestUnder) < distanceOf(b.largestUnder);
                       });
  return largest->largestUnder ? &*largest : nullptr;
}

std::vector<std::pair<std::string, std::string>> summaryOf(const SectionSurvey& survey) {
  std::vector<std::pair<std::string, std::string>> lines;
  if (survey.volumes) {
    const Volumes& volumes = *survey.volumes;
    lines.emplace_back("Length", fixed(volumes.length, 3) + " m between the first and the last");
    lines.emplace_back("Over profile", volumeText(volumes.over, volumes));
    if (survey.rule.geology) {
      lines.emplace_back("Geological", volumeText(volumes.geological, volumes));
    }
    lines.emplace_back("Under profile", volumeText(volumes.under, volumes));
  }
  if (const SectionResult* over = largestOverOf(survey)) {
    lines.emplace_back("Largest over", extremeText(survey, *over, *over->largestOver));
  }
  if (const SectionResult* under = largestUnderOf(survey)) {
    lines.emplace_back("Largest under", extremeText(survey, *under, *under->largestUnder));
  }
  return lines;
}

void printSectionTables(std::ostream& out, const SectionSurvey& survey) {
  constexpr std::size_t kNameWidth = 17;
  for (const auto& [name, value] : summaryOf(survey)) {
    out << name << std::string(kNameWidth - name.size(), ' ') << value << '\n';
  }
  print(out, areaTable(survey));
  print(out, fitTable(survey));
}

std::string sectionsAsCsv(const SectionSurvey& survey) {
  std::string text =
      lowerCase(survey.noun) +
      ",station,points,design_area,measured_area,over_area,under_area,geological_area,"
      "largest_over,over_derolment,over_x,over_y,largest_under,under_derolment,under_x,under_y,"
      "circle_x,circle_y,circle_radius,ellipse_x,ellipse_y,ellipse_a,ellipse_b,ellipse_rotation\n";
  for (const SectionResult& result : survey.results) {
    const auto& station = result.section.station;
    text += Exchange::csvCell(result.section.name) + "," + (station ? fixed(*station, 4) : "") +
            "," + std::to_string(result.deviations.size());
    for (const double area : {result.designArea, result.measuredArea, result.overArea,
                              result.underArea, result.geologicalArea}) {
      text += "," + fixed(area, 6);
    }
    text += extremeCells(result.largestOver) + extremeCells(result.largestUnder);
    const FittingResult& circle = result.circle;
    const FittingResult& ellipse = result.ellipse;
    for (const double value : {circle.center.x, circle.center.y, circle.radius, ellipse.center.x,
                               ellipse.center.y, ellipse.semiAxisA, ellipse.semiAxisB}) {
      text += "," + finiteCell(value, 6);
    }
    text += "," + finiteCell(ellipse.rotation, 8) + "\n";
  }
  return text;
}

}  // namespace TunnelSurvey
