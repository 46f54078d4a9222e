// SPDX-License-Identifier: BSL-1.0
/// @file
/// How much the library's search for fix points has to try. Its interface does not tell, so the
/// inner classes are asked.

#ifndef CALCULATIONS_BENCHMARKS_SEARCH_COUNTS_H
#define CALCULATIONS_BENCHMARKS_SEARCH_COUNTS_H

#include "testing/FixPoints.h"

#include <cstddef>

namespace Benchmarks {

using TestSupport::FixPointWorkload;

/// Assignments of all measured points that were fitted.
std::size_t numRigidFits(const FixPointWorkload& workload);

/// Subsets of the measured points that were searched until one had a solution.
std::size_t numSearchedSubsets(const FixPointWorkload& workload);

}  // namespace Benchmarks

#endif
