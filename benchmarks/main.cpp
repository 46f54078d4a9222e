// SPDX-License-Identifier: BSL-1.0
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

/// Two to three minutes.
Effort fullEffort() {
  Effort effort;
  effort.rounds = 7;
  effort.points = 1000000;
  effort.pointsOfTrees = 100000;
  effort.pointsOfLinearSearches = 5;
  effort.longestAxisOfTrees = 10000;
  effort.largestSection = 100000;
  effort.largestFit = 1000000;
  effort.seeds = 7;
  return effort;
}

/// About half a minute: fewer and smaller workloads, and no peer on the longest axis.
Effort quickEffort() {
  Effort effort = fullEffort();
  effort.points = 50000;
  effort.pointsOfTrees = 10000;
  effort.pointsOfLinearSearches = 1;
  effort.longestAxisOfTrees = 1000;
  effort.largestSection = 2000;
  effort.largestFit = 10000;
  effort.seeds = 1;
  return effort;
}

constexpr const char* kHelp =
    "--speed_goals         compare with other libraries and judge the ratios\n"
    "    --quick           the same with fewer points\n"
    "    --gate            fail when a ratio misses what it must keep\n"
    "    areas ...         these workloads alone; --list names all\n"
    "Wrong results always fail. Without --speed_goals:\n";

struct Workload {
  std::string name;
  std::string question;
  void (*measure)(const Effort&, GoalTable&);
};

const std::array<Workload, 9> kWorkloads = {
    {{"entering", "How long does it take to enter an axis?", Benchmarks::measureAxisBuild},
     {"placing", "Where is this stationing?", Benchmarks::measureAxisToGlobal},
     {"locating", "Where along the axis and how far beside it is this point?",
      Benchmarks::measureGlobalToAxis},
     {"profile", "How far beside the profile is this point, and where along it?",
      Benchmarks::measureProfilePoints},
     {"areas", "How much was excavated beyond the profile, and how much is missing?",
      Benchmarks::measureProfileAreas},
     {"movement", "How far has the section moved since an earlier scan?",
      Benchmarks::measureMeasuredReference},
     {"fitting", "Which circle or ellipse fits these points best?", Benchmarks::measureFitting},
     {"setup", "Where does the instrument stand and how is it turned?",
      Benchmarks::measureResection},
     {"identifying", "Which fix points were measured? Could chance have found them?",
      Benchmarks::measurePointDetermination}}};

/// What the command line asks for.
struct Request {
  bool isAboutGoals = false;
  bool isQuick = false;
  bool isGate = false;
  std::set<std::string> chosen;  // workloads; none for all
  bool isListing = false;
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
    } else if (argument == "--list") {
      request.isListing = true;
    } else if (isWorkload(argument)) {
      request.chosen.insert(argument);
    } else {
      request.isUnknown = true;
    }
  }
  return request;
}

int judgeSpeed(const Request& request) {
  const Effort effort = request.isQuick ? quickEffort() : fullEffort();
  bool isAccepted = true;
  for (const Workload& workload : kWorkloads) {
    if (!request.wants(workload.name)) continue;
    GoalTable table;
    workload.measure(effort, table);
    std::cout << "## " << workload.question << "\n\n";
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
  if (request.isListing) {
    for (const Workload& workload : kWorkloads) {
      std::cout << workload.name << "\n";
    }
    return 0;
  }
  if (!request.isAboutGoals) return runBenchmarks(argc, argv);
  if (request.isUnknown) {
    std::cerr << kHelp;
    return 1;
  }
  return judgeSpeed(request);
}
