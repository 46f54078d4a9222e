/// @file
/// Surveyed points and printed check coordinates, read from CSV, and the converted points.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_POINT_FILE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_POINT_FILE_H

#include "common/exchange/AlignmentModel.h"
#include "common/exchange/CsvTable.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Exchange {

struct SurveyedPoint {
  int line = 0;
  std::string id;
  Ruv::Calculations::ENHPoint grid;
};

/// What a point should be according to others.
struct CheckPoint {
  int line = 0;
  Ruv::Calculations::AxisPoint onAxis;
  Ruv::Calculations::ENHPoint grid;
  double azimuth = 0.0;
};

/// A file is refused as a whole only when its columns are missing; a row that cannot be read is
/// rejected alone.
template <class P>
struct PointFile {
  std::vector<P> points;
  std::vector<Remark> rejected;
};

/// A point of each row, or a remark on it; the remarks in the order of their lines.
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

/// Columns id, east, north, height.
Outcome<PointFile<SurveyedPoint>> readSurveyedPoints(const std::string& text);

/// Columns east, north, height.
Outcome<PointFile<SurveyedPoint>> readScannedPoints(const std::string& text);

/// Columns station, offset, height_above_axis, east, north, height (m) and azimuth (rad).
Outcome<PointFile<CheckPoint>> readCheckPoints(const std::string& text);

struct ConvertedPoint {
  std::string id;
  Ruv::Calculations::ENHPoint grid;
  Ruv::Calculations::AxisPoint onAxis;
};

/// Converts to stationing, offset and height above the axis. Points without a foot on the axis,
/// or farther beside it than the largest offset, are rejected.
Outcome<ConvertedPoint> convertPoint(const Ruv::Calculations::AxisCalculator& calculator,
                                     const SurveyedPoint& point, double largestOffset);

/// The same for many.
PointFile<ConvertedPoint> convertPoints(const Ruv::Calculations::AxisCalculator& calculator,
                                        const std::vector<SurveyedPoint>& points,
                                        double largestOffset);

/// The converted points as CSV, in metres with four decimals.
std::string convertedPointsAsCsv(const std::vector<ConvertedPoint>& points);

}  // namespace Exchange

#endif
