// SPDX-License-Identifier: BSL-1.0
// Free stations and identification of measured fix points.

#include "Arrays.h"
#include "Bindings.h"

#include <Calculations/PointDetermination.h>
#include <Calculations/Resection.h>

#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <memory>
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

Resection resectionOf(const Named& fixPoints, const Named& measurements) {
  Resection resection;
  for (const auto& [id, p] : fixPoints) {
    resection.addFixPoint(id, {p[0], p[1], p[2]});
  }
  for (const auto& [id, p] : measurements) {
    resection.addMeasurement(id, {p[0], p[1], p[2]});
  }
  return resection;
}

py::tuple tupleOf(const ENHPoint& p) { return py::make_tuple(p.east, p.north, p.height); }

py::object resectedInPlan(const Named& fixPoints, const Named& measurements) {
  ENHPoint station;
  ENHPoint deviation;
  double orientation = 0.0;
  double orientationDeviation = 0.0;
  double scale = 1.0;
  double scaleDeviation = 0.0;
  if (!resectionOf(fixPoints, measurements)
           .calculateResectionHelmert2d(station, orientation, scale, deviation,
                                        orientationDeviation, scaleDeviation)) {
    return py::none();
  }
  return py::make_tuple(tupleOf(station), orientation, scale, tupleOf(deviation),
                        orientationDeviation, scaleDeviation);
}

/// An instrument with what it was placed by, from which it comes back out of a pickle.
struct Placement {
  Named fixPoints;
  Named measurements;
  StationPlacement found;
};

std::unique_ptr<Placement> placed(const Named& fixPoints, const Named& measurements) {
  StationPlacement found;
  const Silence silence;
  if (!resectionOf(fixPoints, measurements).calculatePlacementHelmert3d(found)) return nullptr;
  return std::make_unique<Placement>(Placement{fixPoints, measurements, found});
}

/// In the order of the plan's, and the tilts behind them.
py::tuple numbersOf(const Placement& placement) {
  const StationPlacement& p = placement.found;
  return py::make_tuple(tupleOf(p.station()), p.orientation(), p.scale(),
                        tupleOf(p.stationStdDev()), p.orientationStdDev(), p.scaleStdDev(),
                        p.tiltAboutEast(), p.tiltAboutNorth());
}

Array toGrid(const Placement& placement, const Array& points, bool polar) {
  const StationPlacement& p = placement.found;
  if (polar) {
    return rowByRow<PolarPoint, ENHPoint>(
        points, 3, [&](const PolarPoint& point, std::size_t) { return p.toGlobal(point); });
  }
  return rowByRow<ENHPoint, ENHPoint>(
      points, 3, [&](const ENHPoint& point, std::size_t) { return p.toGlobal(point); });
}

Array toPolar(const Placement& placement, const Array& points) {
  return rowByRow<ENHPoint, PolarPoint>(points, 3, [&](const ENHPoint& point, std::size_t) {
    return placement.found.toPolar(point);
  });
}

std::map<std::wstring, Array> residuals(const Placement& placement) {
  std::map<std::wstring, Array> result;
  for (const auto& measurement : placement.measurements) {
    const std::vector<ENHPoint> list = placement.found.residuals(measurement.first);
    if (list.empty()) continue;
    Array rows = newArray(list.size(), 3);
    std::copy(list.begin(), list.end(), pointsOf<ENHPoint>(rows));
    result[measurement.first] = rows;
  }
  return result;
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
  py::class_<Placement>(module, "Placement")
      .def("numbers", &numbersOf)
      .def("to_grid", &toGrid)
      .def("to_polar", &toPolar)
      .def("residuals", &residuals)
      .def(py::pickle(
          [](const Placement& placement) {
            return py::make_tuple(placement.fixPoints, placement.measurements);
          },
          [](const py::tuple& state) {
            return placed(state[0].cast<Named>(), state[1].cast<Named>());
          }));
  module.def("placed", &placed);
  module.def("resected_in_plan", &resectedInPlan);
  module.def("identified", [](const Named& fixPoints, const Named& measurements, bool robust,
                              double distance, double height, double tilt, int required) {
    return identified(fixPoints, measurements, robust, {distance, height, tilt, required});
  });
}

}  // namespace Hadrel
