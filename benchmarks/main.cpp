// Runs the benchmarks, or with --speed_goals compares the library with what callers could use
// instead and judges the ratios by their goals.

#include "SpeedGoals.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

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
    "    W4 ...            these workloads alone\n"
    "Wrong results always fail. Without --speed_goals:\n";

struct Workload {
  std::string name;
  void (*measure)(const Effort&, GoalTable&);
};

const std::array<Workload, 9> kWorkloads = {{{"W0", Benchmarks::measureAxisBuild},
                                             {"W1", Benchmarks::measureAxisToGlobal},
                                             {"W2", Benchmarks::measureGlobalToAxis},
                                             {"W3", Benchmarks::measureProfilePoints},
                                             {"W4", Benchmarks::measureProfileAreas},
                                             {"W5", Benchmarks::measureMeasuredReference},
                                             {"W6", Benchmarks::measureFitting},
                                             {"W7", Benchmarks::measureResection},
                                             {"W8", Benchmarks::measurePointDetermination}}};

/// What the command line asks for.
struct Request {
  bool isAboutGoals = false;
  bool isQuick = false;
  bool isGate = false;
  std::set<std::string> chosen;  // workloads; none for all
  bool isUnknown = false;

  bool wants(const std::string& workload) const {
    return chosen.empty() || chosen.count(workload) > 0;
  }
};

bool isWorkload(const std::string& name) {
  return std::any_of(kWorkloads.begin(), kWorkloads.end(),
                     [&name](const Workload& workload) { return workload.name == name; });
}

Request requestOf(const std::vector<std::string>& arguments) {
  Request request;
  for (const std::string& argument : arguments) {
    if (argument == "--speed_goals") {
      request.isAboutGoals = true;
    } else if (argument == "--quick") {
      request.isQuick = true;
    } else if (argument == "--gate") {
      request.isGate = true;
    } else if (isWorkload(argument)) {
      request.chosen.insert(argument);
    } else {
      request.isUnknown = true;
    }
  }
  return request;
}

int judgeSpeed(const Request& request) {
  const Effort& effort = request.isQuick ? kQuick : kFull;
  bool isAccepted = true;
  for (const Workload& workload : kWorkloads) {
    if (!request.wants(workload.name)) continue;
    GoalTable table;
    workload.measure(effort, table);
    std::cout << "## " << workload.name << "\n\n";
    table.print(std::cout);
    isAccepted =
        isAccepted && table.isEverythingCorrect() && (table.isEveryMustMet() || !request.isGate);
  }
  return isAccepted ? 0 : 1;
}

/// Gives large blocks back to the system when they are freed, so that every call gets fresh pages.
/// Otherwise glibc keeps what grows with the largest block freed so far.
void fixAllocator() {
#ifdef __GLIBC__
  constexpr int kInitialThreshold = 128 * 1024;
  mallopt(M_MMAP_THRESHOLD, kInitialThreshold);
#endif
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
  fixAllocator();
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const Request request = requestOf(arguments);
  const bool isHelpAsked = std::count(arguments.begin(), arguments.end(), "--help") > 0;
  if (isHelpAsked) std::cout << kHelp;
  if (!request.isAboutGoals) return runBenchmarks(argc, argv);
  if (request.isUnknown) {
    std::cerr << kHelp;
    return 1;
  }
  return judgeSpeed(request);
}
