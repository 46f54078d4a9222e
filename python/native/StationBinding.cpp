// SPDX-License-Identifier: BSL-1.0
// Free stations and identification of measured fix points.

#include "Arrays.h"
#include "Bindings.h"

#include <Calculations/PointDetermination.h>
#include <Calculations/Resection.h>

#include <pybind11/stl.h>

#include <array>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Hadrel {

using namespace Ruv::Calculations;

namespace {

using Three = std::array<double, 3>;
using Named = std::vector<std::pair<std::wstring, Three>>;

/// The adjustment in space tells its steps on this stream, which nobody asked for. The
/// interpreter's lock, held meanwhile, keeps two calls apart.
class Silence {
 public:
  Silence() : m_buffer(std::clog.rdbuf(nullptr)) {}
  ~Silence() { std::clog.rdbuf(m_buffer); }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  std::streambuf* m_buffer;
};

py::object resected(const Named& fixPoints, const Named& measurements, bool inSpace) {
  Resection resection;
  for (const auto& [id, p] : fixPoints) {
    resection.addFixPoint(id, {p[0], p[1], p[2]});
  }
  for (const auto& [id, p] : measurements) {
    resection.addMeasurement(id, {p[0], p[1], p[2]});
  }
  ENHPoint station;
  ENHPoint deviation;
  double orientation = 0.0;
  double orientationDeviation = 0.0;
  double scale = 1.0;
  double scaleDeviation = 0.0;
  const Silence silence;
  const bool isFound =
      inSpace ? resection.calculateResectionHelmert3d(station, orientation, scale, deviation,
                                                      orientationDeviation, scaleDeviation)
              : resection.calculateResectionHelmert2d(station, orientation, scale, deviation,
                                                      orientationDeviation, scaleDeviation);
  if (!isFound) return py::none();
  return py::make_tuple(py::make_tuple(station.east, station.north, station.height), orientation,
                        scale, py::make_tuple(deviation.east, deviation.north, deviation.height),
                        orientationDeviation, scaleDeviation);
}

struct Tolerances {
  double distance = 0.0;
  double height = 0.0;
  double tilt = 0.0;  // degrees
  int required = 0;
};

py::object identified(const Named& fixPoints, const Named& measurements, bool robust,
                      const Tolerances& tolerances) {
  PointDetermination determination;
  determination.setToleranceDistanceDifference(tolerances.distance);
  determination.setToleranceHeightDifference(tolerances.height);
  determination.setToleranceTilt(tolerances.tilt);
  determination.setMinNumberOfFixPointMeasurementsRequired(tolerances.required);
  for (const auto& [id, p] : fixPoints) {
    determination.addPoint(id, {p[0], p[1], p[2]});
  }
  for (const auto& [id, p] : measurements) {
    determination.addMeasurement(id, {p[0], p[1], p[2]});
  }
  bool isFound = false;
  double chance = 0.0;
  {
    const py::gil_scoped_release others;
    isFound = robust ? determination.determineMeasuredPointsRobust()
                     : determination.determineMeasuredPointsStrict();
    if (isFound) chance = determination.expectedChanceSolutions();
  }
  if (!isFound) return py::none();
  std::map<std::wstring, std::wstring> matches;
  for (const auto& measurement : measurements) {
    const std::wstring id = determination.getFixPointIdForMeasurementId(measurement.first);
    if (!id.empty()) matches[measurement.first] = id;
  }
  return py::make_tuple(matches, determination.isBestSolutionSignificantlyBetter(), chance);
}

}  // namespace

void bindStation(py::module_& module) {
  module.def("resected", &resected);
  module.def("identified", [](const Named& fixPoints, const Named& measurements, bool robust,
                              double distance, double height, double tilt, int required) {
    return identified(fixPoints, measurements, robust, {distance, height, tilt, required});
  });
}

}  // namespace Hadrel
