// SPDX-License-Identifier: BSL-1.0
// The headings of two walks are sorted, and those that lie within a tolerance of the lowest one of
// their group are one level. They are compared with the lowest and not with their neighbour,
// because a row of headings of which each is near the next would become one level otherwise,
// however far it leads.

#include "profiles/morphing/pairing/HeadingLevels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Ruv {
namespace Calculations {

namespace {

/// Headings this close (rad) are one level. Profiles rounded to millimetres repeat a heading to
/// this order; a finer comparison would leave arcs of a few millimetres in between.
constexpr double kSameHeading = 4e-4;

/// A walk of more unit steps than this is refused. A surveyed outline of 1000 points has some
/// hundred thousand.
constexpr std::size_t kMostUnitSteps = 1000000;

void collect(const SideWalk& walk, std::vector<double>& headings) {
  for (const WalkStep& step : walk) {
    headings.push_back(step.fromHeading);
    headings.push_back(step.toHeading);
  }
}

bool isNear(double heading, double level) { return std::abs(heading - level) <= kSameHeading; }

/// Appends the parts of a turning step between neighbouring levels. The heading of an arc is linear
/// in its length, so a level lies at the fraction of the length at which it lies of the turning.
void cut(const LevelStep& step, const HeadingLevels& levels, LevelSteps& units) {
  const int direction = step.to > step.from ? 1 : -1;
  const double first = levels.headingOf(step.from);
  const double all = levels.headingOf(step.to) - first;
  double fraction = 0.0;
  for (int level = step.from; level != step.to; level += direction) {
    LevelStep unit = step;
    unit.from = level;
    unit.to = level + direction;
    const double next = unit.to == step.to ? 1.0 : (levels.headingOf(unit.to) - first) / all;
    unit.chord = step.chord.part(fraction, next);
    units.push_back(unit);
    fraction = next;
  }
}

}  // namespace

HeadingLevels::HeadingLevels(const SideWalk& start, const SideWalk& end) {
  std::vector<double> headings{kBaseHeading, kCrownHeading};
  collect(start, headings);
  collect(end, headings);
  std::sort(headings.begin(), headings.end());
  for (const double heading : headings) {
    // The tangents at base and crown are level whatever comes near them.
    const bool isLevelTangent = isNear(heading, kBaseHeading) || isNear(heading, kCrownHeading);
    const double group = !isLevelTangent                 ? heading
                         : isNear(heading, kBaseHeading) ? kBaseHeading
                                                         : kCrownHeading;
    const bool isKnown = !m_groups.empty() &&
                         (m_groups.back().heading == group ||
                          (!isLevelTangent && heading - m_groups.back().lowest <= kSameHeading));
    if (!isKnown) m_groups.push_back({heading, group});
  }
}

/// Groups are sorted by their lowest headings; the last that begins below a heading has it.
int HeadingLevels::levelOf(double heading) const {
  const auto above =
      std::upper_bound(m_groups.begin(), m_groups.end(), heading,
                       [](double value, const Group& group) { return value < group.lowest; });
  return static_cast<int>(above - m_groups.begin()) - 1;
}

LevelSteps levelSteps(const SideWalk& walk, const HeadingLevels& levels) {
  LevelSteps steps;
  for (std::size_t i = 0; i < walk.size(); ++i) {
    const int from = levels.levelOf(walk[i].fromHeading);
    const int to = levels.levelOf(walk[i].toHeading);
    if (walk[i].kind == WalkStepKind::Corner && from == to) continue;
    steps.push_back({walk[i].kind, walk[i].chord, from, to, i});
  }
  return steps;
}

std::optional<LevelSteps> unitSteps(const LevelSteps& steps, const HeadingLevels& levels) {
  // Counted before anything is cut, as a ragged outline of n points has some n^2 of them.
  std::size_t count = 0;
  for (const LevelStep& step : steps) {
    count += static_cast<std::size_t>(std::abs(step.to - step.from)) + 1;
    if (count > kMostUnitSteps) return std::nullopt;
  }
  LevelSteps units;
  units.reserve(count);
  for (const LevelStep& step : steps) {
    if (step.isFlat()) {
      units.push_back(step);
    } else {
      cut(step, levels, units);
    }
  }
  return units;
}

/// Cuts that served to compare levels would otherwise become nodes of the result.
LevelSteps rejoined(const LevelSteps& units) {
  LevelSteps steps;
  for (const LevelStep& unit : units) {
    if (steps.empty() || steps.back().walkStep != unit.walkStep) {
      steps.push_back(unit);
      continue;
    }
    steps.back().to = unit.to;
    steps.back().chord.end = unit.chord.end;
    steps.back().chord.turning += unit.chord.turning;
  }
  return steps;
}

}  // namespace Calculations
}  // namespace Ruv
