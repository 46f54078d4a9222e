// SPDX-License-Identifier: BSL-1.0
// Where does the instrument stand and how is it turned? Asked with every set-up, from the ids and
// the polar measurements.

#include "SpeedGoals.h"
#include "support/ResectionPeers.h"
#include "support/ResectionWorkload.h"
#include "support/Rounds.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <limits>
#include <vector>

namespace Benchmarks {

namespace {

constexpr std::array<std::size_t, 4> kPairCounts = {3, 10, 100, 1000};

/// Where the spatial adjustment stops (m, rad).
constexpr double kNegligible = 1e-6;

/// Nobody reads the steps of the adjustment, which otherwise go to std::clog as text.
class SilentLog {
 public:
  SilentLog() : m_buffer(std::clog.rdbuf(nullptr)) {}
  SilentLog(const SilentLog&) = delete;
  SilentLog& operator=(const SilentLog&) = delete;
  ~SilentLog() { std::clog.rdbuf(m_buffer); }

 private:
  std::streambuf* m_buffer;
};

struct SetUp {
  bool isFound = false;
  ENHPoint station;
  double orientation = 0.0;
  double scale = 1.0;
  ENHPoint stationStdDev;
  double orientationStdDev = 0.0;
  double scaleStdDev = 0.0;
};

SetUp inPlan(const Resection& resection) {
  SetUp s;
  s.isFound = resection.calculateResectionHelmert2d(
      s.station, s.orientation, s.scale, s.stationStdDev, s.orientationStdDev, s.scaleStdDev);
  return s;
}

SetUp inSpace(const Resection& resection) {
  SetUp s;
  s.isFound = resection.calculateResectionHelmert3d(
      s.station, s.orientation, s.scale, s.stationStdDev, s.orientationStdDev, s.scaleStdDev);
  return s;
}

StationPlacement placementOf(const Resection& resection) {
  StationPlacement placement;
  resection.calculatePlacementHelmert3d(placement);
  return placement;
}

using Solve = SetUp (*)(const Resection&);

void setUp(benchmark::State& state, Solve solve) {
  const SilentLog silent;
  const Resection resection = ResectionWorkload(static_cast<std::size_t>(state.range(0))).enter();
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    SetUp found = solve(resection);
    benchmark::DoNotOptimize(found);
  }
  state.SetComplexityN(state.range(0));
}

void setUpALevelledInstrument(benchmark::State& state) { setUp(state, inPlan); }
void setUpATiltedInstrument(benchmark::State& state) { setUp(state, inSpace); }

BENCHMARK(setUpALevelledInstrument)
    ->RangeMultiplier(10)
    ->Range(10, 1000)
    ->Complexity(benchmark::oN);
BENCHMARK(setUpATiltedInstrument)->RangeMultiplier(10)->Range(10, 1000)->Complexity(benchmark::oN);

template <class Work>
Contender repeating(std::size_t numPairs, const Work& work) {
  constexpr std::size_t kPairsOfSlice = 2000;
  constexpr std::size_t kSlices = 20;
  const std::size_t calls = std::max<std::size_t>(kPairsOfSlice / numPairs, 1);
  return [calls, work] {
    return timesPerCall(kSlices, calls, [&work] {
      auto result = work();
      benchmark::DoNotOptimize(result);
    });
  };
}

class ResectionContest {
 public:
  explicit ResectionContest(std::size_t numPairs)
      : m_size(numPairs),
        m_resection(ResectionWorkload(numPairs).enter()),
        m_local(ResectionWorkload(numPairs).local()),
        m_global(ResectionWorkload(numPairs).global()),
        m_localPlan(m_local.topRows<2>()),
        m_globalPlan(m_global.topRows<2>()),
        m_placement(placementOf(m_resection)) {}

