#include "support/ProfileWorkload.h"

#include "support/SplitMix64.h"

#include <cmath>

namespace Benchmarks {

namespace {

constexpr std::size_t kMostPiecesOfAnArc = 100;

constexpr std::uint64_t kPointsSeed = 5;
constexpr double kReach = 0.5;  // of the points around, to either side

constexpr LongPoint kMiddle = {0.0L, 4.0L};
constexpr double kNoise = 0.005;

std::vector<ProfileNode> tunnelNodes() {
  const double q = 5.5 * std::sqrt(0.5);
  return {{-4.8, 0.0, 0.0}, {-5.5, 3.0, 9.0},  {-5.5, 4.0, 0.0},  {-q, 4.0 + q, 5.5},
          {0.0, 9.5, 5.5},  {q, 4.0 + q, 5.5}, {5.5, 4.0, 5.5},   {5.5, 3.0, 0.0},
          {4.8, 0.0, 9.0},  {4.0, -0.8, 0.0},  {0.0, -1.5, 12.0}, {-4.0, -0.8, 12.0},
          {-4.8, 0.0, 0.0}};
}

/// How far the excavation reaches beyond the profile.
double overbreak(double bearing) {
  return 0.08 * std::sin(5.0 * bearing) + 0.04 * std::sin(17.0 * bearing + 1.0);
}

}  // namespace

const ExactProfile& tunnelProfile() {
  static const ExactProfile kProfile(tunnelNodes());
  return kProfile;
}

std::vector<Point2D> coarseOutline() {
  return tunnelProfile().outlineOfPiecesAbout(kOutlinePiece, kMostPiecesOfAnArc);
}

std::vector<Point2D> fineOutline() { return tunnelProfile().outlineOfPiecesBelow(kOutlinePiece); }

boost::shared_ptr<const ThProfileDefinition> enterTunnelProfile() {
  const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
  const std::vector<ProfileNode>& nodes = tunnelProfile().nodes();
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    const ProfileNode& from = nodes[i - 1];
    const ProfileNode& to = nodes[i];
    if (to.radius == 0.0) {
      profile->addSegmentStraight(from.x, from.y, to.x, to.y);
    } else {
      profile->addSegmentArc(from.x, from.y, to.x, to.y, to.radius);
    }
  }
  return profile;
}

boost::shared_ptr<const MeasuredProfile> measuredProfileThrough(
    const std::vector<Point2D>& points) {
  const boost::shared_ptr<MeasuredProfile> profile(new MeasuredProfile);
  for (const Point2D& point : points) {
    profile->addPoint(point);
  }
  return profile;
}

PointsAround pointsAround(const ExactProfile& profile, std::size_t count) {
  SplitMix64 random(kPointsSeed);
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
  SplitMix64 random(seed);
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
