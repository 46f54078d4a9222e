// SPDX-License-Identifier: BSL-1.0
/// @file
/// Walks taken apart: what turns one way, and what leaves a heading and returns to it.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_HEADING_RUN_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_HEADING_RUN_H

#include "profiles/morphing/pairing/HeadingLevels.h"

#include <optional>
#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

/// What happens at one level: a flat step, or an excursion, which leaves the level and comes back
/// to it (the front of a bench, a side wall of a niche).
struct LevelItem {
  bool isExcursion = false;
  LevelSteps steps;

  double length() const;
};

using LevelItems = std::vector<LevelItem>;

/// A stretch of a walk that turns one way: one unit step between neighbouring levels, and at each
/// level any number of items.
class HeadingRun {
 public:
  HeadingRun(int first, int direction) : m_first(first), m_direction(direction), m_items(1) {}

  int first() const { return m_first; }
  int last() const { return m_first + m_direction * static_cast<int>(m_turns.size()); }
  int direction() const { return m_direction; }

  /// What the run has at a level and when it turns on from there; nothing outside its levels.
  const LevelItems* itemsAt(int level) const;
  const LevelStep* turnFrom(int level) const;

  void addItem(LevelItem item) { m_items.back().push_back(std::move(item)); }
  void addTurn(const LevelStep& turn);

 private:
  int m_first;
  int m_direction;                  // +1 or -1
  std::vector<LevelItems> m_items;  // by levels from the first
  LevelSteps m_turns;               // each from a level to the next
};

/// What it costs per metre to leave a heading: by turning clockwise first or anticlockwise first,
/// and in what direction. The front of a bench or its top is the excursion, whichever is cheaper.
struct ExcursionCosts {
  double clockwiseFirst = 1.0;
  double anticlockwiseFirst = 1.0;
  double level = 1.0;
  double plumb = 1.0;
};

/// The main run of a walk, from its first level up to its last, with the cheapest set of excursions
/// that makes it one. Nothing when lengths are not finite. O(n).
std::optional<HeadingRun> mainRunOf(const LevelSteps& units, int lastLevel,
                                    const ExcursionCosts& costs);

/// The runs of an excursion, of which each turns against the one before. An excursion begins with
/// a turn.
std::vector<HeadingRun> runsOf(const LevelSteps& units);

}  // namespace Calculations
}  // namespace Ruv

#endif
