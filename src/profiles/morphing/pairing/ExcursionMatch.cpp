// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/ExcursionMatch.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// More pairs than this are not compared, and nothing is matched. A level of a profile has a few
/// excursions; only noise has hundreds.
constexpr std::size_t kMostPairs = 1000000;

/// What an unmatched excursion costs. A match costs the distance of both places, at most 1, hence
/// any match is better than none.
constexpr double kCostUnmatched = 1.0;

/// What an excursion does: how often it turns, beginning with which sense, and where it is.
struct Pattern {
  std::size_t index = 0;
  std::size_t numRuns = 0;
  int firstDirection = 0;
  double place = 0.0;

  bool matches(const Pattern& other) const {
    return numRuns == other.numRuns && firstDirection == other.firstDirection;
  }
};

/// A niche turns out, back and out again: three runs, the first of them anticlockwise. A step in a
/// wall has two.
std::vector<Pattern> patternsOf(const LevelItems& items) {
  std::vector<Pattern> patterns;
  const PlacedItems places = placed(items, 0, items.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (!items[i].isExcursion) continue;
    const std::vector<HeadingRun> runs = runsOf(items[i].steps);
    patterns.push_back({i, runs.size(), runs.front().direction(), places[i].from});
  }
  return patterns;
}

/// Least costs of matching the first i patterns of the start with the first j of the end.
class MatchCosts {
 public:
  MatchCosts(const std::vector<Pattern>& start, const std::vector<Pattern>& end)
      : m_start(start), m_end(end), m_costs((start.size() + 1) * (end.size() + 1)) {
    for (std::size_t i = 0; i <= start.size(); ++i) {
      for (std::size_t j = 0; j <= end.size(); ++j) {
        at(i, j) = std::min(costUnmatched(i, j), costMatched(i, j));
      }
    }
  }

  /// Goes back from the end along the cheapest ways.
  std::vector<std::pair<std::size_t, std::size_t>> pairs() const {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    std::size_t i = m_start.size();
    std::size_t j = m_end.size();
    while (i > 0 && j > 0) {
      if (costMatched(i, j) <= costUnmatched(i, j)) {
        pairs.emplace_back(m_start[--i].index, m_end[--j].index);
      } else if (at(i - 1, j) <= at(i, j - 1)) {
        --i;
      } else {
        --j;
      }
    }
    std::reverse(pairs.begin(), pairs.end());
    return pairs;
  }

 private:
  double& at(std::size_t i, std::size_t j) { return m_costs[i * (m_end.size() + 1) + j]; }
  double at(std::size_t i, std::size_t j) const { return m_costs[i * (m_end.size() + 1) + j]; }

  double costUnmatched(std::size_t i, std::size_t j) const {
    if (i == 0 || j == 0) return kCostUnmatched * static_cast<double>(i + j);
    return std::min(at(i - 1, j), at(i, j - 1)) + kCostUnmatched;
  }

  double costMatched(std::size_t i, std::size_t j) const {
    if (i == 0 || j == 0 || !m_start[i - 1].matches(m_end[j - 1])) return HUGE_VAL;
    return at(i - 1, j - 1) + std::abs(m_start[i - 1].place - m_end[j - 1].place);
  }

  const std::vector<Pattern>& m_start;
  const std::vector<Pattern>& m_end;
  std::vector<double> m_costs;
};

}  // namespace

/// Excursions have no share in the length of the level: a niche that becomes deeper does not move
/// the ones beside it. On a level without flat steps all of them are in the middle.
PlacedItems placed(const LevelItems& items, std::size_t first, std::size_t last) {
  double all = 0.0;
  for (std::size_t i = first; i < last; ++i) {
    if (!items[i].isExcursion) all += items[i].length();
  }
  PlacedItems places;
  double length = 0.0;
  for (std::size_t i = first; i < last; ++i) {
    const double from = length;
    if (!items[i].isExcursion) length += items[i].length();
    const bool hasFlats = all > 0.0;
    places.push_back({hasFlats ? from / all : 0.5, hasFlats ? length / all : 0.5, &items[i]});
  }
  return places;
}

/// The order of excursions is kept, so this is the alignment of two sequences by dynamic
/// programming (Needleman and Wunsch 1970).
std::vector<std::pair<std::size_t, std::size_t>> matchExcursions(const LevelItems& start,
                                                                 const LevelItems& end) {
  const std::vector<Pattern> startPatterns = patternsOf(start);
  const std::vector<Pattern> endPatterns = patternsOf(end);
  if (startPatterns.size() * endPatterns.size() > kMostPairs) return {};
  return MatchCosts(startPatterns, endPatterns).pairs();
}

bool areSameStraights(const LevelSteps& start, const LevelSteps& end) {
  const auto isAlike = [](const LevelStep& a, const LevelStep& b) {
    // Straights are flat and corners are not, so no more needs to be asked.
    const bool turnsAlike = (a.to > a.from) == (b.to > b.from);
    return a.kind == b.kind && a.kind != WalkStepKind::Arc && turnsAlike;
  };
  return start.size() == end.size() && std::equal(start.begin(), start.end(), end.begin(), isAlike);
}

}  // namespace Calculations
}  // namespace Ruv
