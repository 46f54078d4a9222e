// SPDX-License-Identifier: BSL-1.0
/// @file
/// Searches for the fix points that measured points are.

#ifndef CALCULATIONS_STATIONS_FIX_POINT_MATCHER_H
#define CALCULATIONS_STATIONS_FIX_POINT_MATCHER_H

#include <Calculations/Points.h>

#include "stations/FixPointField.h"
#include "stations/Matching.h"
#include "stations/PartnerLists.h"
#include "stations/RigidPlacement.h"

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Finds every assignment of measured points to fix points under which the rigidly moved measured
/// figure lies within the tolerances of the fix points.
///
/// The first measured point is the reference. Each fix point in turn is taken for it; the other
/// measured points may then be the fix points at their distance. What remains of the combinations
/// after comparing all distances is fitted and tested.
class FixPointMatcher {
 public:
  /// @param fixPoints in the order of their ids
  /// @param measured relative to the instrument, in the order of measuring
  FixPointMatcher(const MatchSettings& settings, const std::vector<ENHPoint>& fixPoints,
                  std::vector<ENHPoint> measured);
  FixPointMatcher(const FixPointMatcher&) = delete;  // partner lists point into the field
  FixPointMatcher& operator=(const FixPointMatcher&) = delete;

  /// Searches for all assignments of all measured points.
  /// @return whether there are solutions
  bool matchAll();

  /// Searches for assignments of some measured points.
  /// @param distances from the reference point to the others, at least two
  /// @param candidates in the order of the ids, with the partners of all the others
  /// @return whether there are solutions
  bool match(const std::vector<PointDistance>& distances,
             const std::vector<const PartnerLists*>& candidates);

  /// Whether the distances between fix points allow any assignment of these measured points.
  bool hasAssignment(const std::vector<PointDistance>& distances,
                     const PartnerLists& partners) const;

  /// The solutions of the last search, best first. Fix points by their index.
  const std::vector<MatchedSolution>& solutions() const { return m_solutions; }

  /// How many assignments the last search had to fit.
  std::size_t fittedAssignments() const { return m_fittedAssignments; }

  std::size_t measuredCount() const { return m_measured.size(); }

  /// The least number of measured points and of fix points.
  std::size_t requiredPoints() const;

  /// Whether there are enough fix points and measured points to search at all.
  bool hasRequiredPoints() const;

  /// The distances from a measured point to those after it, without the ones that are not finite.
  /// First come those whose partners are found soonest.
  std::vector<PointDistance> distancesFrom(MeasuredPoint reference) const;

  PointDistance distanceBetween(MeasuredPoint from, MeasuredPoint to) const;

  const FixPointField& field() const { return m_field; }

  PartnerLists emptyPartnerLists() const;

 private:
  void startSearch();
  void searchCandidate(const std::vector<PointDistance>& distances, const PartnerLists& partners);
  void fitAssignment(const std::vector<PointDistance>& distances, FieldPlace candidate,
                     const std::vector<FieldPlace>& places);
  bool rankSolutions();

  MatchSettings m_settings;
  RigidPlacement m_placement;
  std::size_t m_fixPointCount;
  FixPointField m_field;
  std::vector<ENHPoint> m_measured;
  std::vector<MatchedSolution> m_solutions;
  std::size_t m_fittedAssignments = 0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
