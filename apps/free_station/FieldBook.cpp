// SPDX-License-Identifier: BSL-1.0
#include "free_station/FieldBook.h"

#include "common/console/Files.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

namespace FreeStation {

namespace {

using Drawing::fixed;
using Exchange::SurveyedPoint;
using Ruv::Calculations::PolarPoint;

enum Column { Id, Horizontal, Zenith, Distance, TargetHeight, InstrumentHeight };

Exchange::Outcome<Reading> readingOf(const Exchange::TableRow& row) {
  using Result = Exchange::Outcome<Reading>;
  constexpr double kFullTurn = 6.283185307179586;
  const PolarPoint polar(row.numbers[Horizontal], row.numbers[Zenith], row.numbers[Distance]);
  if (!(polar.slopeDistance > 0.0))
    return Result::failure({row.line, "the distance is not above 0"});
  if (!(polar.verticalAngle >= 0.0 && polar.verticalAngle <= kFullTurn)) {
    return Result::failure({row.line, "the zenith angle is none from 0 to a full circle"});
  }
  const double target = row.numbers[TargetHeight];
  return Result::success({row.line, row.texts[Id], polar, std::isfinite(target) ? target : 0.0,
                          row.numbers[InstrumentHeight]});
}

/// Of several points with one id the first is kept. That they differ makes a doubt.
std::vector<SurveyedPoint> distinctPoints(Exchange::PointFile<SurveyedPoint> file,
                                          const std::string& path,
                                          std::vector<std::string>& doubts) {
  constexpr double kSamePlace = 0.0005;
  std::map<std::string, std::size_t> known;  // places among the points
  std::vector<SurveyedPoint> points;
  for (const SurveyedPoint& point : file.points) {
    const auto [first, isNew] = known.emplace(point.id, points.size());
    if (isNew) {
      points.push_back(point);
      continue;
    }
    const SurveyedPoint& kept = points[first->second];
    const double distance = (point.grid - kept.grid).length();
    file.rejected.push_back({point.line, "fix point " + point.id + " is given in line " +
                                             std::to_string(kept.line) + " already"});
    if (distance > kSamePlace) {
      doubts.push_back("fix point " + point.id + " is given twice, " + fixed(distance, 3) +
                       " m apart (lines " + std::to_string(kept.line) + " and " +
                       std::to_string(point.line) + "); the first is taken");
    }
  }
  Console::printRemarks(path, file.rejected);
  return points;
}

/// Throws a Failure when the table tells several.
std::optional<double> instrumentHeightOf(const std::vector<Reading>& readings,
                                         const std::string& path) {
  constexpr double kSameHeight = 1e-4;
  std::optional<double> height;
  for (const Reading& reading : readings) {
    if (!std::isfinite(reading.instrumentHeight)) continue;
    if (height && std::abs(*height - reading.instrumentHeight) > kSameHeight) {
      throw Console::Failure(path + ":" + std::to_string(reading.line) +
                             ": another instrument height, hence another set-up: give the "
                             "measurements of one set-up");
    }
    height = reading.instrumentHeight;
  }
  return height;
}

}  // namespace

const Exchange::TableSchema& measurementColumns() {
  using Exchange::Quantity;
  static const Exchange::TableSchema schema = {
      {{"id", Quantity::Text},
       {"horizontal_angle", Quantity::Angle},
       {"zenith_angle", Quantity::Angle},
       {"slope_distance"},
       {"target_height", Quantity::Length, false},
       {"instrument_height", Quantity::Length, false}},
      {"id", "horizontal_angle", "zenith_angle", "slope_distance"}};
  return schema;
}

Exchange::Outcome<Exchange::PointFile<Reading>> readReadings(std::istream& in,
                                                             const Exchange::TableFormat& format) {
  return Exchange::readPoints<Reading>(in, measurementColumns(), format, readingOf);
}

FieldBook readFieldBook(const FieldFiles& files, const Console::TableOptions& tables) {
  const Console::NamedTable fixPoints{"fixpoints", &Exchange::surveyedPointColumns()};
  const Console::NamedTable measurements{"measurements", &measurementColumns()};
  tables.check({fixPoints, measurements});
  FieldBook book;
  book.fixPoints = distinctPoints(Console::readTable(files.fixPoints, Exchange::readSurveyedPoints,
                                                     tables.formatFor(fixPoints)),
                                  files.fixPoints, book.doubts);
  auto read = Console::readTable(files.measurements, readReadings, tables.formatFor(measurements));
  Console::printRemarks(files.measurements, read.rejected);
  book.readings = std::move(read.points);
  book.instrumentHeight = instrumentHeightOf(book.readings, files.measurements);
  book.measurements = measurementsOf(book.readings);
  const auto boom = std::find_if(book.measurements.begin(), book.measurements.end(),
                                 [&files](const Measurement& m) { return m.id == files.boom; });
  if (boom != book.measurements.end()) {
    book.boom = *boom;
    book.measurements.erase(boom);
  } else if (files.isBoomRequired) {
    throw Console::Failure(files.measurements + ": no measurement has the id " + files.boom +
                           " of the boom point");
  }
  return book;
}

std::wstring wideId(const std::string& id) {
  std::wstring wide;
  for (const char byte : id) {
    wide += static_cast<wchar_t>(static_cast<unsigned char>(byte));
  }
  return wide;
}

}  // namespace FreeStation
