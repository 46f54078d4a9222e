// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SetOut.h"

#include "common/console/Files.h"
#include "tunnel_survey/PointTable.h"

#include <cmath>
#include <cstddef>
#include <iostream>

namespace TunnelSurvey {

namespace {

using Exchange::Outcome;
using Exchange::Quantity;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

double orZero(double number) { return std::isnan(number) ? 0.0 : number; }

Outcome<SetOutPoint> setOutPointOf(const Exchange::TableRow& row) {
  const std::vector<double>& v = row.numbers;
  return Outcome<SetOutPoint>::success({row.line, row.texts[0],
                                        AxisPoint(v[1], orZero(v[2]), orZero(v[3])),
                                        std::isnan(v[3]) && !std::isnan(v[4])});
}

}  // namespace

const Exchange::TableSchema& setOutColumns() {
  static const Exchange::TableSchema schema = {{{"id", Quantity::Text, false},
                                                {"station", Quantity::Station},
                                                {"offset", Quantity::Length, false},
                                                {"height_above_axis", Quantity::Length, false},
                                                {"height", Quantity::Length, false}},
                                               {"id", "station", "offset", "height_above_axis"}};
  return schema;
}

Outcome<Exchange::PointFile<SetOutPoint>> readSetOutPoints(std::istream& in,
                                                           const Exchange::TableFormat& format) {
  auto file = Exchange::readPoints<SetOutPoint>(in, setOutColumns(), format, setOutPointOf);
  if (!file.value) return file;
  for (const SetOutPoint& point : file.value->points) {
    if (!point.isHeightUnclear) continue;
    return Outcome<Exchange::PointFile<SetOutPoint>>::failure(
        {point.line,
         "the column height may mean the height above the axis or that of the point; name the "
         "columns by --columns setout:station,offset,height_above_axis in their order, with - for "
         "one that is not wanted"});
  }
  std::size_t number = 0;
  for (SetOutPoint& point : file.value->points) {
    ++number;
    if (point.id.empty()) point.id = std::to_string(number);
  }
  return file;
}

std::vector<Exchange::ConvertedPoint> setOut(const Options& options,
                                             const AxisCalculator& calculator,
                                             const SurveyPicture& picture) {
  const auto file =
      Console::readTable(options.setOut, readSetOutPoints, options.formatOf("setout"));
  std::vector<Exchange::Remark> rejected = file.rejected;
  std::vector<Exchange::ConvertedPoint> points;
  for (const SetOutPoint& point : file.points) {
    const auto place = picture.stationing.placeOf(point.onAxis.stationing);
    if (!place.value) {
      rejected.push_back({point.line, point.id + ": " + place.error.message});
      continue;
    }
    const AxisPoint onAxis(*place.value, point.onAxis.offset, point.onAxis.height);
    ENHPoint grid;
    if (calculator.axisPointToEnhPointVertical(onAxis, grid)) {
      points.push_back({point.id, grid, onAxis});
    } else {
      rejected.push_back({point.line, point.id + ": the stationing " +
                                          picture.stationing.text(onAxis.stationing, 3) +
                                          " lies outside the axis"});
    }
  }
  Console::printHeading("Setting out");
  print(std::cout, pointTable(points, picture));
  Console::printRemarks(options.setOut, rejected);
  if (points.empty()) throw Console::Failure(options.setOut + ": no point lies beside the axis");
  return points;
}

}  // namespace TunnelSurvey
