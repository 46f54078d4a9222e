// SPDX-License-Identifier: BSL-1.0
// Alignments and profiles from files, read as the programs read them.

#include "Bindings.h"

#include "common/exchange/AxisBuilder.h"
#include "common/exchange/DesignProfile.h"
#include "common/exchange/LandXmlReader.h"
#include "common/exchange/PointCloud.h"

#include <pybind11/stl.h>

#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Hadrel {

namespace {

using Entry = std::pair<std::string, std::vector<double>>;

Entry entryOf(const Exchange::PlacedElement& e) {
  std::vector<double> values = {e.station, e.start.east, e.start.north, e.azimuth, e.length};
  switch (e.kind) {
    case Exchange::ElementKind::Arc:
      values.push_back(e.radiusStart);
      return {"Arc", values};
    case Exchange::ElementKind::Clothoid:
      values.insert(values.end(), {e.radiusStart, e.radiusEnd});
      return {"Clothoid", values};
    default:
      return {"Straight", values};
  }
}

Entry entryOf(const Exchange::PlacedPoint& point) {
  switch (point.rounding) {
    case Exchange::RoundingKind::Circle:
      return {"ArcRounding", {point.station, point.height, point.radius}};
    case Exchange::RoundingKind::Parabola:
      return {"ParabolaRounding", {point.station, point.height, point.radius}};
    default:
      return {"Kink", {point.station, point.height}};
  }
}

Entry entryOf(const Exchange::PlacedSlope& slope) {
  return {"Cant", {slope.stationFrom, slope.stationTo, slope.slopeFrom, slope.slopeTo}};
}

template <class Placed>
std::vector<Entry> entriesOf(const std::vector<Placed>& list) {
  std::vector<Entry> entries;
  entries.reserve(list.size());
  for (const Placed& placed : list) {
    entries.push_back(entryOf(placed));
  }
  return entries;
}

/// Plan, profile, transverse slopes, the stationing of tunnel meter 0, and what had to be assumed.
auto readLandXml(const std::string& xml, const std::string& alignment, const std::string& profile,
                 std::optional<double> cantBase) {
  const pybind11::gil_scoped_release others;
  const auto read = Exchange::valueOrThrow(Exchange::readLandXml(xml, {alignment, profile}));
  const auto built = Exchange::valueOrThrow(Exchange::buildAxis(read, cantBase));
  std::vector<std::string> notes;
  for (const Exchange::Remark& note : built.notes) {
    notes.push_back(textOf(note));
  }
  return std::make_tuple(entriesOf(built.plan), entriesOf(built.profile), entriesOf(built.slopes),
                         built.axis->getStationingMappingOrigin2d(), notes);
}

Array readProfile(const std::string& text) {
  std::istringstream in(text);
  return nodesOf(*Exchange::valueOrThrow(Exchange::readDesignProfile(in)).definition());
}

/// A row that cannot be read fails the whole.
std::vector<Exchange::CloudPoint> scanIn(const std::string& text) {
  std::istringstream in(text);
  const auto cloud = Exchange::valueOrThrow(Exchange::openPointCloud(in));
  std::vector<Exchange::CloudPoint> all;
  for (std::vector<Exchange::CloudPoint> some; cloud->next(some);) {
    all.insert(all.end(), some.begin(), some.end());
  }
  if (!cloud->problem().message.empty()) throw std::invalid_argument(textOf(cloud->problem()));
  if (cloud->rejected() > 0) throw std::invalid_argument(textOf(cloud->firstRejected().front()));
  return all;
}

Array readScan(const std::string& text) {
  std::vector<Exchange::CloudPoint> points;
  {
    const pybind11::gil_scoped_release others;
    points = scanIn(text);
  }
  Array rows = newArray(points.size(), 3);
  auto* out = pointsOf<Ruv::Calculations::ENHPoint>(rows);
  for (const Exchange::CloudPoint& point : points) {
    *out++ = point.grid;
  }
  return rows;
}

}  // namespace

void bindFiles(pybind11::module_& module) {
  module.def("read_landxml", &readLandXml);
  module.def("read_profile", &readProfile);
  module.def("read_scan", &readScan);
}

}  // namespace Hadrel
