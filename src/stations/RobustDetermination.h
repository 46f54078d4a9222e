// SPDX-License-Identifier: BSL-1.0
/// @file
/// Leaves out measured points until the rest can be assigned to fix points.

#ifndef CALCULATIONS_STATIONS_ROBUST_DETERMINATION_H
#define CALCULATIONS_STATIONS_ROBUST_DETERMINATION_H

#include "stations/FixPointMatcher.h"
#include "stations/PartnerLists.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Tries the subsets of the measured points, the largest first and those of one size in the
/// lexicographic order of the points left out. That is the order in which a queue that starts with
/// all points and appends, after each failure, the subset less its first, second, ... point would
/// come to each of them for the first time; to come to one again changes nothing.
///
/// Skipped without a search, by whole branches, are the subsets of which no fix point has, as the
/// reference point, partners for all other points, and those whose first few points cannot be
/// placed together. Nothing is remembered but the partner lists, found once for each reference
/// point.
class RobustDetermination {
 public:
  explicit RobustDetermination(FixPointMatcher& matcher);

  /// @return whether a subset has solutions; the matcher holds them
  bool run();

  /// How many subsets had to be searched.
  std::size_t searchedSubsets() const { return m_searchedSubsets; }

 private:
  /// A fix point that may be the reference point of some subset.
  struct Candidate {
    PartnerLists partners;
    std::vector<std::size_t> missingFrom;  ///< [i]: points from i on without a partner
  };

  using Candidates = std::vector<const Candidate*>;

  std::vector<Candidate> candidatesFor(MeasuredPoint first) const;
  bool runWithFirst(std::size_t first, std::size_t toRemove);
  bool chooseRemovals(std::size_t next, std::size_t toRemove, Candidates candidates);
  bool canPlaceKept(const Candidate& candidate) const;
  bool searchKept(const Candidates& candidates);

  FixPointMatcher& m_matcher;
  std::vector<std::vector<Candidate>> m_references;  ///< candidates by the first point, as needed
  MeasuredPoint m_first{};                           ///< first point of the subsets being tried
  std::vector<PointDistance> m_kept;                 ///< from it to the others
  std::size_t m_searchedSubsets = 0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
