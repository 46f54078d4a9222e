// SPDX-License-Identifier: BSL-1.0
/// @file
/// Surveyed points and printed check coordinates, read from tables, and the converted points.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_POINT_FILE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_POINT_FILE_H

#include "common/exchange/Outcome.h"
#include "common/exchange/Table.h"
#include "common/exchange/TableFormat.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cstddef>
#include <istream>
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

/// A file is refused as a whole only when it is not known which column is which, or when no row can
/// be read; a row that cannot be read is rejected alone.
template <class P>
struct PointFile {
  std::vector<P> points;
  std::vector<Remark> rejected;
  std::string description;  ///< how the table is written; empty for the plain form
};

/// A point of each row, or a remark on it; the remarks in the order of their lines.
template <class P>
Outcome<PointFile<P>> readPoints(std::istream& in, const TableSchema& schema,
                                 const TableFormat& format,
                                 Outcome<P> (*pointOf)(const TableRow&)) {
  auto table = Table::read(in, schema, format);
  if (!table.value) return Outcome<PointFile<P>>::failure(table.error);
  PointFile<P> file;
  file.description = table.value->layout.description;
  file.rejected = std::move(table.value->rejected);
  for (const TableRow& row : table.value->rows) {
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

/// Columns id, east, north, height. Points without ids become "#1", "#2" and so on.
const TableSchema& surveyedPointColumns();
Outcome<PointFile<SurveyedPoint>> readSurveyedPoints(std::istream& in,
                                                     const TableFormat& format = {});

/// Columns station, offset, height_above_axis, east, north, height and azimuth (radians unless the
/// table says otherwise). More than a full circle is no azimuth in radians: the file is refused.
const TableSchema& checkPointColumns();
Outcome<PointFile<CheckPoint>> readCheckPoints(std::istream& in, const TableFormat& format = {});

struct ConvertedPoint {
  std::string id;
  Ruv::Calculations::ENHPoint grid;
  Ruv::Calculations::AxisPoint onAxis;
};

/// Finds stationing, offset and height above the axis. Points without a foot on the axis, or
/// farther beside it than the largest offset, have no place.
class PointPlacer {
 public:
  /// The calculator must live as long.
  PointPlacer(const Ruv::Calculations::AxisCalculator& calculator, double largestOffset)
      : m_calculator(calculator), m_largestOffset(largestOffset) {}

  /// @return whether the point has a place
  bool place(const Ruv::Calculations::ENHPoint& grid, Ruv::Calculations::AxisPoint& onAxis) const;

  /// Whether a point without a place would have one with its east and north swapped.
  bool isSwapped(const Ruv::Calculations::ENHPoint& grid) const;

  /// Why a point has none, for messages.
  std::string reason(const std::string& name, const Ruv::Calculations::ENHPoint& grid) const;

 private:
  const Ruv::Calculations::AxisCalculator& m_calculator;
  double m_largestOffset;
};

struct ConvertedPoints {
  std::vector<ConvertedPoint> points;
  std::vector<Remark> rejected;
  std::size_t swapped = 0;  ///< rejected ones that fit with east and north swapped
};

ConvertedPoints convertPoints(const PointPlacer& placer, const std::vector<SurveyedPoint>& points);

}  // namespace Exchange

#endif
