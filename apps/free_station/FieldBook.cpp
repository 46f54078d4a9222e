#include "free_station/FieldBook.h"

#include "common/console/Files.h"

#include <algorithm>
#include <utility>

namespace FreeStation {

namespace {

using Ruv::Calculations::PolarPoint;
using Ruv::Calculations::Utilities;

Exchange::Outcome<Measurement> measurementOf(const Exchange::CsvRow& row) {
  const auto id = row.text("id");
  if (!id.value) return Exchange::Outcome<Measurement>::failure(id.error);
  const auto numbers = row.numbers({"horizontal_angle", "zenith_angle", "slope_distance"});
  if (!numbers.value) return Exchange::Outcome<Measurement>::failure(numbers.error);
  const std::vector<double>& v = *numbers.value;
  const PolarPoint polar(Utilities::gon2rad(v[0]), Utilities::gon2rad(v[1]), v[2]);
  return Exchange::Outcome<Measurement>::success({row.line(), *id.value, polar});
}

/// Only the first of several points with one id is kept.
template <class P>
std::vector<P> usable(const Exchange::Outcome<Exchange::PointFile<P>>& outcome,
                      const std::string& path) {
  Exchange::PointFile<P> file = Console::valueOrFail(outcome, path);
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

FieldBook readFieldBook(const std::string& fixPointFile, const std::string& measurementFile,
                        const std::string& boomId) {
  FieldBook book;
  book.fixPoints =
      usable(Exchange::readSurveyedPoints(Console::textOf(fixPointFile)), fixPointFile);
  const auto measurements = Exchange::readPoints<Measurement>(
      Console::textOf(measurementFile),
      {"id", "horizontal_angle", "zenith_angle", "slope_distance"}, measurementOf);
  book.measurements = usable(measurements, measurementFile);
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
