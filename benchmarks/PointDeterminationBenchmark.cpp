// SPDX-License-Identifier: BSL-1.0
// Which fix points did the instrument measure? Asked with every set-up, with and without
// measurements that are no fix points.

#include "SpeedGoals.h"
#include "support/PeakMemory.h"
#include "support/PlainPeers.h"
#include "support/Rounds.h"
#include "support/SearchCounts.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace Benchmarks {

namespace {

constexpr std::uint64_t kStrictSeed = 1000;  // and those after it
constexpr std::uint64_t kRobustSeed = 2000;
constexpr std::size_t kMostRobustSeeds = 3;

constexpr double kMillisecond = 1e6;

/// A field of fix points, how many are measured, and what the search has to keep to.
struct FieldSize {
  std::size_t fixPoints = 0;
  std::size_t measured = 0;
  Goal plainSearch;
  Goal fits;  ///< median over the seeds
};

const std::vector<FieldSize>& fieldSizes() {
  static const std::vector<FieldSize> kSizes = {
      {20, 5, atLeast(std::nullopt), atMost(std::nullopt)},
      {200, 6, atLeast(8.0, 20.0), atMost(5.0)},
      {200, 12, atLeast(8.0, 20.0), atMost(5.0)},
      {500, 6, atLeast(std::nullopt), atMost(5.0)},
      {500, 12, atLeast(std::nullopt), atMost(5.0)},
      {2000, 10, atLeast(15.0), atMost(std::nullopt)},
      {2000, 15, atLeast(15.0, 40.0), atMost(std::nullopt)},
      {2000, 20, atLeast(15.0, 40.0), atMost(std::nullopt)}};
  return kSizes;
}

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void findMeasuredFixPoints(benchmark::State& state, std::size_t numMeasured, std::size_t numStray) {
  const FixPointWorkload workload(static_cast<std::size_t>(state.range(0)), numMeasured, numStray,
                                  numStray == 0 ? kStrictSeed : kRobustSeed);
  constexpr double kNanosecond = 1e-9;
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    PointDetermination determination = workload.enter();
    state.SetIterationTime(kNanosecond * nanosecondsOf([&] {
                             bool ok = determination.determineMeasuredPointsRobust();
                             benchmark::DoNotOptimize(ok);
                           }));
  }
  state.SetComplexityN(state.range(0));
}

void fixPointsOfAllMeasurements(benchmark::State& state) { findMeasuredFixPoints(state, 12, 0); }
void fixPointsAmongStrayMeasurements(benchmark::State& state) {
  findMeasuredFixPoints(state, 12, 3);
}

BENCHMARK(fixPointsOfAllMeasurements)
    ->RangeMultiplier(10)
    ->Range(20, 2000)
    ->UseManualTime()
    ->Complexity();
BENCHMARK(fixPointsAmongStrayMeasurements)
    ->RangeMultiplier(10)
    ->Range(20, 2000)
    ->UseManualTime()
    ->Complexity();

using Determine = bool (PointDetermination::*)();

/// Each determination has its own points, entered before: a second one would add to the result of
/// the first.
Contender determining(const FixPointWorkload& workload, std::size_t calls, Determine determine) {
  return [&workload, calls, determine] {
    std::vector<PointDetermination> determinations;
    for (std::size_t i = 0; i < calls; ++i) {
      determinations.push_back(workload.enter());
    }
    return timesPerItem(determinations, 1, [determine](PointDetermination& determination) {
      bool ok = (determination.*determine)();
      benchmark::DoNotOptimize(ok);
    });
  };
}

template <class Search>
Contender searchingPlainly(const FixPointWorkload& workload, const Search& search) {
  return [&workload, search] {
    return timesPerCall(1, 1, [&] {
      PlainSearch plain = plainSearchOf(workload);
      bool ok = search(plain);
      benchmark::DoNotOptimize(ok);
    });
  };
}

/// One rigid fit of all measured points.
Contender fittingOnce(const FixPointWorkload& workload) {
  constexpr std::size_t kFits = 1000;
  return [&workload] {
    const PlainSearch plain = plainSearchOf(workload);
    std::vector<std::size_t> fixPoints;
    for (const auto& fixPoint : workload.truth) {
      fixPoints.push_back(fixPoint.value_or(0));
    }
    return timesPerCall(1, kFits, [&] {
      bool ok = plain.fit(fixPoints);
      benchmark::DoNotOptimize(ok);
    });
  };
}

