// SPDX-License-Identifier: BSL-1.0
/// @file
/// Collects ratios and errors, judges them by the goals and prints them.

#ifndef CALCULATIONS_BENCHMARKS_GOAL_TABLE_H
#define CALCULATIONS_BENCHMARKS_GOAL_TABLE_H

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace Benchmarks {

/// How much work a report does. Slow peers get fewer points.
struct Effort {
  int rounds = 0;
  std::size_t points = 0;
  std::size_t pointsOfTrees = 0;
  std::size_t pointsOfLinearSearches = 0;
  std::size_t longestAxisOfTrees = 0;  ///< in elements; no tree over the polyline of a longer one
  std::size_t largestSection = 0;  ///< in points, of the measured sections whose areas are taken
  std::size_t largestFit = 0;      ///< in points
  std::size_t seeds = 0;           ///< of the random fields of fix points
};

/// What a ratio has to keep: a gate and an aim, either of which may be missing.
struct Goal {
  enum class Sense { AtMost, AtLeast };

  Sense sense = Sense::AtMost;
  std::optional<double> must;
  std::optional<double> stretch;
};

Goal atMost(std::optional<double> must, std::optional<double> stretch = std::nullopt);
Goal atLeast(std::optional<double> must, std::optional<double> stretch = std::nullopt);

/// One comparison. Times in nanoseconds.
struct Comparison {
  std::string work;
  std::size_t size = 0;
  double ours = 0.0;
  std::string peer;
  double peerTime = 0.0;
  Goal goal;
};

/// A count or an amount of memory.
struct Quantity {
  std::string work;
  std::size_t size = 0;
  double value = 0.0;
  std::string unit;
  Goal goal;
};

/// Largest error of all results of one kind. A result that failed counts as infinite.
struct Correctness {
  std::string work;
  std::size_t size = 0;
  std::size_t numResults = 0;
  double largestError = 0.0;
  std::string unit;
  std::optional<double> must;
};

class GoalTable {
 public:
  /// Judged by ours / peer for a goal AtMost, by peer / ours for a goal AtLeast.
  void add(const Comparison& comparison);
  void add(const Quantity& quantity);
  void add(const Correctness& correctness);

  /// Markdown tables.
  void print(std::ostream& out) const;

  bool isEverythingCorrect() const { return m_isCorrect; }
  bool isEveryMustMet() const { return m_isMet; }

 private:
  std::vector<std::string> m_comparisons;
  std::vector<std::string> m_quantities;
  std::vector<std::string> m_errors;
  bool m_isCorrect = true;
  bool m_isMet = true;
};

/// The greater of two errors; not-a-number is greater than everything.
double worse(double error, double other);

}  // namespace Benchmarks

#endif
