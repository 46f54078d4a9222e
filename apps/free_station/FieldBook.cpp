#include "free_station/FieldBook.h"

#include "common/console/Files.h"

#include <algorithm>
#include <utility>

namespace FreeStation {

namespace {

using Ruv::Calculations::PolarPoint;
using Ruv::Calculations::Utilities;

Exchange::Outcome<Measurement> measurementOf(const Exchange::TableRow& row) {
  const PolarPoint polar(row.numbers[1], row.numbers[2], row.numbers[3]);
  return Exchange::Outcome<Measurement>::success({row.line, row.texts[0], polar});
}

Exchange::Outcome<Exchange::PointFile<Measurement>> readMeasurements(
    std::istream& in, const Exchange::TableFormat& format) {
  return Exchange::readPoints<Measurement>(in, measurementColumns(), format, measurementOf);
}

/// Only the first of several points with one id is kept.
template <class P>
std::vector<P> usable(Exchange::PointFile<P> file, const std::string& path) {
  std::vector<P> points;
  for (const P& point : file.points) {
    const bool isRepeated = std::any_of(points.begin(), points.end(),
                                        [&point](const P& p) { return p.id == point.id; });
    if (isRepeated) {
      file.rejected.push_back({point.line, "the id " + point.id + " has been used before"});
    } else {
      points.push_back(point);
    }
  }
  Console::printRemarks(path, file.rejected);
  return points;
}

}  // namespace

const Exchange::TableSchema& measurementColumns() {
  using Exchange::Quantity;
  static const Exchange::TableSchema schema = {
      {{"id", Quantity::Text},
       {"horizontal_angle", Quantity::Angle},
       {"zenith_angle", Quantity::Angle},
       {"slope_distance"}},
      {"id", "horizontal_angle", "zenith_angle", "slope_distance"}};
  return schema;
}

FieldBook readFieldBook(const std::string& fixPointFile, const std::string& measurementFile,
                        const std::string& boomId, const Console::TableOptions& tables) {
  const Console::NamedTable fixPoints{"fixpoints", &Exchange::surveyedPointColumns()};
  const Console::NamedTable measurements{"measurements", &measurementColumns()};
  tables.check({fixPoints, measurements});
  FieldBook book;
  book.fixPoints = usable(
      Console::readTable(fixPointFile, Exchange::readSurveyedPoints, tables.formatFor(fixPoints)),
      fixPointFile);
  book.measurements =
      usable(Console::readTable(measurementFile, readMeasurements, tables.formatFor(measurements)),
             measurementFile);
  const auto boom = std::find_if(book.measurements.begin(), book.measurements.end(),
                                 [&boomId](const Measurement& m) { return m.id == boomId; });
  if (boom == book.measurements.end()) {
    throw Console::Failure(measurementFile + ": no measurement has the id " + boomId +
                           " of the boom point");
  }
  book.boom = *boom;
  book.measurements.erase(boom);
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
