// SPDX-License-Identifier: BSL-1.0
/// @file
/// The search for measured fix points as one would write it down.

#ifndef CALCULATIONS_TESTING_PLAIN_SEARCH_H
#define CALCULATIONS_TESTING_PLAIN_SEARCH_H

#include <Calculations/Points.h>

#include <Eigen/Core>

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace TestSupport {

using Ruv::Calculations::ENHPoint;

/// Takes each fix point in turn for the first measured one, lists for each other one the fix points
/// at its distance, and goes through the combinations depth first. Complete ones are fitted and
/// tested.
class PlainSearch {
 public:
  using Indices = std::vector<std::size_t>;
  /// The score of measured points that are assigned to fix points, none when they do not fit.
  using Fit = std::function<std::optional<double>(const Eigen::Matrix3Xd& measured,
                                                  const Eigen::Matrix3Xd& fixPoints)>;

  static constexpr std::size_t kLeftOut = std::numeric_limits<std::size_t>::max();
  struct Solution {
    Indices fixPoints;  ///< for each measured point, or kLeftOut
    double score;
  };

  /// @param largestChange of the distance between two assigned points; a branch that exceeds it
  /// ends.
  ///     By default every combination is fitted.
  PlainSearch(const std::vector<ENHPoint>& fixPoints, const std::vector<ENHPoint>& measured,
              double tolerance, std::size_t fewest, Fit fit,
              double largestChange = std::numeric_limits<double>::infinity());

  /// Of all measured points, best first.
  std::vector<Solution> strict();

  /// Of as many as possible: leaves out none, then one, two and so on, from a queue. Subsets that
  /// were searched are remembered.
  std::vector<Solution> robust();

  /// How many combinations the last strict search would have had to fit without ending branches.
  double numCombinations() const { return m_numCombinations; }

  /// How many subsets the last robust search searched.
  std::size_t searchedSubsets() const { return m_searchedSubsets; }

  /// One fit and test of all measured points, for its cost.
  bool fit(const Indices& fixPoints) const;

 private:
  struct Neighbour {
    std::size_t index = 0;
    double distance = 0.0;
  };

  std::vector<Solution> search(const Indices& subset);
  std::vector<Neighbour> neighboursOf(std::size_t fixPoint, double radius) const;
  std::vector<Indices> partnersOf(const std::vector<Neighbour>& neighbours,
                                  const Indices& subset) const;
  void place(const Indices& subset, const std::vector<Indices>& partners, Indices& assigned,
             std::vector<Solution>& solutions) const;
  bool keepsDistances(const Indices& subset, const Indices& assigned, std::size_t next) const;
  double measuredDistance(std::size_t a, std::size_t b) const;

  std::vector<ENHPoint> m_fixPoints;
  std::vector<ENHPoint> m_measured;
  double m_tolerance;
  double m_largestChange;
  std::size_t m_fewest;
  Fit m_fit;
  double m_numCombinations = 0.0;
  std::size_t m_searchedSubsets = 0;
};

}  // namespace TestSupport

#endif
