// SPDX-License-Identifier: BSL-1.0
// Solutions come ranked, the best one first. The best is worth something against the others when
// the second fits clearly worse, or when all of them say the same: they put the measurements at the
// same places, and differ in the names of points only.

#include "stations/SolutionSignificance.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// A second score larger by more than this (m^2) belongs to another figure: 10 cm on one point.
constexpr double kClearlyLargerScore = 0.01;

/// Fix points up to this far apart (m) are one point under two ids.
constexpr double kSamePlace = 0.001;

/// Whether two solutions have put a measurement at the same place, or both have left it out.
bool placesAlike(std::size_t a, std::size_t b, const std::vector<ENHPoint>& fixPoints) {
  if (a == kNotAssigned || b == kNotAssigned) return a == b;
  return (fixPoints[a] - fixPoints[b]).length() <= kSamePlace;
}

/// Solutions may differ in length: measurements can be added between two determinations.
std::size_t fixPointOf(const MatchedSolution& solution, std::size_t measurement) {
  return measurement < solution.fixPoints.size() ? solution.fixPoints[measurement] : kNotAssigned;
}

bool areEquivalent(const MatchedSolution& a, const MatchedSolution& b,
                   const std::vector<ENHPoint>& fixPoints) {
  const std::size_t count = std::max(a.fixPoints.size(), b.fixPoints.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (!placesAlike(fixPointOf(a, i), fixPointOf(b, i), fixPoints)) return false;
  }
  return true;
}

}  // namespace

bool isFirstSolutionSignificant(const std::vector<MatchedSolution>& solutions,
                                const std::vector<ENHPoint>& fixPoints) {
  if (solutions.empty()) return false;
  if (solutions.size() == 1) return true;
  if (std::abs(solutions[1].score - solutions[0].score) > kClearlyLargerScore) return true;
  return std::all_of(solutions.begin() + 1, solutions.end(), [&](const MatchedSolution& other) {
    return areEquivalent(solutions.front(), other, fixPoints);
  });
}

}  // namespace Calculations
}  // namespace Ruv
