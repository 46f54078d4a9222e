#include "tunnel_survey/SectionFile.h"

#include "common/exchange/CsvTable.h"

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

constexpr double kFarthest = 1e6;         // of the coordinates: areas keep their digits
constexpr double kFarthestStation = 1e8;  // drawn to a usual scale; more than around the Earth

/// The column that names the section of a row.
std::string nameColumnOf(const Exchange::CsvTable& table) {
  for (const char* column : {"ring", "section", "station"}) {
    if (table.hasColumn(column)) return column;
  }
  return {};
}

struct SectionRow {
  std::string name;
  Point2D point;
  std::optional<double> station;
};

Exchange::Outcome<SectionRow> sectionRowOf(const Exchange::CsvRow& row,
                                           const std::string& nameColumn, bool hasStation) {
  using Result = Exchange::Outcome<SectionRow>;
  const auto name = row.text(nameColumn);
  if (!name.value) return Result::failure(name.error);
  const auto numbers = row.numbers({"x", "y"});
  if (!numbers.value) return Result::failure(numbers.error);
  const Point2D point((*numbers.value)[0], (*numbers.value)[1]);
  if (!(point.length() <= kFarthest)) {
    return Result::failure({row.line(), "the point lies farther than " + fixed(kFarthest, 0) +
                                            " m from the section's origin"});
  }
  if (!hasStation) return Result::success({*name.value, point, std::nullopt});
  const auto station = row.number("station");
  if (!station.value) return Result::failure(station.error);
  if (!(std::abs(*station.value) <= kFarthestStation)) {
    return Result::failure(
        {row.line(), "the station is farther than " + fixed(kFarthestStation, 0) + " m from 0"});
  }
  return Result::success({*name.value, point, *station.value});
}

/// Reads the rows of a file that holds a point for each; `take` gets those that can be read.
template <class Take>
Exchange::Remark readRows(const std::string& text, std::string& nameColumn,
                          std::vector<Exchange::Remark>& rejected, const Take& take) {
  Exchange::CsvTable table;
  if (!table.read(text, {"x", "y"})) return table.error();
  nameColumn = nameColumnOf(table);
  if (nameColumn.empty()) return {1, "the header line has no column section, ring or station"};
  rejected = table.unreadable();
  for (const Exchange::CsvRow& row : table.rows()) {
    const auto read = sectionRowOf(row, nameColumn, table.hasColumn("station"));
    if (read.value) {
      take(*read.value, row.line());
    } else {
      rejected.push_back(read.error);
    }
  }
  return {};
}

}  // namespace

Exchange::Outcome<SectionFile> readSections(const std::string& text) {
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
  std::string nameColumn;
  const Exchange::Remark error = readRows(text, nameColumn, file.rejected, take);
  if (!error.message.empty()) return Exchange::Outcome<SectionFile>::failure(error);
  if (nameColumn == "ring") file.noun = "Ring";
  return Exchange::Outcome<SectionFile>::success(std::move(file));
}

Exchange::Outcome<OriginFile> readOrigins(const std::string& text) {
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
  std::string nameColumn;
  const Exchange::Remark error = readRows(text, nameColumn, file.rejected, take);
  if (!error.message.empty()) return Exchange::Outcome<OriginFile>::failure(error);
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
