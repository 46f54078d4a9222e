// SPDX-License-Identifier: BSL-1.0
#include "support/ProfileWorkload.h"

#include "support/Angles.h"
#include "testing/Random.h"

#include <cmath>

namespace Benchmarks {

namespace {

using TestSupport::Random;

constexpr std::size_t kMostPiecesOfAnArc = 100;

constexpr std::uint64_t kPointsSeed = 5;
constexpr double kReach = 0.5;  // of the points around, to either side

constexpr LongPoint kMiddle = {0.0L, 4.0L};
constexpr double kNoise = 0.005;

/// How far the excavation reaches beyond the profile.
double overbreak(double bearing) {
  return 0.08 * std::sin(5.0 * bearing) + 0.04 * std::sin(17.0 * bearing + 1.0);
}

}  // namespace

const ExactProfile& tunnelProfile() {
  static const ExactProfile kProfile(TestSupport::roadTunnelNodes());
  return kProfile;
}

std::vector<Point2D> coarseOutline() {
  return tunnelProfile().outlineOfPiecesAbout(kOutlinePiece, kMostPiecesOfAnArc);
}

std::vector<Point2D> fineOutline() { return tunnelProfile().outlineOfPiecesBelow(kOutlinePiece); }

boost::shared_ptr<const ThProfileDefinition> enterTunnelProfile() {
  return TestSupport::profileThrough(tunnelProfile().nodes());
}

PointsAround pointsAround(const ExactProfile& profile, std::size_t count) {
  Random random(kPointsSeed);
  const auto circumference = static_cast<double>(profile.circumference());
  PointsAround around;
  for (std::size_t i = 0; i < count; ++i) {
    const double station = circumference * random.uniform();
    const double offset = kReach * (2.0 * random.uniform() - 1.0);
    const ExactProfile::Place place = profile.at(station);
    around.points.emplace_back(static_cast<double>(place.point.x + offset * place.normal.x),
                               static_cast<double>(place.point.y + offset * place.normal.y));
    around.stations.push_back(station);
    around.offsets.push_back(offset);
  }
  return around;
}

std::vector<Point2D> measuredSection(std::size_t numPoints, std::uint64_t seed) {
  Random random(seed);
  std::vector<Point2D> points;
  points.reserve(numPoints);
  for (std::size_t i = 0; i < numPoints; ++i) {
    const double bearing =
        kFullTurn * (static_cast<double>(i) + random.uniform()) / static_cast<double>(numPoints);
    const auto reach = static_cast<double>(tunnelProfile().reachFrom(kMiddle, bearing));
    const double distance = reach + overbreak(bearing) + kNoise * random.normal();
    points.emplace_back(static_cast<double>(kMiddle.x) + distance * std::sin(bearing),
                        static_cast<double>(kMiddle.y) + distance * std::cos(bearing));
  }
  return points;
}

std::vector<std::vector<Point2D>> inLists(const std::vector<Point2D>& points, std::size_t size) {
  std::vector<std::vector<Point2D>> lists;
  for (std::size_t begin = 0; begin + size <= points.size(); begin += size) {
    const auto first = points.begin() + static_cast<std::ptrdiff_t>(begin);
    lists.emplace_back(first, first + static_cast<std::ptrdiff_t>(size));
  }
  return lists;
}

}  // namespace Benchmarks
