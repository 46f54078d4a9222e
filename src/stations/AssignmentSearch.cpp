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
