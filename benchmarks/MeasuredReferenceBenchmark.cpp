// SPDX-License-Identifier: BSL-1.0
// How far has the section moved since an earlier scan? Asked for every point of a new scan, with
// the earlier one as reference, and for single points.

#include "SpeedGoals.h"
#include "support/PolylinePeers.h"
#include "support/ProfileWorkload.h"
#include "support/Rounds.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>

namespace Benchmarks {

namespace {

using Ruv::Calculations::MeasuredProfileCalculator;
using Ruv::Calculations::ProfilePointResult;

constexpr std::array<std::size_t, 3> kScanSizes = {200, 2000, 20000};

constexpr std::uint64_t kReferenceSeed = 60;
constexpr std::uint64_t kQuerySeed = 61;

using SharedProfile = boost::shared_ptr<const MeasuredProfile>;

MeasuredProfileCalculator calculatorOn(const SharedProfile& reference) {
  return MeasuredProfileCalculator(reference, SharedProfile());
}

void movementOfASectionSinceAnEarlierScan(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  const SharedProfile reference = measuredThrough(measuredSection(n, kReferenceSeed));
  const std::vector<Point2D> points = measuredSection(n, kQuerySeed);
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    auto results = calculatorOn(reference).calculateProfilePoints(points);
    benchmark::DoNotOptimize(results.data());
  }
  state.SetComplexityN(state.range(0));
}

void movementOfOnePointSinceAnEarlierScan(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  const SharedProfile reference = measuredThrough(measuredSection(n, kReferenceSeed));
  const Point2D point = measuredSection(n, kQuerySeed).front();
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    ProfilePointResult result = calculatorOn(reference).calculateProfilePoint(point);
    benchmark::DoNotOptimize(result);
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(movementOfASectionSinceAnEarlierScan)
    ->RangeMultiplier(10)
    ->Range(200, 20000)
    ->Complexity(benchmark::oNLogN);
BENCHMARK(movementOfOnePointSinceAnEarlierScan)
    ->RangeMultiplier(10)
    ->Range(200, 20000)
    ->Complexity(benchmark::oNLogN);

std::vector<Point2D> closed(std::vector<Point2D> ring) {
  const Point2D first = ring.front();
  ring.push_back(first);
  return ring;
}

/// The nearest place of a closed polygon, found on all edges.
struct NearestOnPolygon {
  double distance = std::numeric_limits<double>::infinity();
  double station = 0.0;
};

NearestOnPolygon nearestOn(const std::vector<Point2D>& closedRing, const Point2D& p) {
  NearestOnPolygon nearest;
  double before = 0.0;
  for (std::size_t i = 0; i + 1 < closedRing.size(); ++i) {
    const Point2D chord = closedRing[i + 1] - closedRing[i];
    const Point2D ray = p - closedRing[i];
    const double length = chord.length();
    const double part = (ray.x * chord.x + ray.y * chord.y) / (length * length);
    const double along = length * std::clamp(part, 0.0, 1.0);
    const double distance = (ray - chord * (along / length)).length();
    if (distance < nearest.distance) nearest = {distance, before + along};
    before += length;
  }
  return nearest;
}

/// By the number of edges that a ray to the right crosses.
bool isInside(const std::vector<Point2D>& closedRing, const Point2D& p) {
  bool inside = false;
  for (std::size_t i = 0; i + 1 < closedRing.size(); ++i) {
    const Point2D& a = closedRing[i];
    const Point2D& b = closedRing[i + 1];
    if ((a.y > p.y) == (b.y > p.y)) continue;
    if (a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x) > p.x) inside = !inside;
  }
  return inside;
}

/// Times per point, but for the single call.
struct ScanTimes {
  double rebuilt = 0.0;
  double kept = 0.0;
  double single = 0.0;
  double tree = 0.0;
  double query = 0.0;
};

class ScanContest {
 public:
  explicit ScanContest(std::size_t numPoints)
      : m_size(numPoints),
        m_ring(closed(measuredSection(numPoints, kReferenceSeed))),
        m_points(measuredSection(numPoints, kQuerySeed)),
        m_reference(measuredThrough(measuredSection(numPoints, kReferenceSeed))),
        m_keptCalculator(m_reference, SharedProfile()),
        m_keptTree(m_ring) {}

