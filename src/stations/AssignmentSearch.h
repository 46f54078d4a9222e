// SPDX-License-Identifier: BSL-1.0
/// @file
/// Walks through the assignments of measured points to fix points that keep all distances.

#ifndef CALCULATIONS_STATIONS_ASSIGNMENT_SEARCH_H
#define CALCULATIONS_STATIONS_ASSIGNMENT_SEARCH_H

#include <Calculations/Points.h>

#include "stations/FixPointField.h"
#include "stations/Matching.h"
#include "stations/PartnerLists.h"

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Depth-first search over the combinations of partners for one candidate. A branch is cut as soon
/// as two fix points differ too much in their distance from the measured points assigned to them:
/// no combination on it could be accepted.
///
/// Two measured points may share a fix point. Depth is bounded by the memory, not by the stack.
class AssignmentSearch {
 public:
  /// @param distances from the reference point to the points to assign, at least one
  /// @param partners their lists
  /// @param largestChange differences of distances from this on cut a branch (m)
  AssignmentSearch(const FixPointField& field, const std::vector<ENHPoint>& measured,
                   const std::vector<PointDistance>& distances, const PartnerLists& partners,
                   double largestChange);

  /// Goes to the next assignment.
  /// @return false when there is none
  bool advance();

  /// The places of the present assignment, in the order of the distances.
  const std::vector<FieldPlace>& places() const { return m_places; }

 private:
  bool keepsDistances(std::size_t level, FieldPlace place) const;

  const FixPointField& m_field;
  const std::vector<ENHPoint>& m_measured;
  const std::vector<PointDistance>& m_distances;
  const PartnerLists& m_partners;
  double m_largestChange;
  std::vector<FieldPlace> m_places;
  std::vector<std::size_t> m_nextPartners;  ///< per level, index into its partner list
  std::size_t m_level = 0;                  ///< the one to assign next
};

}  // namespace Calculations
}  // namespace Ruv

#endif
