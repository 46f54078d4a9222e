// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionFile.h"

#include "common/exchange/Table.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;
using Ruv::Calculations::Point2D;

constexpr double kFarthestPoint = 1e6;    // of the coordinates: areas keep their digits
constexpr double kFarthestStation = 1e8;  // drawn to a usual scale; more than around the Earth

enum Column : std::size_t { Ring, Section, Station, X, Y };

struct SectionRow {
  std::string name;
  Point2D point;
  std::optional<double> station;
};

Exchange::Outcome<SectionRow> sectionRowOf(const Exchange::TableRow& row, Column nameColumn) {
  using Result = Exchange::Outcome<SectionRow>;
  const std::string& name = row.texts[nameColumn];
  if (name.empty()) return Result::failure({row.line, "the name of the section is missing"});
  const Point2D point(row.numbers[X], row.numbers[Y]);
  if (!(point.length() <= kFarthestPoint)) {
    return Result::failure({row.line, "the point lies farther than " + fixed(kFarthestPoint, 0) +
                                          " m from the section's origin"});
  }
  const double station = row.numbers[Station];
  if (std::isnan(station)) return Result::success({name, point, std::nullopt});
  if (!(std::abs(station) <= kFarthestStation)) {
    return Result::failure(
        {row.line, "the station is farther than " + fixed(kFarthestStation, 0) + " m from 0"});
  }
  return Result::success({name, point, station});
}

/// What a file tells besides its rows.
struct SectionTableForm {
  Column nameColumn = Section;
  std::string description;
};

/// Reads the rows of a file that holds a point for each; `take` gets those that can be read.
template <class Take>
Exchange::Outcome<SectionTableForm> readRows(std::istream& in, const Exchange::TableFormat& format,
                                             std::vector<Exchange::Remark>& rejected,
                                             const Take& take) {
  using Result = Exchange::Outcome<SectionTableForm>;
  const auto table = Exchange::Table::read(in, sectionColumns(), format);
  if (!table.value) return Result::failure(table.error);
  SectionTableForm form;
  form.description = table.value->layout.description;
  const auto has = [&table](Column column) { return table.value->has(column); };
  if (!has(Ring) && !has(Section) && !has(Station)) {
    return Result::failure(
        {0,
         "there is no column section, ring or station; name the columns by --columns section,x,y"});
  }
  form.nameColumn = has(Ring) ? Ring : has(Section) ? Section : Station;
  rejected = table.value->rejected;
  for (const Exchange::TableRow& row : table.value->rows) {
    const auto read = sectionRowOf(row, form.nameColumn);
    if (read.value) {
      take(*read.value, row.line);
    } else {
      rejected.push_back(read.error);
    }
  }
  return Result::success(std::move(form));
}

}  // namespace

const Exchange::TableSchema& sectionColumns() {
  using Exchange::Quantity;
  static const Exchange::TableSchema schema = {{{"ring", Quantity::Text, false},
                                                {"section", Quantity::Text, false},
                                                {"station", Quantity::Station, false},
                                                {"x"},
                                                {"y"}},
                                               {"section", "x", "y"}};
  return schema;
}

Exchange::Outcome<SectionFile> readSections(std::istream& in, const Exchange::TableFormat& format) {
  SectionFile file;
  std::map<std::string, std::size_t> places;  // in the list, by name
  const auto take = [&](const SectionRow& row, int line) {
    const auto [place, isNew] = places.emplace(row.name, file.sections.size());
    if (isNew) file.sections.push_back({row.name, row.station, {}});
    MeasuredSection& section = file.sections[place->second];
    if (section.station == row.station) {
      section.points.push_back(row.point);
    } else {
      file.rejected.push_back({line, "station is " + fixed(row.station.value_or(0.0), 3) +
                                         ", but section " + row.name + " lies at " +
                                         fixed(section.station.value_or(0.0), 3)});
    }
  };
  const auto form = readRows(in, format, file.rejected, take);
  if (!form.value) return Exchange::Outcome<SectionFile>::failure(form.error);
  if (form.value->nameColumn == Ring) file.noun = "Ring";
  file.description = form.value->description;
  return Exchange::Outcome<SectionFile>::success(std::move(file));
}

Exchange::Outcome<OriginFile> readOrigins(std::istream& in, const Exchange::TableFormat& format) {
  OriginFile file;
  std::map<std::string, int> lines;  // of the first row of each section
  const auto take = [&](const SectionRow& row, int line) {
    const auto [first, isNew] = lines.emplace(row.name, line);
    if (isNew) {
      file.origins.push_back({line, row.name, row.point, row.station});
    } else {
      file.rejected.push_back({line, "the origin of section " + row.name + " is given in line " +
                                         std::to_string(first->second)});
    }
  };
  const auto form = readRows(in, format, file.rejected, take);
  if (!form.value) return Exchange::Outcome<OriginFile>::failure(form.error);
  file.description = form.value->description;
  return Exchange::Outcome<OriginFile>::success(std::move(file));
}

void placeOnOrigins(SectionFile& file, const std::vector<SectionOrigin>& origins) {
  std::map<std::string, const SectionOrigin*> byName;
  for (const SectionOrigin& origin : origins) {
    byName.emplace(origin.name, &origin);
  }
  std::vector<MeasuredSection> placed;
  for (MeasuredSection& section : file.sections) {
    const auto found = byName.find(section.name);
    if (found == byName.end()) {
      file.rejected.push_back({0, "section " + section.name + " has no origin"});
      continue;
    }
    const SectionOrigin& origin = *found->second;
    for (Point2D& point : section.points) {
      point = point - origin.origin;
    }
    if (origin.station) section.station = origin.station;
    placed.push_back(std::move(section));
  }
  file.sections = std::move(placed);
}

void sortAlongTunnel(std::vector<MeasuredSection>& sections) {
  const bool haveStations =
      std::all_of(sections.begin(), sections.end(),
                  [](const MeasuredSection& section) { return section.station.has_value(); });
  if (!haveStations) return;
  std::stable_sort(
      sections.begin(), sections.end(),
      [](const MeasuredSection& a, const MeasuredSection& b) { return *a.station < *b.station; });
}

}  // namespace TunnelSurvey
