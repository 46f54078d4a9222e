#include "tunnel_survey/PointFile.h"

#include "tunnel_survey/CsvTable.h"

#include "drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

/// The cells of a row that must be numbers, in the order of the columns; else the first reason.
Outcome<std::vector<double>> numbersOf(const CsvRow& row, const std::vector<std::string>& columns) {
  std::vector<double> numbers;
  for (const std::string& column : columns) {
    const auto number = row.number(column);
    if (!number.value) return Outcome<std::vector<double>>::failure(number.error);
    numbers.push_back(*number.value);
  }
  return Outcome<std::vector<double>>::success(numbers);
}

Outcome<SurveyedPoint> surveyedPointOf(const CsvRow& row) {
  const auto id = row.text("id");
  if (!id.value) return Outcome<SurveyedPoint>::failure(id.error);
  const auto numbers = numbersOf(row, {"east", "north", "height"});
  if (!numbers.value) return Outcome<SurveyedPoint>::failure(numbers.error);
  const std::vector<double>& v = *numbers.value;
  return Outcome<SurveyedPoint>::success({row.line(), *id.value, ENHPoint(v[0], v[1], v[2])});
}

const std::vector<std::string>& checkColumns() {
  static const std::vector<std::string> columns = {
      "station", "offset", "height_above_axis", "east", "north", "height", "azimuth"};
  return columns;
}

Outcome<CheckPoint> checkPointOf(const CsvRow& row) {
  const auto numbers = numbersOf(row, checkColumns());
  if (!numbers.value) return Outcome<CheckPoint>::failure(numbers.error);
  const std::vector<double>& v = *numbers.value;
  return Outcome<CheckPoint>::success(
      {row.line(), AxisPoint(v[0], v[1], v[2]), ENHPoint(v[3], v[4], v[5]), v[6]});
}

template <class P>
Outcome<PointFile<P>> readPoints(const std::string& text, const std::vector<std::string>& columns,
                                 Outcome<P> (*pointOf)(const CsvRow&)) {
  CsvTable table;
  if (!table.read(text, columns)) return Outcome<PointFile<P>>::failure(table.error());
  PointFile<P> file;
  file.rejected = table.unreadable();
  for (const CsvRow& row : table.rows()) {
    auto point = pointOf(row);
    if (point.value) {
      file.points.push_back(*point.value);
    } else {
      file.rejected.push_back(point.error);
    }
  }
  std::sort(file.rejected.begin(), file.rejected.end(),
            [](const Remark& a, const Remark& b) { return a.line < b.line; });
  return Outcome<PointFile<P>>::success(std::move(file));
}

std::string csvCell(const std::string& text) {
  std::string cell = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') cell += '\\';
    cell += letter;
  }
  return text.find_first_of(",\"\\") == std::string::npos ? text : cell + '"';
}

}  // namespace

Outcome<PointFile<SurveyedPoint>> readSurveyedPoints(const std::string& text) {
  return readPoints<SurveyedPoint>(text, {"id", "east", "north", "height"}, surveyedPointOf);
}

Outcome<PointFile<CheckPoint>> readCheckPoints(const std::string& text) {
  return readPoints<CheckPoint>(text, checkColumns(), checkPointOf);
}

PointFile<ConvertedPoint> convertPoints(const AxisCalculator& calculator,
                                        const std::vector<SurveyedPoint>& points,
                                        double largestOffset) {
  PointFile<ConvertedPoint> file;
  for (const SurveyedPoint& point : points) {
    AxisPoint onAxis;
    if (!calculator.enhPointToAxisPointVertical(point.grid, onAxis)) {
      file.rejected.push_back({point.line, point.id + " lies beside no part of the axis"});
    } else if (!(std::abs(onAxis.offset) <= largestOffset)) {
      file.rejected.push_back({point.line, point.id + " lies " + fixed(onAxis.offset, 1) +
                                               " m beside the axis, farther than " +
                                               fixed(largestOffset, 1) + " m"});
    } else {
      file.points.push_back({point.id, point.grid, onAxis});
    }
  }
  return file;
}

std::string convertedPointsAsCsv(const std::vector<ConvertedPoint>& points) {
  std::string text = "id,station,offset,height_above_axis,east,north,height\n";
  for (const ConvertedPoint& point : points) {
    text += csvCell(point.id);
    for (const double value : {point.onAxis.stationing, point.onAxis.offset, point.onAxis.height,
                               point.grid.east, point.grid.north, point.grid.height}) {
      text += ',' + fixed(value, 4);
    }
    text += '\n';
  }
  return text;
}

}  // namespace TunnelSurvey
