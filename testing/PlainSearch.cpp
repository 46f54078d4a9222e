// SPDX-License-Identifier: BSL-1.0
#include "testing/PlainSearch.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <numeric>
#include <set>
#include <utility>

namespace TestSupport {

namespace {

Eigen::Matrix3Xd columnsOf(const std::vector<ENHPoint>& points,
                           const std::vector<std::size_t>& which) {
  Eigen::Matrix3Xd columns(3, static_cast<Eigen::Index>(which.size()));
  Eigen::Index column = 0;
  for (const std::size_t index : which) {
    columns.col(column++) << points[index].east, points[index].north, points[index].height;
  }
  return columns;
}

std::vector<std::size_t> firstNumbers(std::size_t count) {
  std::vector<std::size_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), std::size_t{0});
  return numbers;
}

}  // namespace

PlainSearch::PlainSearch(const std::vector<ENHPoint>& fixPoints,
                         const std::vector<ENHPoint>& measured, double tolerance,
                         std::size_t fewest, Fit fit, double largestChange)
    : m_fixPoints(fixPoints),
      m_measured(measured),
      m_tolerance(tolerance),
      m_largestChange(largestChange),
      m_fewest(fewest),
      m_fit(std::move(fit)) {}

double PlainSearch::measuredDistance(std::size_t a, std::size_t b) const {
  return (m_measured[a] - m_measured[b]).length();
}

std::vector<PlainSearch::Solution> PlainSearch::strict() {
  return search(firstNumbers(m_measured.size()));
}

std::vector<PlainSearch::Solution> PlainSearch::robust() {
  std::set<Indices> searched;
  std::deque<Indices> queue = {firstNumbers(m_measured.size())};
  for (; !queue.empty(); queue.pop_front()) {
    const Indices subset = queue.front();
    if (!searched.insert(subset).second) continue;
    m_searchedSubsets = searched.size();
    std::vector<Solution> solutions = search(subset);
    if (!solutions.empty()) return solutions;
    if (subset.size() <= m_fewest) continue;
    for (std::size_t k = 0; k < subset.size(); ++k) {
      queue.push_back(subset);
      queue.back().erase(queue.back().begin() + static_cast<std::ptrdiff_t>(k));
    }
  }
  return {};
}

std::vector<PlainSearch::Solution> PlainSearch::search(const Indices& subset) {
  m_numCombinations = 0.0;
  std::vector<Solution> solutions;
  if (m_fixPoints.size() < m_fewest || subset.size() < m_fewest) return solutions;
  double farthest = 0.0;
  for (const std::size_t i : subset) {
    farthest = std::max(farthest, measuredDistance(subset.front(), i));
  }
  std::vector<std::vector<Neighbour>> neighbours;
  neighbours.reserve(m_fixPoints.size());
  for (std::size_t f = 0; f < m_fixPoints.size(); ++f) {
    neighbours.push_back(neighboursOf(f, farthest + 2.0 * m_tolerance));
  }
  for (std::size_t f = 0; f < m_fixPoints.size(); ++f) {
    if (neighbours[f].size() + 2 < subset.size()) continue;
    const std::vector<Indices> partners = partnersOf(neighbours[f], subset);
    if (partners.empty()) continue;
    double combinations = 1.0;
    for (const Indices& of : partners) {
      combinations *= static_cast<double>(of.size());
    }
    m_numCombinations += combinations;
    Indices assigned = {f};
    place(subset, partners, assigned, solutions);
  }
  std::stable_sort(solutions.begin(), solutions.end(),
                   [](const Solution& a, const Solution& b) { return a.score < b.score; });
  return solutions;
}

std::vector<PlainSearch::Neighbour> PlainSearch::neighboursOf(std::size_t fixPoint,
                                                              double radius) const {
  std::vector<Neighbour> neighbours;
  for (std::size_t i = 0; i < m_fixPoints.size(); ++i) {
    if (i == fixPoint) continue;
    const double distance = (m_fixPoints[i] - m_fixPoints[fixPoint]).length();
    if (distance < radius) neighbours.push_back({i, distance});
  }
  return neighbours;
}

/// For each point of the subset after the first one; empty when one of them has none.
std::vector<PlainSearch::Indices> PlainSearch::partnersOf(const std::vector<Neighbour>& neighbours,
                                                          const Indices& subset) const {
  std::vector<Indices> partners;
  for (std::size_t k = 1; k < subset.size(); ++k) {
    const double distance = measuredDistance(subset.front(), subset[k]);
    Indices atDistance;
    for (const Neighbour& neighbour : neighbours) {
      if (std::abs(neighbour.distance - distance) < m_tolerance) {
        atDistance.push_back(neighbour.index);
      }
    }
    if (atDistance.empty()) return {};
    partners.push_back(std::move(atDistance));
  }
  return partners;
}

/// Goes through all combinations that begin with those assigned.
void PlainSearch::place(const Indices& subset, const std::vector<Indices>& partners,
                        Indices& assigned, std::vector<Solution>& solutions) const {
  if (assigned.size() == subset.size()) {
    const auto score = m_fit(columnsOf(m_measured, subset), columnsOf(m_fixPoints, assigned));
    if (!score) return;
    solutions.push_back({Indices(m_measured.size(), kLeftOut), *score});
    for (std::size_t i = 0; i < subset.size(); ++i) {
      solutions.back().fixPoints[subset[i]] = assigned[i];
    }
    return;
  }
  for (const std::size_t next : partners[assigned.size() - 1]) {
    if (!keepsDistances(subset, assigned, next)) continue;
    assigned.push_back(next);
    place(subset, partners, assigned, solutions);
    assigned.pop_back();
  }
}

bool PlainSearch::keepsDistances(const Indices& subset, const Indices& assigned,
                                 std::size_t next) const {
  if (std::isinf(m_largestChange)) return true;
  const std::size_t place = assigned.size();
  for (std::size_t i = 0; i < place; ++i) {
    const double known = (m_fixPoints[assigned[i]] - m_fixPoints[next]).length();
    const double seen = measuredDistance(subset[i], subset[place]);
    if (!(std::abs(known - seen) < m_largestChange)) return false;
  }
  return true;
}

bool PlainSearch::fit(const Indices& fixPoints) const {
  const Indices all = firstNumbers(m_measured.size());
  return m_fit(columnsOf(m_measured, all), columnsOf(m_fixPoints, fixPoints)).has_value();
}

}  // namespace TestSupport