/// Over the seeds, in nanoseconds and in fits.
struct StrictResults {
  std::vector<double> ours;
  std::vector<double> plain;
  std::vector<double> enumeration;
  std::vector<double> fits;
  std::size_t numWrong = 0;
};

void judgeOnce(const FixPointWorkload& workload, int rounds, StrictResults& results) {
  constexpr std::size_t kCalls = 5;
  const std::vector<double> best = bestOfRounds(
      rounds,
      {determining(workload, kCalls, &PointDetermination::determineMeasuredPointsStrict),
       searchingPlainly(workload, [](PlainSearch& plain) { return !plain.strict().empty(); }),
       fittingOnce(workload)});
  results.ours.push_back(best[0]);
  results.plain.push_back(best[1]);
  PlainSearch plain = plainSearchOf(workload);
  plain.strict();
  results.enumeration.push_back(plain.numCombinations() * best[2]);
  results.fits.push_back(static_cast<double>(numRigidFits(workload)));
  PointDetermination determination = workload.enter();
  determination.determineMeasuredPointsStrict();
  results.numWrong += workload.numWrong(determination);
}

void judgeStrict(const FieldSize& size, const Effort& effort, GoalTable& table) {
  constexpr std::size_t kLargeField = 2000;
  constexpr std::size_t kManyMeasured = 20;
  StrictResults results;
  for (std::size_t i = 0; i < effort.seeds; ++i) {
    judgeOnce(FixPointWorkload(size.fixPoints, size.measured, 0, kStrictSeed + i), effort.rounds,
              results);
  }
  const std::string measured = ", " + std::to_string(size.measured) + " measured";
  const std::string work = "which fix points" + measured;
  const double ours = medianOf(results.ours);
  table.add(
      {work, size.fixPoints, ours, "plain search", medianOf(results.plain), size.plainSearch});
  if (size.fixPoints == kLargeField && size.measured == kManyMeasured) {
    table.add({work, size.fixPoints, ours, "enumeration, by its fits",
               medianOf(results.enumeration), atLeast(5000.0)});
    table.add({work, size.fixPoints, ours, "1 ms", kMillisecond, atMost(18.0)});
  }
  table.add(
      {"rigid fits" + measured, size.fixPoints, medianOf(results.fits), "(median)", size.fits});
  table.add({"wrong ids" + measured, size.fixPoints, size.measured * effort.seeds,
             static_cast<double>(results.numWrong), "", 0.0});
}

/// Subsets with at most so many of the measured points left out.
double numSubsets(std::size_t numMeasured, std::size_t mostLeftOut) {
  double sum = 0.0;
  double choices = 1.0;
  for (std::size_t j = 0; j <= mostLeftOut; ++j) {
    sum += choices;
    choices *= static_cast<double>(numMeasured - j) / static_cast<double>(j + 1);
  }
  return sum;
}

constexpr std::size_t kFieldWithStray = 200;
constexpr std::size_t kMeasuredWithStray = 12;

void judgeMemoryAndCounts(const FixPointWorkload& workload, std::size_t numStray,
                          const std::string& what, GoalTable& table) {
  // Partner tables take some ten kilobytes, a queue of all subsets would take 100 MB.
  constexpr double kMegabyte = 1e6;
  PointDetermination determination = workload.enter();
  const auto bytes = extraMemoryOf([&] { determination.determineMeasuredPointsRobust(); });
  if (bytes) {
    table.add({"extra memory" + what, kFieldWithStray, *bytes / kMegabyte, "MB", atMost(1.0)});
  }
  table.add({"searched subsets" + what, kFieldWithStray,
             static_cast<double>(numSearchedSubsets(workload)), "",
             atMost(numSubsets(kMeasuredWithStray, numStray))});
}

