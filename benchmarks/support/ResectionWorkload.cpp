// SPDX-License-Identifier: BSL-1.0
#include "support/ResectionWorkload.h"

#include "testing/Random.h"

#include <string>

namespace Benchmarks {

namespace {

using TestSupport::Random;

using Ruv::Calculations::Utilities;

constexpr std::uint64_t kPairSeed = 8;
constexpr double kTilt = 0.001;
constexpr double kOrientation = 1.234;
constexpr double kScale = 1.00002;
constexpr double kNoise = 0.002;

const ENHPoint kStation(600000.0, 200000.0, 500.0);

Eigen::Matrix3Xd columnsOf(const std::vector<ENHPoint>& points) {
  Eigen::Matrix3Xd columns(3, static_cast<Eigen::Index>(points.size()));
  Eigen::Index column = 0;
  for (const ENHPoint& p : points) {
    columns.col(column++) << p.east, p.north, p.height;
  }
  return columns;
}

std::wstring idOf(std::size_t index) { return L"P" + std::to_wstring(index); }

}  // namespace

ResectionWorkload::ResectionWorkload(std::size_t numPairs) {
  Random random(kPairSeed);
  const auto draw = [&random](double from, double to) {
    return from + (to - from) * random.uniform();
  };
  for (std::size_t i = 0; i < numPairs; ++i) {
    const double east = draw(-100.0, 100.0);
    const double north = draw(-100.0, 100.0);
    const ENHPoint local(east, north, draw(-5.0, 5.0));
    const ENHPoint upright = Utilities::rotateAroundEastXaxis(local, kTilt);
    ENHPoint global = Utilities::transformLocalToGlobal(upright, kStation, kOrientation, kScale);
    for (double* coordinate : {&global.east, &global.north, &global.height}) {
      *coordinate += kNoise * random.normal();
    }
    m_measurements.push_back(Utilities::convertToPolarMeasurement(local));
    m_fixPoints.push_back(global);
  }
}

Resection ResectionWorkload::enter() const {
  Resection resection;
  for (std::size_t i = 0; i < m_fixPoints.size(); ++i) {
    resection.addFixPoint(idOf(i), m_fixPoints[i]);
    resection.addMeasurement(idOf(i), m_measurements[i]);
  }
  return resection;
}

Eigen::Matrix3Xd ResectionWorkload::local() const {
  std::vector<ENHPoint> points;
  for (const PolarPoint& measurement : m_measurements) {
    points.push_back(Utilities::convertToLocalCoordinates(measurement));
  }
  return columnsOf(points);
}

Eigen::Matrix3Xd ResectionWorkload::global() const { return columnsOf(m_fixPoints); }

}  // namespace Benchmarks
