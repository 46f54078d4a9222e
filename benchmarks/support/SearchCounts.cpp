// SPDX-License-Identifier: BSL-1.0
#include "support/SearchCounts.h"

#include "stations/FixPointMatcher.h"
#include "stations/RobustDetermination.h"

namespace Benchmarks {

using Ruv::Calculations::FixPointMatcher;
using Ruv::Calculations::MatchSettings;
using Ruv::Calculations::RobustDetermination;

std::size_t numRigidFits(const FixPointWorkload& workload) {
  FixPointMatcher matcher(MatchSettings(), workload.fixPoints, workload.measured);
  matcher.matchAll();
  return matcher.fittedAssignments();
}

std::size_t numSearchedSubsets(const FixPointWorkload& workload) {
  FixPointMatcher matcher(MatchSettings(), workload.fixPoints, workload.measured);
  RobustDetermination robust(matcher);
  robust.run();
  return robust.searchedSubsets();
}

}  // namespace Benchmarks
