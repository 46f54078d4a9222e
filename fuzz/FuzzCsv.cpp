// SPDX-License-Identifier: BSL-1.0
// Tables of points, sections and profiles, and scans, read from files.

#include "FuzzInput.h"

#include "common/exchange/DesignProfile.h"
#include "common/exchange/PointCloud.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/SectionFile.h"

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Fuzz::require;
using namespace TunnelSurvey;

bool isFinite(const Ruv::Calculations::ENHPoint& p) {
  return std::isfinite(p.east) && std::isfinite(p.north) && std::isfinite(p.height);
}

void readPoints(const std::string& text) {
  std::istringstream in(text);
  const auto read = Exchange::readSurveyedPoints(in);
  std::istringstream again(text);
  Exchange::readCheckPoints(again);
  if (!read.value) {
    require(!read.error.message.empty(), "a refusal has a reason");
    return;
  }
  for (const Exchange::SurveyedPoint& point : read.value->points) {
    require(isFinite(point.grid), "coordinates are finite");
  }
}

void readScan(const std::string& text) {
  std::istringstream in(text);
  const auto cloud = Exchange::openPointCloud(in);
  if (!cloud.value) {
    require(!cloud.error.message.empty(), "a refusal has a reason");
    return;
  }
  std::vector<Exchange::CloudPoint> points;
  while ((*cloud.value)->next(points)) {
    require(!points.empty(), "there are points as long as there are more");
    for (const Exchange::CloudPoint& point : points) {
      require(isFinite(point.grid), "coordinates are finite");
    }
  }
}

void readProfile(const std::string& text) {
  std::istringstream in(text);
  const auto design = Exchange::readDesignProfile(in);
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
  std::istringstream originText(text);
  const auto origins = readOrigins(originText);
  std::istringstream sectionText(text);
  auto file = readSections(sectionText);
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
  readPoints(text);
  readScan(text);
  readProfile(text);
  readAndPlaceSections(text);
  return 0;
}
