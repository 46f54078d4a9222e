// SPDX-License-Identifier: BSL-1.0
/// @file
/// The outlines that the morph engine reads, keeps and returns.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_OUTLINE_STORE_H
#define CALCULATIONS_PROFILES_MORPHING_READING_OUTLINE_STORE_H

#include "profiles/ProfileSegments.h"
#include "profiles/morphing/reading/TurningChord.h"

#include <cstdint>
#include <vector>

namespace Ruv {
namespace Calculations {

/// A node of an outline and the radius of the segment that starts at it; the segment of the last
/// node leads back to the first.
struct OutlineNode {
  Point2D point;
  double radius = 0.0;
};

using OutlineNodes = std::vector<OutlineNode>;

/// @param outline clockwise
/// @param isAnticlockwise whether the nodes are to lead the other way, from the same one
OutlineNodes nodesFrom(const TurningChords& outline, bool isAnticlockwise);

/// A result as an input; the last node leads back to the first.
std::vector<ProfileSegment> segmentsOf(const OutlineNodes& nodes);

/// Nodes closer than this (m) are one: a micrometre is nothing in a tunnel, a nanometre rounding.
constexpr double kSamePoint = 1e-9;

/// One outline. Empty until it is loaded.
class OutlineStore {
 public:
  /// Reads a chain of segments; a gap between its ends is closed by a straight. The store stays
  /// empty when a number is not finite, an arc is shorter than its chord, or nothing is enclosed.
  void load(const std::vector<ProfileSegment>& outline);
  bool isEmpty() const { return m_elements.empty(); }

  /// Exactly as read.
  const OutlineNodes& nodes() const { return m_nodes; }
  bool wasAnticlockwise() const { return m_wasAnticlockwise; }

  /// Clockwise from the first node, without segments of no length.
  const TurningChords& elements() const { return m_elements; }

  /// True when an arc turns by half a turn, the most that an arc can.
  bool hasHalfCircle() const;

  /// Numbers the elements in order.
  /// @param counter number of the first; afterwards that of the next to come
  void numberElements(std::int64_t& counter);
  std::int64_t numberOf(std::size_t index) const {
    return m_firstNumber + static_cast<std::int64_t>(index);
  }

 private:
  OutlineNodes m_nodes;
  TurningChords m_elements;
  bool m_wasAnticlockwise = false;
  std::int64_t m_firstNumber = 0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