  void judge(int rounds, GoalTable& table) const {
    constexpr std::size_t kFewPairs = 10;
    const std::vector<double> best = bestOfRounds(
        rounds,
        {repeating(m_size, [this] { return inPlan(m_resection); }),
         repeating(m_size, [this] { return planeSimilarity<double>(m_localPlan, m_globalPlan); }),
         repeating(m_size, [this] { return inSpace(m_resection); }),
         repeating(
             m_size,
             [this] { return DenseGaussNewton<double>(m_local, m_global).solve(kNegligible); }),
         sineAndCosine(), repeating(m_size, [this] { return placementOf(m_resection); }),
         placingTargets()});
    // A peer starts from coordinates. What they cost is added.
    const double sc = best[4] * static_cast<double>(m_size);
    table.add({"levelled instrument", m_size, best[0], "umeyama + 5 sc per pair",
               best[1] + 5.0 * sc, atMost(1.5)});
    table.add({"levelled instrument", m_size, best[0], "umeyama alone", best[1],
               m_size <= kFewPairs ? atMost(std::nullopt, 1.0) : atMost(std::nullopt)});
    table.add({"tilted instrument", m_size, best[2], "dense Gauss-Newton + 3 sc per pair",
               best[3] + 3.0 * sc, atLeast(1.0, 1.5)});
    table.add({"placement with residuals", m_size, best[5], "the setup alone", best[2],
               atMost(std::nullopt)});
    table.add({"target placed", m_size, best[6], "1 sc", best[4], atMost(std::nullopt)});
  }

  /// Against the same least squares with wider numbers.
  void check(GoalTable& table) const {
    using Wide = long double;
    constexpr double kNegligibleWide = 1e-12;
    const Columns<Wide> local = m_local.cast<Wide>();
    const Columns<Wide> global = m_global.cast<Wide>();
    check("levelled instrument", inPlan(m_resection),
          planeSimilarity<Wide>(local.topRows<2>(), global.topRows<2>()), table);
    const Similarity<Wide> exact = DenseGaussNewton<Wide>(local, global).solve(kNegligibleWide);
    const SetUp found = inSpace(m_resection);
    check("tilted instrument", found, exact, table);
    const double inHeight = error(found.isFound, found.station.height, exact.station(2));
    table.add({"tilted instrument, height", m_size, 1, inHeight, "m", 1e-9});
    const std::array<double, 5> stdDevs = {found.stationStdDev.east, found.stationStdDev.north,
                                           found.stationStdDev.height, found.orientationStdDev,
                                           found.scaleStdDev};
    constexpr std::array<Eigen::Index, 5> kParameters = {0, 1, 2, 5, 6};
    double inStdDevs = 0.0;
    for (std::size_t i = 0; i < stdDevs.size(); ++i) {
      const Wide relative = stdDevs[i] / exact.stdDevs(kParameters[i]);
      inStdDevs = worse(inStdDevs, error(found.isFound, static_cast<double>(relative), 1.0L));
    }
    table.add({"tilted instrument, standard deviations", m_size, stdDevs.size(), inStdDevs,
               "relative", 1e-6});
  }

 private:
  Contender placingTargets() const {
    return [this] {
      std::vector<PolarPoint> targets;
      for (std::size_t i = 0; i < kQuickAnswers; ++i) {
        const double turn = 1e-3 * static_cast<double>(i);
        targets.emplace_back(turn, 1.0 + turn, 50.0);
      }
      return timesPerItem(targets, kQuickAnswers, [this](const PolarPoint& target) {
        ENHPoint placed = m_placement.toGlobal(target);
        benchmark::DoNotOptimize(placed);
      });
    };
  }

  static double error(bool isFound, double value, long double exact) {
    return isFound ? static_cast<double>(std::abs(value - exact))
                   : std::numeric_limits<double>::infinity();
  }

  void check(const std::string& work, const SetUp& found, const Similarity<long double>& exact,
             GoalTable& table) const {
    const double inPlace = worse(error(found.isFound, found.station.east, exact.station(0)),
                                 error(found.isFound, found.station.north, exact.station(1)));
    const long double turn =
        std::remainder(found.orientation - exact.orientation, 2.0L * std::acos(-1.0L));
    table.add({work + ", station", m_size, 2, inPlace, "m", 1e-9});
    table.add(
        {work + ", orientation", m_size, 1, static_cast<double>(std::abs(turn)), "rad", 1e-12});
    table.add(
        {work + ", scale", m_size, 1, error(found.isFound, found.scale, exact.scale), "", 1e-12});
  }

  std::size_t m_size;
  Resection m_resection;
  Eigen::Matrix3Xd m_local;
  Eigen::Matrix3Xd m_global;
  Eigen::Matrix2Xd m_localPlan;
  Eigen::Matrix2Xd m_globalPlan;
  StationPlacement m_placement;
};

}  // namespace

void measureResection(const Effort& effort, GoalTable& table) {
  const SilentLog silent;
  for (const std::size_t n : kPairCounts) {
    const ResectionContest contest(n);
    contest.judge(effort.rounds, table);
    contest.check(table);
  }
}

}  // namespace Benchmarks
