// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/PointFile.h"

#include "common/drawing/NumberText.h"

#include <cmath>

namespace Exchange {

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

constexpr double kFullCircle = 6.283185307179586;

Outcome<SurveyedPoint> surveyedPointOf(const TableRow& row) {
  const std::vector<double>& v = row.numbers;
  return Outcome<SurveyedPoint>::success({row.line, row.texts[0], ENHPoint(v[1], v[2], v[3])});
}

Outcome<CheckPoint> checkPointOf(const TableRow& row) {
  const std::vector<double>& v = row.numbers;
  return Outcome<CheckPoint>::success(
      {row.line, AxisPoint(v[0], v[1], v[2]), ENHPoint(v[3], v[4], v[5]), v[6]});
}

}  // namespace

const TableSchema& surveyedPointColumns() {
  static const TableSchema schema = {
      {{"id", Quantity::Text, true, true}, {"east"}, {"north"}, {"height"}},
      {"id", "east", "north", "height"}};
  return schema;
}

const TableSchema& checkPointColumns() {
  static const TableSchema schema = {
      {{"station", Quantity::Station},
       {"offset"},
       {"height_above_axis"},
       {"east"},
       {"north"},
       {"height"},
       {"azimuth", Quantity::Angle}},
      {"station", "offset", "height_above_axis", "east", "north", "height", "azimuth"},
      AngleUnit::Radian};
  return schema;
}

Outcome<PointFile<SurveyedPoint>> readSurveyedPoints(std::istream& in, const TableFormat& format) {
  auto file = readPoints<SurveyedPoint>(in, surveyedPointColumns(), format, surveyedPointOf);
  if (!file.value) return file;
  std::vector<SurveyedPoint>& points = file.value->points;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (points[i].id.empty()) points[i].id = "#" + std::to_string(i + 1);
  }
  return file;
}

Outcome<PointFile<CheckPoint>> readCheckPoints(std::istream& in, const TableFormat& format) {
  auto file = readPoints<CheckPoint>(in, checkPointColumns(), format, checkPointOf);
  if (!file.value) return file;
  for (const CheckPoint& point : file.value->points) {
    if (std::abs(point.azimuth) <= kFullCircle) continue;
    return Outcome<PointFile<CheckPoint>>::failure(
        {point.line, "an azimuth of " + fixed(point.azimuth, 4) +
                         " rad is more than a full circle: give the unit in the heading or by "
                         "--angles gon or --angles deg"});
  }
  return file;
}

bool PointPlacer::place(const ENHPoint& grid, AxisPoint& onAxis) const {
  return m_calculator.enhPointToAxisPointVertical(grid, onAxis) &&
         std::abs(onAxis.offset) <= m_largestOffset;
}

bool PointPlacer::isSwapped(const ENHPoint& grid) const {
  AxisPoint onAxis;
  return !place(grid, onAxis) && place(ENHPoint(grid.north, grid.east, grid.height), onAxis);
}

std::string PointPlacer::reason(const std::string& name, const ENHPoint& grid) const {
  AxisPoint onAxis;
  std::string text = name + " lies beside no part of the axis";
  if (m_calculator.enhPointToAxisPointVertical(grid, onAxis)) {
    text = name + " lies " + fixed(onAxis.offset, 1) + " m beside the axis, farther than " +
           fixed(m_largestOffset, 1) + " m";
  }
  return isSwapped(grid) ? text + "; with east and north swapped it would lie there" : text;
}

ConvertedPoints convertPoints(const PointPlacer& placer, const std::vector<SurveyedPoint>& points) {
  ConvertedPoints converted;
  for (const SurveyedPoint& point : points) {
    AxisPoint onAxis;
    if (placer.place(point.grid, onAxis)) {
      converted.points.push_back({point.id, point.grid, onAxis});
      continue;
    }
    converted.rejected.push_back({point.line, placer.reason(point.id, point.grid)});
    if (placer.isSwapped(point.grid)) ++converted.swapped;
  }
  return converted;
}

}  // namespace Exchange
