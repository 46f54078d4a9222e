// SPDX-License-Identifier: BSL-1.0
/// @file
/// The sense in which the corners of a chain turn.

#ifndef CALCULATIONS_PROFILES_TURNING_SENSE_H
#define CALCULATIONS_PROFILES_TURNING_SENSE_H

#include <Calculations/Points.h>

#include <cstddef>

namespace Ruv {
namespace Calculations {

/// Sums the turning of a chain at its nodes as they are added.
///
/// The sum runs over all consecutive triples of nodes, in order, and over the triple that leads
/// from the last two nodes to the second: a closed chain repeats its first node as its last. Only
/// that last term changes with every node, so it is not kept in the sum. A node that repeats the
/// one before is no node here.
class TurningSense {
 public:
  void add(const Point2D& node);
  /// Starts a new chain.
  void reset();

  /// True when the turning is positive in sum. With fewer than three nodes it is what it was for
  /// the chain before the last reset, at first false.
  bool isClockwise() const;

 private:
  std::size_t m_numNodes = 0;
  Point2D m_second;
  Point2D m_last;
  double m_lastBearing = 0.0;
  double m_sum = 0.0;
  bool m_before = false;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
