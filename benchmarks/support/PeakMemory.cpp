// SPDX-License-Identifier: BSL-1.0
#include "support/PeakMemory.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <string>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace Benchmarks {

namespace {

/// A line such as "VmHWM:  1234 kB", in bytes.
std::optional<double> statusOf(const std::string& name) {
  constexpr double kKilobyte = 1024.0;
  std::ifstream status("/proc/self/status");
  std::string key;
  double value = 0.0;
  while (status >> key) {
    if (key == name && status >> value) return value * kKilobyte;
    status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  }
  return std::nullopt;
}

/// Memory that was freed but kept would hide what the work takes.
void returnFreeMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

bool resetPeak() {
  std::ofstream references("/proc/self/clear_refs");
  references << "5" << std::flush;
  return references.good();
}

}  // namespace

std::optional<double> extraMemoryOf(const std::function<void()>& work) {
  returnFreeMemory();
  if (!resetPeak()) return std::nullopt;
  const auto before = statusOf("VmRSS:");
  work();
  const auto peak = statusOf("VmHWM:");
  if (!before || !peak) return std::nullopt;
  return std::max(*peak - *before, 0.0);
}

}  // namespace Benchmarks
