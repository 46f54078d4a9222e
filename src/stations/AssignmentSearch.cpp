// SPDX-License-Identifier: BSL-1.0
// Backtracking with pruning (Knuth, The Art of Computer Programming 4B, 2022, section 7.2.2).
//
// On level i the search chooses a fix point for the i-th measured point beside the reference, from
// the partners that its distance from the reference leaves. A choice stands when it keeps the
// distances to all points chosen before it: a rigid motion changes no distance, so where both ends
// of a distance come to lie within their tolerances of the fix points, the distance between these
// differs by less than the sum of both deviations. A choice that breaks this ends its whole branch,
// which is what makes the search fast: of thousands of partners few keep two distances.
//
// The state between two calls is m_level with, for each level up to it, the partner to try next;
// the order of the assignments is that of the partner lists, the last level running fastest.

#include "stations/AssignmentSearch.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

AssignmentSearch::AssignmentSearch(const FixPointField& field,
                                   const std::vector<ENHPoint>& measured,
                                   const std::vector<PointDistance>& distances,
                                   const PartnerLists& partners, double largestChange)
    : m_field(field),
      m_measured(measured),
      m_distances(distances),
      m_partners(partners),
      m_largestChange(largestChange),
      m_places(distances.size()),
      m_nextPartners(distances.size()) {}

bool AssignmentSearch::advance() {
  while (true) {
    const PartnerLists::List list = m_partners.of(m_distances[m_level].to);
    std::size_t& next = m_nextPartners[m_level];
    while (next < list.size() && !keepsDistances(m_level, list[next])) {
      ++next;
    }
    if (next < list.size()) {
      m_places[m_level] = list[next++];
      // The level stays when an assignment is complete: the next call goes on from here.
      if (m_level + 1 == m_distances.size()) return true;
      m_nextPartners[++m_level] = 0;
    } else {
      if (m_level == 0) return false;
      --m_level;
    }
  }
}

/// Whether a place, chosen on a level, keeps the distances to the places of all levels before it.
/// Distances from the reference point are kept already: the partner lists were made by them.
bool AssignmentSearch::keepsDistances(std::size_t level, FieldPlace place) const {
  const ENHPoint& fixPoint = m_field.point(place);
  const ENHPoint& measured = m_measured[indexOf(m_distances[level].to)];
  for (std::size_t i = 0; i < level; ++i) {
    const double known = (m_field.point(m_places[i]) - fixPoint).length();
    const double seen = (m_measured[indexOf(m_distances[i].to)] - measured).length();
    if (!(std::abs(known - seen) < m_largestChange)) return false;
  }
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
