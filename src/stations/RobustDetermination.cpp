// SPDX-License-Identifier: BSL-1.0
// Subsets of the measured points, largest first. The recursion decides for one point after the
// other, in the order of measuring, whether it stays or is left out, and leaves out first: so the
// subsets of one size come in the lexicographic order of the points left out.
//
// The first point of a subset is its reference. A fix point can only be the candidate of the
// reference if it has a partner for each point that stays. missingFrom[i] counts the points from i
// on for which it has none; as long as that is no more than may still be left out, the candidate is
// carried along, and a branch without candidates is not entered at all.

#include "stations/RobustDetermination.h"

#include <algorithm>

namespace Ruv {
namespace Calculations {

namespace {

/// As long as no more than these are kept besides the first point, candidates have to prove that
/// they can place them. Three or four suffice to drop almost all; later proofs cost more than they
/// save.
constexpr std::size_t kMostKeptToPlace = 6;

}  // namespace

RobustDetermination::RobustDetermination(FixPointMatcher& matcher) : m_matcher(matcher) {}

bool RobustDetermination::run() {
  if (!m_matcher.hasRequiredPoints()) return false;
  ++m_searchedSubsets;
  if (m_matcher.matchAll()) return true;
  const std::size_t mostRemoved = m_matcher.measuredCount() - m_matcher.requiredPoints();
  for (std::size_t removed = 1; removed <= mostRemoved; ++removed) {
    // To leave out the first points comes first in the lexicographic order.
    for (std::size_t first = removed + 1; first-- > 0;) {
      if (runWithFirst(first, removed - first)) return true;
    }
  }
  return false;
}

std::vector<RobustDetermination::Candidate> RobustDetermination::candidatesFor(
    MeasuredPoint first) const {
  const std::size_t count = m_matcher.measuredCount();
  const std::vector<PointDistance> distances = m_matcher.distancesFrom(first);
  std::vector<Candidate> candidates;
  PartnerLists partners = m_matcher.emptyPartnerLists();
  for (const FieldPlace place : m_matcher.field().placesInIdOrder()) {
    partners.restart(place);
    std::size_t found = 0;
    for (const PointDistance& distance : distances) {
      if (partners.find(distance)) ++found;
    }
    if (found + 1 < m_matcher.requiredPoints()) continue;
    std::vector<std::size_t> missingFrom(count + 1, 0);
    for (std::size_t i = count; i-- > indexOf(first) + 1;) {
      const bool isMissing = partners.of(MeasuredPoint{i}).size() == 0;
      missingFrom[i] = missingFrom[i + 1] + (isMissing ? 1 : 0);
    }
    candidates.push_back({partners, std::move(missingFrom)});
  }
  return candidates;
}

/// Tries the subsets that begin with the given point and lack a number of the points after it.
bool RobustDetermination::runWithFirst(std::size_t first, std::size_t toRemove) {
  while (m_references.size() <= first) {
    m_references.push_back(candidatesFor(MeasuredPoint{m_references.size()}));
  }
  m_first = MeasuredPoint{first};
  Candidates candidates;
  for (const Candidate& candidate : m_references[first]) {
    if (candidate.missingFrom[first + 1] <= toRemove) candidates.push_back(&candidate);
  }
  return chooseRemovals(first + 1, toRemove, std::move(candidates));
}

/// Tries the subsets that arise when a number of the points from next on are left out, in
/// lexicographic order.
/// @param candidates those on which the points kept so far can be placed; they may lack partners
///   for as many of the others as are still to be left out
bool RobustDetermination::chooseRemovals(std::size_t next, std::size_t toRemove,
                                         Candidates candidates) {
  const std::size_t count = m_matcher.measuredCount();
  const std::size_t keptBefore = m_kept.size();
  for (; next < count && !candidates.empty(); ++next) {
    if (toRemove > 0) {
      Candidates afterRemoval;
      for (const Candidate* candidate : candidates) {
        if (candidate->missingFrom[next + 1] < toRemove) afterRemoval.push_back(candidate);
      }
      if (chooseRemovals(next + 1, toRemove - 1, std::move(afterRemoval))) return true;
    }
    if (count - next <= toRemove) candidates.clear();  // all of them have to go: done above
    m_kept.push_back(m_matcher.distanceBetween(m_first, MeasuredPoint{next}));
    candidates.erase(std::remove_if(candidates.begin(), candidates.end(),
                                    [this](const Candidate* c) { return !canPlaceKept(*c); }),
                     candidates.end());
  }
  const bool found = !candidates.empty() && searchKept(candidates);
  m_kept.resize(keptBefore);
  return found;
}

/// Whether the point kept last has partners and, while few are kept, whether there is an
/// assignment of them all.
bool RobustDetermination::canPlaceKept(const Candidate& candidate) const {
  if (candidate.partners.of(m_kept.back().to).size() == 0) return false;
  return m_kept.size() > kMostKeptToPlace || m_matcher.hasAssignment(m_kept, candidate.partners);
}

bool RobustDetermination::searchKept(const Candidates& candidates) {
  std::vector<const PartnerLists*> partners;
  partners.reserve(candidates.size());
  for (const Candidate* candidate : candidates) {
    partners.push_back(&candidate->partners);
  }
  ++m_searchedSubsets;
  return m_matcher.match(m_kept, partners);
}

}  // namespace Calculations
}  // namespace Ruv
