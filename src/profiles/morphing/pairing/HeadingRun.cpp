// SPDX-License-Identifier: BSL-1.0
// A walk of unit steps goes flat, up by one level or down by one. The main run of it only rises;
// what leads down, and what makes up for that, is left out as excursions. The cheapest set of
// excursions is a shortest way through the steps: from step k the walk goes on to step k + 1 for
// nothing, unless that leads down, or jumps to a later step j that begins at the same level, for
//
//   w (S_j - S_k) + e
//
//   S_k            length of the walk up to step k, weighted by the direction of its pieces
//   w              cost per metre of an excursion that turns in the sense in which this one begins
//   e              cost of an excursion beside its length
//
// With C_j the cost from step j to the end, a jump from k costs (C_j + w S_j) - w S_k + e. The term
// in brackets does not depend on k, so its least value per level is all that has to be remembered
// while going backwards (dynamic programming), and n steps take O(n) instead of O(n^2).

#include "profiles/morphing/pairing/HeadingRun.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// Every excursion costs this (m) beyond its length: of equally long sets the one with fewer.
constexpr double kCostOfExcursion = 1e-9;

/// Costs (m) that differ by less are equal, and the nearer end wins.
constexpr double kSameCost = 1e-12;

constexpr double kImpossible = std::numeric_limits<double>::infinity();

/// The cheapest way on from a unit step.
struct WayOn {
  double cost = kImpossible;
  std::size_t next = 0;
};

/// Finds the cheapest ways from all steps to the end of a walk, backwards.
class CheapestWays {
 public:
  CheapestWays(const LevelSteps& units, int lastLevel, const ExcursionCosts& costs)
      : m_units(units), m_costs(costs), m_lengths(cumulatedLengths(units, costs)) {
    m_ways.resize(units.size() + 1);
    m_ways.back().cost = 0.0;
    offer(units.size(), lastLevel);
    for (std::size_t k = units.size(); k-- > 0;) {
      m_ways[k] = wayFrom(k);
      offer(k, units[k].from);
    }
  }

  /// True when all steps of the way are known, and all lengths finite.
  bool isFound() const {
    return std::isfinite(m_ways.front().cost) && std::isfinite(m_lengths.back());
  }
  std::size_t next(std::size_t k) const { return m_ways[k].next; }

 private:
  /// The best end of an excursion at a level, one for each way of turning first.
  struct BestEnd {
    WayOn clockwiseFirst;
    WayOn anticlockwiseFirst;
  };

  /// Lengths as they count by their directions.
  static std::vector<double> cumulatedLengths(const LevelSteps& units,
                                              const ExcursionCosts& costs) {
    std::vector<double> lengths{0.0};
    lengths.reserve(units.size() + 1);
    for (const LevelStep& unit : units) {
      const Point2D chord = unit.chord.chord();
      lengths.push_back(lengths.back() + std::hypot(costs.level * chord.x, costs.plumb * chord.y));
    }
    return lengths;
  }

  /// Of equal ends the later one offered, which is the nearer one.
  static void improve(WayOn& best, double cost, std::size_t end) {
    if (cost <= best.cost + kSameCost) best = {cost, end};
  }

  void offer(std::size_t end, int level) {
    const auto index = static_cast<std::size_t>(level);
    if (m_ends.size() <= index) m_ends.resize(index + 1);
    const double cost = m_ways[end].cost;
    if (cost == kImpossible) return;
    improve(m_ends[index].clockwiseFirst, cost + m_costs.clockwiseFirst * m_lengths[end], end);
    improve(m_ends[index].anticlockwiseFirst, cost + m_costs.anticlockwiseFirst * m_lengths[end],
            end);
  }

  WayOn wayFrom(std::size_t k) const {
    const LevelStep& unit = m_units[k];
    WayOn way;
    if (unit.to >= unit.from) way = {m_ways[k + 1].cost, k + 1};
    const auto level = static_cast<std::size_t>(unit.from);
    if (unit.isFlat() || m_ends.size() <= level) return way;
    const bool isClockwise = unit.to > unit.from;
    const BestEnd& ends = m_ends[level];
    const WayOn& end = isClockwise ? ends.clockwiseFirst : ends.anticlockwiseFirst;
    const double perMetre = isClockwise ? m_costs.clockwiseFirst : m_costs.anticlockwiseFirst;
    const double cost = end.cost - perMetre * m_lengths[k] + kCostOfExcursion;
    if (cost < way.cost - kSameCost) way = {cost, end.next};
    return way;
  }

  const LevelSteps& m_units;
  ExcursionCosts m_costs;
  std::vector<double> m_lengths;  // from the start of the walk to each step
  std::vector<WayOn> m_ways;
  std::vector<BestEnd> m_ends;  // by levels
};

}  // namespace

double LevelItem::length() const {
  double length = 0.0;
  for (const LevelStep& step : steps) {
    length += step.chord.length();
  }
  return length;
}

const LevelItems* HeadingRun::itemsAt(int level) const {
  const int index = (level - m_first) * m_direction;
  const bool isOutside = index < 0 || index >= static_cast<int>(m_items.size());
  return isOutside ? nullptr : &m_items[static_cast<std::size_t>(index)];
}

const LevelStep* HeadingRun::turnFrom(int level) const {
  const int index = (level - m_first) * m_direction;
  const bool isOutside = index < 0 || index >= static_cast<int>(m_turns.size());
  return isOutside ? nullptr : &m_turns[static_cast<std::size_t>(index)];
}

void HeadingRun::addTurn(const LevelStep& turn) {
  m_turns.push_back(turn);
  m_items.emplace_back();
}

/// Follows the cheapest way: what is not on it is an excursion at the level at which it was left.
std::optional<HeadingRun> mainRunOf(const LevelSteps& units, int lastLevel,
                                    const ExcursionCosts& costs) {
  const CheapestWays ways(units, lastLevel, costs);
  if (!ways.isFound()) return std::nullopt;
  HeadingRun run(units.empty() ? lastLevel : units.front().from, 1);
  for (std::size_t k = 0; k < units.size(); k = ways.next(k)) {
    const auto first = units.begin() + static_cast<std::ptrdiff_t>(k);
    const bool isTaken = ways.next(k) == k + 1 && units[k].to >= units[k].from;
    if (!isTaken) {
      const auto end = units.begin() + static_cast<std::ptrdiff_t>(ways.next(k));
      run.addItem({true, LevelSteps(first, end)});
    } else if (units[k].isFlat()) {
      run.addItem({false, {units[k]}});
    } else {
      run.addTurn(units[k]);
    }
  }
  return run;
}

/// A turn against the sense of the run before it begins another one.
std::vector<HeadingRun> runsOf(const LevelSteps& units) {
  std::vector<HeadingRun> runs;
  for (const LevelStep& unit : units) {
    if (!unit.isFlat() && (runs.empty() || runs.back().direction() != unit.to - unit.from)) {
      runs.emplace_back(unit.from, unit.to - unit.from);
    }
    if (unit.isFlat()) {
      runs.back().addItem({false, {unit}});
    } else {
      runs.back().addTurn(unit);
    }
  }
  return runs;
}

}  // namespace Calculations
}  // namespace Ruv
