// SPDX-License-Identifier: BSL-1.0
/// @file
/// Instruments between fix points.

#ifndef CALCULATIONS_TESTS_STATIONS_SETUPS_H
#define CALCULATIONS_TESTS_STATIONS_SETUPS_H

#include "stations/SpatialRotation.h"
#include "testing/Random.h"

#include <Calculations/Resection.h>
#include <Calculations/Utilities.h>

#include <Eigen/Core>

#include <iostream>
#include <string>
#include <vector>

namespace TestSupport {

using namespace Ruv::Calculations;

/// Station, orientation, scale and the standard deviations of these, in the order of the outputs.
/// They start with values that no calculation gives.
struct Result {
  bool ok = false;
  Eigen::Matrix<double, 10, 1> values = Eigen::VectorXd::LinSpaced(10, -1.0, -10.0);

  ENHPoint station() const { return {values(0), values(1), values(2)}; }
  bool operator==(const Result& o) const { return ok == o.ok && values == o.values; }
};

constexpr Eigen::Index kOrientation = 3, kScale = 4, kScaleStdDev = 9;
inline Result resultOf(const Resection& resection,
                       decltype(&Resection::calculateResectionHelmert2d) by) {
  Result r;
  auto& v = r.values;
  ENHPoint station = r.station();
  ENHPoint stdDev(v(5), v(6), v(7));
  r.ok = (resection.*by)(station, v(kOrientation), v(kScale), stdDev, v(8), v(kScaleStdDev));
  v.head<3>() << station.east, station.north, station.height;
  v.segment<3>(5) << stdDev.east, stdDev.north, stdDev.height;
  return r;
}

inline Result inPlane(const Resection& resection) {
  return resultOf(resection, &Resection::calculateResectionHelmert2d);
}

/// @param diagnostics takes the text of std::clog; none by default
inline Result inSpace(const Resection& resection, std::streambuf* diagnostics = nullptr) {
  std::streambuf* const before = std::clog.rdbuf(diagnostics);
  Result r = resultOf(resection, &Resection::calculateResectionHelmert3d);
  std::clog.rdbuf(before);
  return r;
}

/// Without the diagnostics.
inline bool place(const Resection& resection, StationPlacement& placement) {
  std::streambuf* const before = std::clog.rdbuf(nullptr);
  const bool ok = resection.calculatePlacementHelmert3d(placement);
  std::clog.rdbuf(before);
  return ok;
}

/// What a refused calculation in space leaves.
inline Result refusedInSpace() {
  Result r;
  r.values(kScale) = 1.0;
  r.values(kScaleStdDev) = 0.0;
  return r;
}

struct Pair {
  ENHPoint local;
  ENHPoint global;
};

inline Resection resectionOf(const std::vector<Pair>& pairs, const ENHPoint& grid = ENHPoint()) {
  Resection resection;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const std::wstring id = L"P" + std::to_wstring(i);
    resection.addFixPoint(id, pairs[i].global + grid);
    resection.addMeasurement(id, Utilities::convertToPolarMeasurement(pairs[i].local));
  }
  return resection;
}

inline Eigen::Vector3d vectorOf(const ENHPoint& p) { return {p.east, p.north, p.height}; }
inline ENHPoint pointOf(const Eigen::Vector3d& v) { return {v.x(), v.y(), v.z()}; }

inline ENHPoint randomPoint(Random& random, double plan, double height) {
  return {random.uniform(-plan, plan), random.uniform(-plan, plan),
          random.uniform(-height, height)};
}

/// Translation, omega, phi, kappa and scale.
using Parameters = Eigen::Matrix<double, 7, 1>;

inline Eigen::Vector3d transformed(const Parameters& by, const ENHPoint& local) {
  return by.head<3>() + by(6) * (spatialRotation({by(3), by(4), by(5)}).matrix * vectorOf(local));
}

/// A station and the points around it, as a tilted instrument of a wrong scale sees them.
struct Scene {
  Parameters truth;
  std::vector<Pair> pairs;
};

inline Scene randomScene(Random& random, double tilt, double noise) {
  Scene scene;
  scene.truth << vectorOf(randomPoint(random, 200.0, 20.0)), random.uniform(-tilt, tilt),
      random.uniform(-tilt, tilt), random.uniform(0.0, 6.28),
      tilt == 0.0 ? 1.0 : random.uniform(0.999, 1.001);
  const std::uint64_t count = 3 + random.index(8);
  for (std::uint64_t i = 0; i < count; ++i) {
    const ENHPoint local = randomPoint(random, 60.0, 20.0);
    const ENHPoint global = pointOf(transformed(scene.truth, local));
    scene.pairs.push_back({local, global + randomPoint(random, noise, noise)});
  }
  return scene;
}

inline const ENHPoint kGrid(600000.0, 200000.0, 500.0);

inline const std::vector<Pair> kSquare = {{{10.0, 0.0, 1.0}, {110.0, 200.0, 51.0}},
                                          {{0.0, 10.0, 0.0}, {100.0, 210.0, 50.0}},
                                          {{-10.0, 0.0, 2.0}, {90.0, 200.0, 52.0}},
                                          {{0.0, -10.0, 0.0}, {100.0, 190.0, 50.0}}};

}  // namespace TestSupport

#endif
