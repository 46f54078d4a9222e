// SPDX-License-Identifier: BSL-1.0
/// @file
/// How many assignments chance alone would bring about.

#ifndef CALCULATIONS_STATIONS_CHANCE_ASSIGNMENTS_H
#define CALCULATIONS_STATIONS_CHANCE_ASSIGNMENTS_H

#include <Calculations/Points.h>

#include "stations/Matching.h"

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// The fewest points that a rigid figure has. One or two are found everywhere.
constexpr std::size_t kFewestInFigure = 3;

/// How many points of a figure a solution has matched: assigned fix points that lie within the
/// tolerance of each other count once. Two sightings of one target, or one fix point under two
/// names, are no evidence of their own.
std::size_t numMatchedPlaces(const MatchedSolution& solution,
                             const std::vector<ENHPoint>& fixPoints, double tolerance);

/// An upper estimate, by a factor of 4 to 10, of how many assignments of some of the measurements
/// to fix points would be within the tolerances if the measurements lay at random in the space of
/// the fix points.
/// @param matched of the measurements, 3 or more
double expectedChanceAssignments(const std::vector<ENHPoint>& fixPoints, std::size_t measured,
                                 std::size_t matched, const MatchSettings& settings);

}  // namespace Calculations
}  // namespace Ruv

#endif
