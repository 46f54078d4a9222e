// SPDX-License-Identifier: BSL-1.0
/// @file
/// The plain search for measured fix points as a peer: with the tolerances that a determination of
/// points begins with, and branches that end early.

#ifndef CALCULATIONS_BENCHMARKS_PLAIN_PEERS_H
#define CALCULATIONS_BENCHMARKS_PLAIN_PEERS_H

#include "testing/FixPoints.h"
#include "testing/PlainSearch.h"

namespace Benchmarks {

using Ruv::Calculations::PointDetermination;
using TestSupport::FixPointWorkload;
using TestSupport::PlainSearch;

PlainSearch plainSearchOf(const FixPointWorkload& workload);

/// How many subsets are searched until this solution is found, when subsets are not remembered and
/// so are searched as often as there are orders of leaving out.
double numRepeatedSubsets(const PlainSearch::Solution& solution);

}  // namespace Benchmarks

#endif
