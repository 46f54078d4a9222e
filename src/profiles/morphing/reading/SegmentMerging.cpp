// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/SegmentMerging.h"

#include "foundation/MathConstants.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Neighbours kink by no more than this (rad), and their radii differ by no more in relation to
/// each other: parts of one element do by rounding. A kink of this size moves no point of a
/// profile by more than some nanometres.
constexpr double kSameElement = 1e-9;

/// Joined arcs turn by less than this.
constexpr double kLargestTurning = 0.99 * kPi;

bool haveSameRadius(const TurningChord& a, const TurningChord& b) {
  if (a.isArc() != b.isArc()) return false;
  return !a.isArc() || std::abs(a.radius() - b.radius()) <= kSameElement * std::abs(a.radius());
}

}  // namespace

bool areJoinable(const TurningChord& a, const TurningChord& b) {
  return std::abs(a.turning + b.turning) < kLargestTurning;
}

bool isContinued(const TurningChord& a, const TurningChord& b) {
  return haveSameRadius(a, b) && areJoinable(a, b) &&
         std::abs(turningBetween(a.headingAtEnd(), b.headingAtStart())) <= kSameElement;
}

TurningChord joined(const TurningChord& a, const TurningChord& b) {
  return {a.start, b.end, a.turning + b.turning};
}

TurningChords merged(const TurningChords& chain) {
  TurningChords elements;
  for (const TurningChord& element : chain) {
    if (!elements.empty() && isContinued(elements.back(), element)) {
      elements.back() = joined(elements.back(), element);
    } else {
      elements.push_back(element);
    }
  }
  return elements;
}

}  // namespace Calculations
}  // namespace Ruv
