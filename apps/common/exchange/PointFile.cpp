#include "common/exchange/PointFile.h"

#include "common/drawing/NumberText.h"

#include <cmath>

namespace Exchange {

namespace {

using Drawing::fixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

Outcome<SurveyedPoint> surveyedPointOf(const CsvRow& row) {
  const auto id = row.text("id");
  if (!id.value) return Outcome<SurveyedPoint>::failure(id.error);
  const auto numbers = row.numbers({"east", "north", "height"});
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
  const auto numbers = row.numbers(checkColumns());
  if (!numbers.value) return Outcome<CheckPoint>::failure(numbers.error);
  const std::vector<double>& v = *numbers.value;
  return Outcome<CheckPoint>::success(
      {row.line(), AxisPoint(v[0], v[1], v[2]), ENHPoint(v[3], v[4], v[5]), v[6]});
}

/// Scanned points have no names.
Outcome<SurveyedPoint> scannedPointOf(const CsvRow& row) {
  const auto numbers = row.numbers({"east", "north", "height"});
  if (!numbers.value) return Outcome<SurveyedPoint>::failure(numbers.error);
  const std::vector<double>& v = *numbers.value;
  return Outcome<SurveyedPoint>::success({row.line(), "the point", ENHPoint(v[0], v[1], v[2])});
}

}  // namespace

Outcome<PointFile<SurveyedPoint>> readSurveyedPoints(const std::string& text) {
  return readPoints<SurveyedPoint>(text, {"id", "east", "north", "height"}, surveyedPointOf);
}

Outcome<PointFile<SurveyedPoint>> readScannedPoints(const std::string& text) {
  return readPoints<SurveyedPoint>(text, {"east", "north", "height"}, scannedPointOf);
}

Outcome<PointFile<CheckPoint>> readCheckPoints(const std::string& text) {
  return readPoints<CheckPoint>(text, checkColumns(), checkPointOf);
}

Outcome<ConvertedPoint> convertPoint(const AxisCalculator& calculator, const SurveyedPoint& point,
                                     double largestOffset) {
  using Result = Outcome<ConvertedPoint>;
  AxisPoint onAxis;
  if (!calculator.enhPointToAxisPointVertical(point.grid, onAxis)) {
    return Result::failure({point.line, point.id + " lies beside no part of the axis"});
  }
  if (!(std::abs(onAxis.offset) <= largestOffset)) {
    return Result::failure({point.line, point.id + " lies " + fixed(onAxis.offset, 1) +
                                            " m beside the axis, farther than " +
                                            fixed(largestOffset, 1) + " m"});
  }
  return Result::success({point.id, point.grid, onAxis});
}

PointFile<ConvertedPoint> convertPoints(const AxisCalculator& calculator,
                                        const std::vector<SurveyedPoint>& points,
                                        double largestOffset) {
  PointFile<ConvertedPoint> file;
  for (const SurveyedPoint& point : points) {
    auto converted = convertPoint(calculator, point, largestOffset);
    if (converted.value) {
      file.points.push_back(std::move(*converted.value));
    } else {
      file.rejected.push_back(std::move(converted.error));
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

}  // namespace Exchange
