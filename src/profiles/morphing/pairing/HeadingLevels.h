// SPDX-License-Identifier: BSL-1.0
/// @file
/// The headings at which two walks are compared.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_HEADING_LEVELS_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_HEADING_LEVELS_H

#include "profiles/morphing/pairing/SideWalk.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

/// The headings that occur in two walks, in rising order, those that are nearly equal as one. Where
/// both outlines have the same level they are parallel.
class HeadingLevels {
 public:
  HeadingLevels() = default;
  HeadingLevels(const SideWalk& start, const SideWalk& end);

  int base() const { return levelOf(kBaseHeading); }
  int crown() const { return levelOf(kCrownHeading); }
  int levelOf(double heading) const;
  double headingOf(int level) const { return m_groups[static_cast<std::size_t>(level)].heading; }

 private:
  /// All headings from a lowest one to that of the next group.
  struct Group {
    double lowest = 0.0;
    double heading = 0.0;
  };

  std::vector<Group> m_groups;
};

/// A step between levels.
struct LevelStep {
  WalkStepKind kind = WalkStepKind::Corner;
  TurningChord chord;
  int from = 0;
  int to = 0;
  std::size_t walkStep = 0;  ///< of which it is a part

  bool isFlat() const { return from == to; }
};

using LevelSteps = std::vector<LevelStep>;

/// The steps of a walk; corners within a level are none.
LevelSteps levelSteps(const SideWalk& walk, const HeadingLevels& levels);

/// The same, cut at every level that a step passes: each step is flat or leads to a neighbour.
/// Nothing when there are too many.
std::optional<LevelSteps> unitSteps(const LevelSteps& steps, const HeadingLevels& levels);

/// Joins again what unitSteps has cut, as far as it lies side by side.
LevelSteps rejoined(const LevelSteps& units);

}  // namespace Calculations
}  // namespace Ruv

#endif
