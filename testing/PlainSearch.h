/// @file
/// The search for measured fix points as one would write it down.

#ifndef CALCULATIONS_BENCHMARKS_PLAIN_SEARCH_H
#define CALCULATIONS_BENCHMARKS_PLAIN_SEARCH_H

#include <Calculations/Points.h>

#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::ENHPoint;

/// Measures all distances between fix points, takes each fix point in turn for the first measured
/// one, lists for each other one the fix points at its distance, and goes through the combinations
/// depth first. A branch ends where two fix points differ too much in their distance from the
/// measured points. Complete combinations are fitted and tested.
class PlainSearch {
 public:
  PlainSearch(const std::vector<ENHPoint>& fixPoints, const std::vector<ENHPoint>& measured)
      : m_fixPoints(fixPoints), m_measured(measured) {}

  /// All measured points.
  /// @return whether there is a solution
  bool strict();

  /// As many as possible: leaves out none, then one, two and so on. Subsets that were searched are
  /// remembered.
  bool robust();

  /// How many combinations the last strict search would have had to fit without ending branches.
  double numCombinations() const { return m_numCombinations; }

  /// How many subsets the last robust search searched.
  std::size_t searchedSubsets() const { return m_searchedSubsets; }

  /// How many it would have searched without remembering them.
  double numRepeatedSubsets() const { return m_numRepeatedSubsets; }

  /// One fit and test of all measured points, for its cost.
  bool fit(const std::vector<std::size_t>& fixPoints) const;

 private:
  using Indices = std::vector<std::size_t>;

  struct Neighbour {
    std::size_t index = 0;
    double distance = 0.0;
  };

  bool search(const Indices& subset);
  std::vector<Neighbour> neighboursOf(std::size_t fixPoint, double radius) const;
  std::vector<Indices> partnersOf(const std::vector<Neighbour>& neighbours,
                                  const Indices& subset) const;
  bool place(const Indices& subset, const std::vector<Indices>& partners, Indices& assigned) const;
  bool keepsDistances(const Indices& subset, const Indices& assigned, std::size_t next) const;
  bool fits(const Indices& subset, const Indices& assigned) const;
  double measuredDistance(std::size_t a, std::size_t b) const;

  std::vector<ENHPoint> m_fixPoints;
  std::vector<ENHPoint> m_measured;
  double m_numCombinations = 0.0;
  std::size_t m_searchedSubsets = 0;
  double m_numRepeatedSubsets = 0.0;
};

}  // namespace Benchmarks

#endif
