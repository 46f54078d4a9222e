// SPDX-License-Identifier: BSL-1.0
/// @file
/// Whether the best of several solutions stands out.

#ifndef CALCULATIONS_STATIONS_SOLUTION_SIGNIFICANCE_H
#define CALCULATIONS_STATIONS_SOLUTION_SIGNIFICANCE_H

#include <Calculations/Points.h>

#include "stations/Matching.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// Whether the first solution is the only one, has a clearly lower score than the second, or
/// places its measurements where all the others place them.
/// @param solutions best first
/// @param fixPoints those that the solutions refer to
bool isFirstSolutionSignificant(const std::vector<MatchedSolution>& solutions,
                                const std::vector<ENHPoint>& fixPoints);

}  // namespace Calculations
}  // namespace Ruv

#endif
