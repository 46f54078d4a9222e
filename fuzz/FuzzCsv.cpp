// SPDX-License-Identifier: BSL-1.0
// Tables of points, sections and profiles read from files; what is written reads back.

#include "FuzzInput.h"

#include "common/exchange/DesignProfile.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/SectionFile.h"

#include <cmath>
#include <string>

namespace {

using Fuzz::require;
using Fuzz::requireNear;
using namespace TunnelSurvey;

bool isFinite(const Ruv::Calculations::ENHPoint& p) {
  return std::isfinite(p.east) && std::isfinite(p.north) && std::isfinite(p.height);
}

void readAndWritePoints(const std::string& text) {
  const auto read = Exchange::readSurveyedPoints(text);
  Exchange::readScannedPoints(text);
  Exchange::readCheckPoints(text);
  if (!read.value) {
    require(!read.error.message.empty(), "a refusal has a reason");
    return;
  }
  std::vector<Exchange::ConvertedPoint> converted;
  for (const Exchange::SurveyedPoint& point : read.value->points) {
    require(isFinite(point.grid), "coordinates are finite");
    converted.push_back({point.id, point.grid, {}});
  }
  const auto again = Exchange::readSurveyedPoints(Exchange::convertedPointsAsCsv(converted));
  require(again.value && again.value->rejected.empty(), "what was written can be read");
  require(again.value->points.size() == converted.size(), "as many points are read as written");
  for (std::size_t i = 0; i < converted.size(); ++i) {
    require(again.value->points[i].id == converted[i].id, "an id comes back");
    const double east = converted[i].grid.east;
    requireNear(again.value->points[i].grid.east, east, 0.5001e-4 + 1e-15 * std::abs(east),
                "a coordinate comes back");
  }
}

void readProfile(const std::string& text) {
  const auto design = Exchange::readDesignProfile(text);
  if (!design.value) {
    require(!design.error.message.empty(), "a refusal has a reason");
    return;
  }
  require(std::isfinite(design.value->area()), "an area is finite");
  require(std::isfinite(design.value->circumference()), "a circumference is finite");
  design.value->joints();
  design.value->centroid();
  design.value->crown();
}

void readAndPlaceSections(const std::string& text) {
  const auto origins = readOrigins(text);
  auto file = readSections(text);
  if (!file.value) {
    require(!file.error.message.empty(), "a refusal has a reason");
    return;
  }
  for (const MeasuredSection& section : file.value->sections) {
    require(!section.points.empty(), "a section has points");
  }
  if (origins.value) placeOnOrigins(*file.value, origins.value->origins);
  sortAlongTunnel(file.value->sections);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  readAndWritePoints(text);
  readProfile(text);
  readAndPlaceSections(text);
  return 0;
}
