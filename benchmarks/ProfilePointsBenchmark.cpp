// SPDX-License-Identifier: BSL-1.0
// How far beside the design profile is this point, and where along it? Asked for every point of a
// section.

#include "SpeedGoals.h"
#include "support/PolylinePeers.h"
#include "support/ProfileWorkload.h"
#include "support/QuestionLoop.h"
#include "support/Rounds.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace Benchmarks {

namespace {

using Ruv::Calculations::ProfilePointResult;
using Ruv::Calculations::ThProfileCalculator;

/// Points that a caller hands over in one list.
constexpr std::size_t kPointsOfList = kQuickAnswers;

/// Points for GEOS, whose search is linear.
constexpr std::size_t kPointsOfLinearSearch = 100;

/// Where along the profile and how far beside it a polyline says.
class ProfileTree {
 public:
  ProfileTree()
      : m_tree(closed(fineOutline())),
        m_stations(tunnelProfile().stationsOfPiecesBelow(kOutlinePiece)) {}

  /// The derolment counts from the profile's start.
  ProfilePointResult project(const Point2D& point) const {
    const PolylineFoot foot = m_tree.project(point);
    const double from = m_stations[foot.segment];
    const double station = from + foot.part * (m_stations[foot.segment + 1] - from);
    return ProfilePointResult(foot.point, -foot.offset, station);
  }

  static std::vector<Point2D> closed(std::vector<Point2D> outline) {
    const Point2D first = outline.front();
    outline.push_back(first);
    return outline;
  }

 private:
  SegmentTree m_tree;
  std::vector<double> m_stations;
};

void positionOfEveryPointOfASection(benchmark::State& state) {
  const ThProfileCalculator calculator(enterTunnelProfile());
  const std::vector<Point2D> points = pointsAround(tunnelProfile(), kItemsOfLoop).points;
  std::size_t i = 0;
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    ProfilePointResult result = calculator.calculateProfilePoint(points[i]);
    benchmark::DoNotOptimize(result);
    i = i + 1 < points.size() ? i + 1 : 0;
  }
}

BENCHMARK(positionOfEveryPointOfASection);

class ProfileContest {
 public:
  explicit ProfileContest(const Effort& effort)
      : m_calculator(enterTunnelProfile()),
        m_line(ProfileTree::closed(fineOutline())),
        m_around(pointsAround(tunnelProfile(), effort.points)),
        m_lists(inLists(m_around.points, kPointsOfList)),
        m_pointsOfTree(firstPoints(effort.pointsOfTrees)),
        m_pointsOfLine(firstPoints(kPointsOfLinearSearch)) {}

  void judge(int rounds, GoalTable& table) const {
    const char* work = "position of every point of a section";
    const std::size_t n = tunnelProfile().nodes().size() - 1;
    const std::vector<double> best =
        bestOfRounds(rounds, {ours(), tree(), line(), sineAndCosine()});
    const double time = best[0] / static_cast<double>(kPointsOfList);
    table.add({work, n, time, "1 sc", best[3], atMost(std::nullopt)});
    table.add({work, n, time, "Boost R-tree", best[1], atLeast(3.0, 5.0)});
    table.add({work, n, time, "GEOS project", best[2], atLeast(500.0)});
  }

  void check(GoalTable& table) const {
    checkOurs(table);
    checkTree(table);
  }

 private:
  std::vector<Point2D> firstPoints(std::size_t count) const {
    const auto end = static_cast<std::ptrdiff_t>(std::min(count, m_around.points.size()));
    return {m_around.points.begin(), m_around.points.begin() + end};
  }

  Contender ours() const {
    return [this] {
      return timesPerItem(m_lists, 1, [&](const std::vector<Point2D>& points) {
        std::vector<ProfilePointResult> results = m_calculator.calculateProfilePoints(points);
        benchmark::DoNotOptimize(results.data());
      });
    };
  }

  Contender tree() const {
    return [this] {
      return timesPerItem(m_pointsOfTree, kSlowAnswers, [&](const Point2D& point) {
        ProfilePointResult result = m_tree.project(point);
        benchmark::DoNotOptimize(result);
      });
    };
  }

  Contender line() const {
    return [this] {
      return timesPerItem(m_pointsOfLine, 1, [&](const Point2D& point) {
        double length = m_line.lengthTo(point);
        benchmark::DoNotOptimize(length);
      });
    };
  }

  /// The nearest place is known outside, where the profile is convex. Inside, all segments are
  /// searched.
  void checkOurs(GoalTable& table) const {
    const ExactProfile& profile = tunnelProfile();
    const long double crown = profile.stationOf(kCrownNode);
    double inDistance = 0.0;
    double inFoot = 0.0;
    double inDerolment = 0.0;
    const std::vector<ProfilePointResult> results =
        m_calculator.calculateProfilePoints(m_around.points);
    for (std::size_t i = 0; i < results.size(); ++i) {
      const Point2D& p = m_around.points[i];
      const LongPoint foot = {results[i].profilePoint.x, results[i].profilePoint.y};
      const double offset = m_around.offsets[i];
      const long double distance = offset > 0.0 ? offset : -profile.distanceTo({p.x, p.y});
      inDistance = worse(inDistance, static_cast<double>(std::abs(results[i].distance - distance)));
      const long double fromFoot = distanceBetween(foot, {p.x, p.y}) - std::abs(distance);
      inFoot = worse(inFoot, static_cast<double>(std::abs(fromFoot)));
      inFoot = worse(inFoot, static_cast<double>(profile.distanceTo(foot)));
      const long double station = std::fmod(crown + results[i].derolment + profile.circumference(),
                                            profile.circumference());
      const long double fromPlace = distanceBetween(profile.at(station).point, foot);
      inDerolment = worse(inDerolment, static_cast<double>(fromPlace));
    }
    const std::size_t n = profile.nodes().size() - 1;
    table.add({"distance", n, results.size(), inDistance, "m", 1e-9});
    table.add({"nearest point", n, results.size(), inFoot, "m", 1e-9});
    table.add({"derolment", n, results.size(), inDerolment, "m", kCrownAccuracy});
  }

  void checkTree(GoalTable& table) const {
    double inDistance = 0.0;
    double inStation = 0.0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < m_pointsOfTree.size(); ++i) {
      if (m_around.offsets[i] < 0.0) continue;  // the truth is known outside
      ++count;
      const ProfilePointResult result = m_tree.project(m_pointsOfTree[i]);
      inDistance = worse(inDistance, std::abs(result.distance - m_around.offsets[i]));
      inStation = worse(inStation, std::abs(result.derolment - m_around.stations[i]));
    }
    const std::size_t n = tunnelProfile().nodes().size() - 1;
    table.add({"distance by Boost R-tree", n, count, inDistance, "m", std::nullopt});
    table.add({"derolment by Boost R-tree", n, count, inStation, "m", std::nullopt});
  }

  /// The crown, from which derolments count, is found on samples.
  static constexpr double kCrownAccuracy = 1e-5;

  ThProfileCalculator m_calculator;
  ProfileTree m_tree;
  LineString m_line;
  PointsAround m_around;
  std::vector<std::vector<Point2D>> m_lists;
  std::vector<Point2D> m_pointsOfTree;
  std::vector<Point2D> m_pointsOfLine;
};

}  // namespace

void measureProfilePoints(const Effort& effort, GoalTable& table) {
  const ProfileContest contest(effort);
  contest.judge(effort.rounds, table);
  contest.check(table);
}

}  // namespace Benchmarks
