// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionTable.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <utility>

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

/// A column: its heading, and what it says of a section.
struct SectionColumn {
  std::string heading;
  std::function<std::string(const SectionResult&)> cell;
};

using SectionColumns = std::vector<SectionColumn>;

ResultTable tableOf(const SectionSurvey& survey, const SectionColumns& columns) {
  ResultTable table;
  for (const SectionColumn& column : columns) {
    table.headings.push_back(column.heading);
  }
  for (const SectionResult& result : survey.results) {
    std::vector<std::string> row;
    row.reserve(columns.size());
    for (const SectionColumn& column : columns) {
      row.push_back(column.cell(result));
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

void append(SectionColumns& columns, const SectionColumns& more) {
  columns.insert(columns.end(), more.begin(), more.end());
}

/// The columns that say which section it is.
SectionColumns nameColumns(const SectionSurvey& survey, int decimals) {
  SectionColumns columns = {{lowerCase(survey.noun) + "\n",
                             [](const SectionResult& result) { return result.section.name; }}};
  if (survey.hasStations()) {
    columns.push_back({"stationing\nm", [&survey, decimals](const SectionResult& result) {
                         return survey.stationing.metresText(*result.section.station, decimals);
                       }});
  }
  return columns;
}

SectionColumn areaColumn(const std::string& name, double SectionResult::*area, int decimals) {
  return {name + "\nm\u00b2",
          [area, decimals](const SectionResult& result) { return fixed(result.*area, decimals); }};
}

/// @param suffix of the names, for a table whose headings stand alone
SectionColumns areaColumns(const SectionSurvey& survey, const std::string& suffix, int decimals) {
  SectionColumns columns = {areaColumn("design" + suffix, &SectionResult::designArea, decimals),
                            areaColumn("measured" + suffix, &SectionResult::measuredArea, decimals),
                            areaColumn("over" + suffix, &SectionResult::overArea, decimals),
                            areaColumn("under" + suffix, &SectionResult::underArea, decimals)};
  if (survey.rule.geology) {
    columns.push_back(areaColumn("geological" + suffix, &SectionResult::geologicalArea, decimals));
  }
  return columns;
}

using MaybeExtreme = std::optional<Extreme> SectionResult::*;

constexpr std::array<std::pair<const char*, MaybeExtreme>, 2> kExtremes = {
    {{"over", &SectionResult::largestOver}, {"under", &SectionResult::largestUnder}}};

SectionColumn extremeColumn(const std::string& heading, MaybeExtreme extreme, int decimals,
                            const std::function<double(const Extreme&)>& value) {
  return {heading, [=](const SectionResult& result) {
            return result.*extreme ? signedFixed(value(*(result.*extreme)), decimals) : "-";
          }};
}

SectionColumn distanceColumn(const std::string& name, MaybeExtreme extreme, int decimals) {
  return extremeColumn("largest " + name + "\nm", extreme, decimals,
                       [](const Extreme& e) { return e.deviation.distance; });
}

SectionColumn derolmentColumn(const std::string& name, MaybeExtreme extreme, int decimals) {
  return extremeColumn(name + "\nm", extreme, decimals,
                       [](const Extreme& e) { return e.deviation.derolment; });
}

SectionColumns placeColumns(const std::string& name, MaybeExtreme extreme, int decimals) {
  return {derolmentColumn(name + " at derolment", extreme, decimals),
          extremeColumn(name + " at x\nm", extreme, decimals,
                        [](const Extreme& e) { return e.point.x; }),
          extremeColumn(name + " at y\nm", extreme, decimals,
                        [](const Extreme& e) { return e.point.y; })};
}

SectionColumn pointColumn() {
  return {"points\n",
          [](const SectionResult& result) { return std::to_string(result.deviations.size()); }};
}

using Fit = FittingResult SectionResult::*;

SectionColumns centreColumns(const std::string& name, Fit fit, int decimals) {
  return {{name + " x\nm",
           [=](const SectionResult& r) { return signedFixedOrDash((r.*fit).center.x, decimals); }},
          {name + " y\nm",
           [=](const SectionResult& r) { return signedFixedOrDash((r.*fit).center.y, decimals); }}};
}

SectionColumns fitColumns(int decimals, int rotationDecimals) {
  const auto length = [decimals](const std::string& name, Fit fit, double FittingResult::*size) {
    return SectionColumn{name + "\nm", [=](const SectionResult& r) {
                           return fixedOrDash((r.*fit).*size, decimals);
                         }};
  };
  SectionColumns columns = centreColumns("circle", &SectionResult::circle, decimals);
  columns.push_back(length("circle radius", &SectionResult::circle, &FittingResult::radius));
  append(columns, centreColumns("ellipse", &SectionResult::ellipse, decimals));
  columns.push_back(length("ellipse a", &SectionResult::ellipse, &FittingResult::semiAxisA));
  columns.push_back(length("ellipse b", &SectionResult::ellipse, &FittingResult::semiAxisB));
  columns.push_back({"ellipse rotation\ngon", [rotationDecimals](const SectionResult& r) {
                       return fixedOrDash(Utilities::rad2gon(r.ellipse.rotation), rotationDecimals);
                     }});
  return columns;
}

std::string volumeText(double volume, const Volumes& volumes) {
  return fixed(volume, 1) + " m\u00b3, " + fixed(volume / volumes.total.length, 3) +
         " m\u00b3/m, " + fixed(100.0 * volume / volumes.total.design, 1) + " % of the design";
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

}  // namespace

ResultTable areaTable(const SectionSurvey& survey) {
  SectionColumns columns = nameColumns(survey, 3);
  append(columns, areaColumns(survey, "", 3));
  for (const auto& [name, extreme] : kExtremes) {
    columns.push_back(distanceColumn(name, extreme, 3));
    columns.push_back(derolmentColumn("at derolment", extreme, 2));
  }
  columns.push_back(pointColumn());
  return tableOf(survey, columns);
}

ResultTable fitTable(const SectionSurvey& survey) {
  SectionColumns columns = nameColumns(survey, 3);
  append(columns, fitColumns(3, 1));
  return tableOf(survey, columns);
}

ResultTable sectionTable(const SectionSurvey& survey) {
  SectionColumns columns = nameColumns(survey, 4);
  columns.push_back(pointColumn());
  append(columns, areaColumns(survey, " area", 4));
  for (const auto& [name, extreme] : kExtremes) {
    columns.push_back(distanceColumn(name, extreme, 4));
    append(columns, placeColumns(name, extreme, 4));
  }
  append(columns, fitColumns(4, 4));
  return tableOf(survey, columns);
}

ResultTable volumeTable(const SectionSurvey& survey) {
  ResultTable table{{"from\n", "to\n", "from stationing\nm", "to stationing\nm", "length\nm",
                     "design\nm\u00b3", "over\nm\u00b3", "under\nm\u00b3"},
                    {}};
  if (survey.rule.geology) table.headings.emplace_back("geological\nm\u00b3");
  for (std::size_t i = 0; i < survey.volumes->parts.size(); ++i) {
    const VolumePart& part = survey.volumes->parts[i];
    const MeasuredSection& from = survey.results[i].section;
    const MeasuredSection& to = survey.results[i + 1].section;
    std::vector<std::string> row = {from.name,
                                    to.name,
                                    survey.stationing.metresText(*from.station, 3),
                                    survey.stationing.metresText(*to.station, 3),
                                    fixed(part.length, 3),
                                    fixed(part.design, 3),
                                    fixed(part.over, 3),
                                    fixed(part.under, 3)};
    if (survey.rule.geology) row.push_back(fixed(part.geological, 3));
    table.rows.push_back(std::move(row));
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

Facts summaryOf(const SectionSurvey& survey) {
  Facts lines;
  if (survey.volumes) {
    const Volumes& volumes = *survey.volumes;
    lines.emplace_back("Length",
                       fixed(volumes.total.length, 3) + " m between the first and the last");
    lines.emplace_back("Over profile", volumeText(volumes.total.over, volumes));
    if (survey.rule.geology) {
      lines.emplace_back("Geological", volumeText(volumes.total.geological, volumes));
    }
    lines.emplace_back("Under profile", volumeText(volumes.total.under, volumes));
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
  for (const ResultTable& table : {areaTable(survey), fitTable(survey)}) {
    out << '\n';
    print(out, table);
  }
}

}  // namespace TunnelSurvey
