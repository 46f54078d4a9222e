// SPDX-License-Identifier: BSL-1.0
#include "testing/FixPoints.h"

#include "testing/Numbers.h"

#include <cmath>
#include <numeric>
#include <utility>

namespace TestSupport {

namespace {

using Ruv::Calculations::Utilities;

constexpr double kTunnelLength = 200.0;
constexpr double kAxisHeight = 500.0;
constexpr double kTurn = 2.1;
constexpr double kNoise = 0.001;

const ENHPoint kInstrument(0.7, 100.0, 498.5);

ENHPoint seenFromTheInstrument(const ENHPoint& point, Random& random) {
  ENHPoint seen = Utilities::rotateAroundHeightZaxis(point - kInstrument, kTurn);
  for (double* coordinate : {&seen.east, &seen.north, &seen.height}) {
    *coordinate += kNoise * random.normal();
  }
  return seen;
}

std::wstring fixPointId(std::size_t index) { return L"F" + std::to_wstring(index); }
std::wstring measurementId(std::size_t index) { return L"M" + std::to_wstring(index); }

}  // namespace

ENHPoint pointOnTheWall(Random& random) {
  const double north = kTunnelLength * random.uniform();
  const double bearing = 2.0 * kPi * random.uniform();
  const double distance = 5.0 + 0.5 * (2.0 * random.uniform() - 1.0);
  return ENHPoint(distance * std::sin(bearing), north, kAxisHeight + distance * std::cos(bearing));
}

FixPointWorkload::FixPointWorkload(std::size_t numFixPoints, std::size_t numMeasured,
                                   std::size_t numStray, std::uint64_t seed) {
  Random random(seed);
  for (std::size_t i = 0; i < numFixPoints; ++i) {
    fixPoints.push_back(pointOnTheWall(random));
  }
  // The beginning of a Fisher-Yates shuffle.
  std::vector<std::size_t> order(numFixPoints);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::vector<ENHPoint> targets;
  for (std::size_t i = 0; i < numMeasured - numStray; ++i) {
    std::swap(order[i], order[i + random.index(numFixPoints - i)]);
    targets.push_back(fixPoints[order[i]]);
    truth.emplace_back(order[i]);
  }
  for (std::size_t i = 0; i < numStray; ++i) {
    const ENHPoint stray = pointOnTheWall(random);
    const auto place = static_cast<std::ptrdiff_t>(random.index(targets.size() + 1));
    targets.insert(targets.begin() + place, stray);
    truth.insert(truth.begin() + place, std::nullopt);
  }
  for (const ENHPoint& target : targets) {
    measured.push_back(seenFromTheInstrument(target, random));
  }
}

PointDetermination FixPointWorkload::enter() const {
  PointDetermination determination;
  for (std::size_t i = 0; i < fixPoints.size(); ++i) {
    determination.addPoint(fixPointId(i), fixPoints[i]);
  }
  for (std::size_t i = 0; i < measured.size(); ++i) {
    determination.addMeasurement(measurementId(i),
                                 Utilities::convertToPolarMeasurement(measured[i]));
  }
  return determination;
}

std::size_t FixPointWorkload::numWrong(const PointDetermination& determination) const {
  std::size_t wrong = 0;
  for (std::size_t i = 0; i < truth.size(); ++i) {
    const std::wstring expected = truth[i] ? fixPointId(*truth[i]) : std::wstring();
    if (determination.getFixPointIdForMeasurementId(measurementId(i)) != expected) ++wrong;
  }
  return wrong;
}

}  // namespace TestSupport
