// SPDX-License-Identifier: BSL-1.0
// The search for assignments goes through three sieves, each cheaper to pass than the next one.
//
// First, for each fix point as candidate of the reference point, the other measured points get as
// partners the fix points at their distance, within the tolerance (PartnerLists). Next, the
// combinations of partners that keep all other distances are walked through (AssignmentSearch).
// What is left is fitted as a rigid body and compared with the tolerances (RigidPlacement). Only
// the last decides; the first two leave out nothing that it would accept.

#include "stations/FixPointMatcher.h"

#include "stations/AssignmentSearch.h"
#include "stations/EigenPoints.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

FixPointMatcher::FixPointMatcher(const MatchSettings& settings,
                                 const std::vector<ENHPoint>& fixPoints,
                                 std::vector<ENHPoint> measured)
    : m_settings(settings),
      m_placement(settings),
      m_fixPointCount(fixPoints.size()),
      m_field(fixPoints),
      m_measured(std::move(measured)) {}

std::size_t FixPointMatcher::requiredPoints() const {
  return static_cast<std::size_t>(m_settings.minNumberOfFixPointMeasurementsRequired);
}

bool FixPointMatcher::hasRequiredPoints() const {
  return m_fixPointCount >= requiredPoints() && m_measured.size() >= requiredPoints();
}

/// Points whose partners are found on the shortest stretch of the field come first: a candidate
/// that lacks a partner is then given up soonest.
std::vector<PointDistance> FixPointMatcher::distancesFrom(MeasuredPoint reference) const {
  std::vector<PointDistance> distances;
  distances.reserve(m_measured.size());
  for (std::size_t i = indexOf(reference) + 1; i < m_measured.size(); ++i) {
    const PointDistance distance = distanceBetween(reference, MeasuredPoint{i});
    if (std::isfinite(distance.distance)) distances.push_back(distance);
  }
  const auto cost = [this](const PointDistance& d) { return m_field.stretchToSearch(d.distance); };
  std::stable_sort(
      distances.begin(), distances.end(),
      [&cost](const PointDistance& a, const PointDistance& b) { return cost(a) < cost(b); });
  return distances;
}

PointDistance FixPointMatcher::distanceBetween(MeasuredPoint from, MeasuredPoint to) const {
  return {from, to, (m_measured[indexOf(to)] - m_measured[indexOf(from)]).length()};
}

PartnerLists FixPointMatcher::emptyPartnerLists() const {
  return {m_field, m_settings.toleranceDistanceDifference, m_measured.size()};
}

bool FixPointMatcher::matchAll() {
  startSearch();
  if (!hasRequiredPoints()) return false;
  const std::vector<PointDistance> distances = distancesFrom(MeasuredPoint{0});
  // A point that has no finite distance has no partner, so not all can be assigned.
  if (distances.size() + 1 < m_measured.size()) return false;
  PartnerLists partners = emptyPartnerLists();
  for (const FieldPlace candidate : m_field.placesInIdOrder()) {
    partners.restart(candidate);
    // The first point without a partner ends it.
    const bool allHavePartners =
        std::all_of(distances.begin(), distances.end(),
                    [&partners](const PointDistance& d) { return partners.find(d); });
    if (allHavePartners) searchCandidate(distances, partners);
  }
  return rankSolutions();
}

bool FixPointMatcher::match(const std::vector<PointDistance>& distances,
                            const std::vector<const PartnerLists*>& candidates) {
  startSearch();
  for (const PartnerLists* partners : candidates) {
    searchCandidate(distances, *partners);
  }
  return rankSolutions();
}

bool FixPointMatcher::hasAssignment(const std::vector<PointDistance>& distances,
                                    const PartnerLists& partners) const {
  return AssignmentSearch(m_field, m_measured, distances, partners,
                          m_placement.largestChangeOfDistance())
      .advance();
}

void FixPointMatcher::startSearch() {
  m_solutions.clear();
  m_fittedAssignments = 0;
}

void FixPointMatcher::searchCandidate(const std::vector<PointDistance>& distances,
                                      const PartnerLists& partners) {
  AssignmentSearch search(m_field, m_measured, distances, partners,
                          m_placement.largestChangeOfDistance());
  if (!search.advance()) return;
  // A candidate needs as many fix points around it as there are other measured points. Only where
  // measured points share a fix point may they be missing after a complete assignment.
  double farthest = 0.0;
  for (const PointDistance& d : distances) {
    farthest = std::max(farthest, d.distance);
  }
  const double radius = farthest + 2.0 * m_settings.toleranceDistanceDifference;
  if (!m_field.hasNeighbours(partners.candidate(), radius, distances.size())) return;
  do {
    fitAssignment(distances, partners.candidate(), search.places());
  } while (search.advance());
}

void FixPointMatcher::fitAssignment(const std::vector<PointDistance>& distances,
                                    FieldPlace candidate, const std::vector<FieldPlace>& places) {
  constexpr FieldPlace kNowhere{kNotAssigned};
  std::vector<FieldPlace> placeOf(m_measured.size(), kNowhere);
  placeOf[indexOf(distances.front().from)] = candidate;
  for (std::size_t i = 0; i < places.size(); ++i) {
    placeOf[indexOf(distances[i].to)] = places[i];
  }
  // Columns in the order of measuring: where an assignment leaves the rotation open, rounding, and
  // with it the order, decides.
  const auto count = static_cast<Eigen::Index>(places.size()) + 1;
  Eigen::Matrix3Xd measured(3, count);
  Eigen::Matrix3Xd fixPoints(3, count);
  MatchedSolution solution{std::vector<std::size_t>(m_measured.size(), kNotAssigned), 0.0};
  Eigen::Index column = 0;
  for (std::size_t i = 0; i < m_measured.size(); ++i) {
    if (placeOf[i] == kNowhere) continue;
    measured.col(column) = asVector(m_measured[i]);
    fixPoints.col(column) = asVector(m_field.point(placeOf[i]));
    solution.fixPoints[i] = m_field.index(placeOf[i]);
    ++column;
  }
  ++m_fittedAssignments;
  const auto score = m_placement.score(measured, fixPoints);
  if (!score) return;
  solution.score = *score;
  m_solutions.push_back(std::move(solution));
}

/// Equal scores stay in the order of the search, that of the ids.
bool FixPointMatcher::rankSolutions() {
  std::stable_sort(
      m_solutions.begin(), m_solutions.end(),
      [](const MatchedSolution& a, const MatchedSolution& b) { return a.score < b.score; });
  return !m_solutions.empty();
}

}  // namespace Calculations
}  // namespace Ruv