void judgeRobust(std::size_t numStray, std::uint64_t seed, const Effort& effort, GoalTable& table) {
  constexpr std::size_t kCalls = 3;
  constexpr std::size_t kManyStray = 6;
  const FixPointWorkload workload(kFieldWithStray, kMeasuredWithStray, numStray, seed);
  const std::vector<double> best = bestOfRounds(
      effort.rounds,
      {determining(workload, kCalls, &PointDetermination::determineMeasuredPointsRobust),
       searchingPlainly(workload, [](PlainSearch& plain) { return !plain.robust().empty(); })});
  PlainSearch plain = plainSearchOf(workload);
  const std::vector<PlainSearch::Solution> solutions = plain.robust();
  // Without remembering, subsets are searched as often as there are orders of leaving out.
  const double repeated =
      best[1] * numRepeatedSubsets(solutions.at(0)) / static_cast<double>(plain.searchedSubsets());
  const std::string what =
      ", 12 measured, " + std::to_string(numStray) + " stray, seed " + std::to_string(seed);
  const std::string work = "which fix points" + what;
  const bool hasGoals = numStray == kManyStray;
  table.add({work, kFieldWithStray, best[0], "plain search, subsets remembered", best[1],
             hasGoals ? atLeast(50.0) : atLeast(std::nullopt)});
  table.add({work, kFieldWithStray, best[0], "plain search, by its repeats", repeated,
             hasGoals ? atLeast(3000.0) : atLeast(std::nullopt)});
  table.add({work, kFieldWithStray, best[0], "1 ms", kMillisecond,
             hasGoals ? atMost(20.0, 5.0) : atMost(std::nullopt)});
  judgeMemoryAndCounts(workload, numStray, what, table);
  PointDetermination determination = workload.enter();
  determination.determineMeasuredPointsRobust();
  table.add({"wrong ids" + what, kFieldWithStray, kMeasuredWithStray,
             static_cast<double>(workload.numWrong(determination)), "", 0.0});
}

/// How long it takes to tell chance from evidence.
void judgeChance(std::size_t numFixPoints, const Effort& effort, GoalTable& table) {
  const FixPointWorkload workload(numFixPoints, kMeasuredWithStray, 0, kStrictSeed);
  PointDetermination determination = workload.enter();
  determination.determineMeasuredPointsStrict();
  const std::vector<double> best = bestOfRounds(effort.rounds, {[&determination] {
                                                  return timesPerCall(1, 1, [&determination] {
                                                    double expected =
                                                        determination.expectedChanceSolutions();
                                                    benchmark::DoNotOptimize(expected);
                                                  });
                                                }});
  table.add({"expected by chance, 12 measured", numFixPoints, best[0], "1 ms", kMillisecond,
             atMost(std::nullopt)});
}

/// Determinations of one kind, and those whose number expected by chance is on the wrong side.
struct Verdicts {
  std::size_t found = 0;
  std::size_t wrong = 0;

  template <class IsWrong>
  void ask(const FixPointWorkload& workload, const IsWrong& isWrong) {
    PointDetermination determination = workload.enter();
    if (!determination.determineMeasuredPointsRobust()) return;
    ++found;
    if (isWrong(determination.expectedChanceSolutions())) ++wrong;
  }

  double share() const { return static_cast<double>(wrong) / static_cast<double>(found); }
};

/// Whether strays are told from figures of six and more.
void checkChance(const Effort& effort, GoalTable& table) {
  constexpr std::size_t kFiguresOfSeed = 20;
  constexpr std::size_t kFewestSighted = 5;
  constexpr std::size_t kFewestMatching = 6;
  Verdicts strays;
  Verdicts figures;
  for (const std::size_t numFixPoints : {std::size_t{17}, std::size_t{100}, std::size_t{300}}) {
    for (std::size_t i = 0; i < kFiguresOfSeed * effort.seeds; ++i) {
      const std::size_t sighted = kFewestSighted + i % 16;
      strays.ask(FixPointWorkload(numFixPoints, sighted, sighted, kRobustSeed + i),
                 [](double expected) { return !(expected >= 0.01); });
      figures.ask(FixPointWorkload(numFixPoints, kFewestMatching + i % 10, i % 5, kStrictSeed + i),
                  [](double expected) { return !(expected < 0.001); });
    }
  }
  table.add({"strays of which fewer than 0.01 are expected", 300, strays.found, strays.share(),
             "of those found", 0.02});
  table.add({"figures of which 0.001 or more are expected", 300, figures.found, figures.share(),
             "of those found", 0.01});
}

}  // namespace

void measurePointDetermination(const Effort& effort, GoalTable& table) {
  for (const FieldSize& size : fieldSizes()) {
    judgeStrict(size, effort, table);
  }
  for (const std::size_t numStray : {std::size_t{1}, std::size_t{3}, std::size_t{6}}) {
    for (std::size_t i = 0; i < std::min(effort.seeds, kMostRobustSeeds); ++i) {
      judgeRobust(numStray, kRobustSeed + i, effort, table);
    }
  }
  judgeChance(200, effort, table);
  judgeChance(2000, effort, table);
  checkChance(effort, table);
}

}  // namespace Benchmarks