  ScanTimes times(int rounds) const {
    const auto perCall = [this](const auto& work) -> Contender {
      constexpr std::size_t kPointsInATurn = 20000;
      return [this, work] { return timesPerCall(kPointsInATurn / m_size, 1, work); };
    };
    std::vector<double> best = bestOfRounds(
        rounds, {perCall([this] { project(calculatorOn(m_reference)); }),
                 perCall([this] { project(m_keptCalculator); }), perCall([this] { projectOne(); }),
                 perCall([this] { project(SegmentTree(m_ring)); }),
                 perCall([this] { project(m_keptTree); })});
    const auto n = static_cast<double>(m_size);
    return {best[0] / n, best[1] / n, best[2], best[3] / n, best[4] / n};
  }

  void check(GoalTable& table) const {
    constexpr std::size_t kChecked = 1000;
    const std::vector<ProfilePointResult> results =
        m_keptCalculator.calculateProfilePoints(m_points);
    const std::size_t step = std::max<std::size_t>(m_size / kChecked, 1);
    const double circumference = m_reference->getCircumference();
    double inDistance = 0.0;
    double inDerolment = 0.0;
    std::size_t count = 0;
    // Derolments count from the crown, wherever that is: only their differences are compared.
    const double origin = nearestOn(m_ring, m_points.front()).station - results.front().derolment;
    for (std::size_t i = 0; i < m_size; i += step, ++count) {
      const NearestOnPolygon nearest = nearestOn(m_ring, m_points[i]);
      const double outside = isInside(m_ring, m_points[i]) ? -nearest.distance : nearest.distance;
      inDistance = worse(inDistance, std::abs(results[i].distance - outside));
      const double along = results[i].derolment + origin - nearest.station;
      inDerolment = worse(inDerolment, std::abs(std::remainder(along, circumference)));
    }
    table.add({"distance", m_size, count, inDistance, "m", 1e-9});
    table.add({"derolment", m_size, count, inDerolment, "m", 1e-9});
  }

 private:
  void project(const MeasuredProfileCalculator& calculator) const {
    std::vector<ProfilePointResult> results = calculator.calculateProfilePoints(m_points);
    benchmark::DoNotOptimize(results.data());
  }

  void projectOne() const {
    ProfilePointResult result = calculatorOn(m_reference).calculateProfilePoint(m_points.front());
    benchmark::DoNotOptimize(result);
  }

  void project(const SegmentTree& tree) const {
    std::vector<PolylineFoot> feet;
    feet.reserve(m_points.size());
    for (const Point2D& point : m_points) {
      feet.push_back(tree.project(point));
    }
    benchmark::DoNotOptimize(feet.data());
  }

  std::size_t m_size;
  std::vector<Point2D> m_ring;
  std::vector<Point2D> m_points;
  SharedProfile m_reference;
  MeasuredProfileCalculator m_keptCalculator;
  SegmentTree m_keptTree;
};

void judge(const std::map<std::size_t, ScanTimes>& times, GoalTable& table) {
  constexpr std::size_t kMedium = 2000;
  constexpr std::size_t kLarge = 20000;
  constexpr double kMillisecond = 1e6;
  for (const auto& [n, t] : times) {
    table.add({"section against an earlier one, per point", n, t.rebuilt,
               "Boost R-tree, build and query", t.tree,
               n < kMedium ? atLeast(std::nullopt, 2.0) : atLeast(1.0, 2.0)});
  }
  for (const auto& [n, t] : times) {
    table.add({"same with the calculator kept, per point", n, t.kept, "Boost R-tree, query",
               t.query, n == kLarge ? atLeast(2.0) : atLeast(2.0, 4.0)});
  }
  table.add({"growth per point", kLarge, times.at(kLarge).rebuilt, "n = 2000",
             times.at(kMedium).rebuilt, atMost(6.0)});
  table.add({"one point against an earlier section", kLarge, times.at(kLarge).single, "1 ms",
             kMillisecond, atMost(15.0)});
  // O(n log n) is 13, quadratic would be 100. In between, for memory that is farther away.
  table.add({"growth of one point", kLarge, times.at(kLarge).single, "n = 2000",
             times.at(kMedium).single, atMost(40.0)});
}

}  // namespace

void measureMeasuredReference(const Effort& effort, GoalTable& table) {
  std::map<std::size_t, ScanTimes> times;
  for (const std::size_t n : kScanSizes) {
    const ScanContest contest(n);
    times[n] = contest.times(effort.rounds);
    contest.check(table);
  }
  judge(times, table);
}

}  // namespace Benchmarks
