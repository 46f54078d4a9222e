// Runs the benchmarks, or with --speed_goals compares the library with what callers could use
// instead and judges the ratios by their goals.

#include "SpeedGoals.h"

#include <benchmark/benchmark.h>

#include <array>
#include <iostream>
#include <string>
#include <vector>

namespace {

using Benchmarks::Effort;
using Benchmarks::GoalTable;

constexpr int kRounds = 7;

/// Two to three minutes.
constexpr Effort kFull = {kRounds, 1000000, 100000, 5, 10000, 100000, 1000000, 7};
/// About half a minute: fewer and smaller workloads, and no peer on the longest axis.
constexpr Effort kQuick = {kRounds, 50000, 10000, 1, 1000, 2000, 10000, 1};

constexpr const char* kHelp =
    "--speed_goals         compare with other libraries and judge the ratios\n"
    "    --quick           the same with fewer points\n"
    "    --gate            fail when a ratio misses what it must keep\n"
    "Wrong results always fail. Without --speed_goals:\n";

using Measure = void (*)(const Effort&, GoalTable&);
constexpr std::array<Measure, 9> kMeasures = {
    Benchmarks::measureAxisBuild,         Benchmarks::measureAxisToGlobal,
    Benchmarks::measureGlobalToAxis,      Benchmarks::measureProfilePoints,
    Benchmarks::measureProfileAreas,      Benchmarks::measureMeasuredReference,
    Benchmarks::measureFitting,           Benchmarks::measureResection,
    Benchmarks::measurePointDetermination};

int judgeSpeed(const Effort& effort, bool isGate) {
  GoalTable table;
  for (const Measure measure : kMeasures) {
    measure(effort, table);
  }
  std::cout << "Best times of " << effort.rounds
            << " rounds, taken in turns. sc: sine and cosine of one angle by the C library.\n\n";
  table.print(std::cout);
  return table.isEverythingCorrect() && (table.isEveryMustMet() || !isGate) ? 0 : 1;
}

int runBenchmarks(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  bool isAboutGoals = false;
  bool isQuick = false;
  bool isGate = false;
  bool isOther = false;
  for (const std::string& argument : std::vector<std::string>(argv + 1, argv + argc)) {
    if (argument == "--help") std::cout << kHelp;
    bool& flag = argument == "--speed_goals" ? isAboutGoals
                 : argument == "--quick"     ? isQuick
                 : argument == "--gate"      ? isGate
                                             : isOther;
    flag = true;
  }
  if (!isAboutGoals) return runBenchmarks(argc, argv);
  if (isOther) {
    std::cerr << kHelp;
    return 1;
  }
  return judgeSpeed(isQuick ? kQuick : kFull, isGate);
}
