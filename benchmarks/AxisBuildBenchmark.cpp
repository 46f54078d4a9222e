// SPDX-License-Identifier: BSL-1.0
// How long does it take to enter an axis, and how long until it answers the first question?

#include "SpeedGoals.h"
#include "support/AxisWorkload.h"
#include "support/PolylinePeers.h"
#include "support/Rounds.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <optional>
#include <vector>

namespace Benchmarks {

namespace {

using SharedAxis = boost::shared_ptr<const AxisDefinition>;

SharedAxis enter(const AxisWorkload& workload) { return workload.build(); }

/// The first projection prepares the geometry and its search index.
SharedAxis enterAndProjectOnce(const AxisWorkload& workload) {
  SharedAxis axis = workload.build();
  const Point2D start(static_cast<double>(workload.exact().joint(0).east),
                      static_cast<double>(workload.exact().joint(0).north));
  AxisPoint result;
  bool ok = AxisCalculator(axis).enhPointToAxisPointVertical({start.x, start.y, 0.0}, result);
  benchmark::DoNotOptimize(ok);
  return axis;
}

using Make = SharedAxis (*)(const AxisWorkload&);

/// Taking the axis apart is not measured.
void makeAxes(benchmark::State& state, Make make) {
  constexpr double kNanosecond = 1e-9;
  const AxisWorkload workload(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    SharedAxis axis;
    state.SetIterationTime(kNanosecond * nanosecondsOf([&] { axis = make(workload); }));
  }
  state.SetComplexityN(state.range(0));
}

void enterAnAxis(benchmark::State& state) { makeAxes(state, enter); }

void enterAnAxisAndProjectTheFirstPoint(benchmark::State& state) {
  makeAxes(state, enterAndProjectOnce);
}

BENCHMARK(enterAnAxis)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->UseManualTime()
    ->Complexity(benchmark::oN);
BENCHMARK(enterAnAxisAndProjectTheFirstPoint)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->UseManualTime()
    ->Complexity(benchmark::oN);

/// Time per axis. Small axes are made many times in a turn; taking them apart is not measured.
Contender making(Make make, const AxisWorkload& workload) {
  constexpr std::size_t kElementsInATurn = 20000;
  constexpr std::size_t kElementsOfSlice = 1000;
  const std::size_t n = workload.exact().plan().size();
  const std::size_t numAxes = kElementsInATurn / n;
  const std::size_t axesOfSlice = std::max<std::size_t>(kElementsOfSlice / n, 1);
  return [make, &workload, numAxes, axesOfSlice] {
    std::vector<SharedAxis> axes(numAxes);
    return timesPerItem(axes, axesOfSlice, [&](SharedAxis& axis) { axis = make(workload); });
  };
}

Contender buildingATree(const std::vector<Point2D>& vertices) {
  return [&vertices] {
    std::optional<SegmentTree> tree;
    return std::vector<double>{nanosecondsOf([&] { tree.emplace(vertices); })};
  };
}

constexpr double kMicrosecond = 1e3;
constexpr double kMillisecond = 1e6;

/// Time per axis until it has all elements, and until it has answered, at each size.
struct BuildTimes {
  double entered = 0.0;
  double answered = 0.0;
};

void judgeAgainstTree(const AxisWorkload& workload, const BuildTimes& times, const Effort& effort,
                      GoalTable& table) {
  const std::size_t n = workload.exact().plan().size();
  const std::vector<Point2D> vertices = workload.polyline(kPolylineStep);
  const std::vector<double> best =
      bestOfRounds(effort.rounds, {making(enterAndProjectOnce, workload), buildingATree(vertices)});
  table.add({"enter an axis and project once", n, std::min(best[0], times.answered),
             "Boost R-tree, bulk build", best[1], atLeast(std::nullopt)});
}

void judgeBuild(const std::map<std::size_t, BuildTimes>& times, GoalTable& table) {
  constexpr std::size_t kSmall = 100;
  constexpr std::size_t kLarge = 10000;
  const auto perElement = [&](std::size_t n) {
    return times.at(n).entered / static_cast<double>(n);
  };
  for (const auto& [n, time] : times) {
    const Goal goal = n == kLarge ? atMost(0.5) : atMost(std::nullopt);
    table.add({"enter an axis, per element", n, perElement(n), "1 us", kMicrosecond, goal});
  }
  for (const auto& [n, time] : times) {
    table.add({"same with first projection, per element", n, time.answered / static_cast<double>(n),
               "1 us", kMicrosecond, atMost(std::nullopt)});
  }
  table.add({"growth of the cost per element", kLarge, perElement(kLarge), "n = 100",
             perElement(kSmall), atMost(2.0)});
  table.add({"enter an axis and project once, in all", kLarge, times.at(kLarge).answered, "1 ms",
             kMillisecond, atMost(std::nullopt, 10.0)});
}

}  // namespace

void measureAxisBuild(const Effort& effort, GoalTable& table) {
  std::map<std::size_t, BuildTimes> times;
  for (const std::size_t n : kAxisSizes) {
    const AxisWorkload workload(n);
    const std::vector<double> best = bestOfRounds(
        effort.rounds, {making(enter, workload), making(enterAndProjectOnce, workload)});
    times[n] = {best[0], best[1]};
  }
  judgeBuild(times, table);
  for (const std::size_t n : kAxisSizes) {
    if (n <= effort.longestAxisOfTrees) judgeAgainstTree(AxisWorkload(n), times[n], effort, table);
  }
}

}  // namespace Benchmarks
