// SPDX-License-Identifier: BSL-1.0
/// @file
/// The horizontal alignment, prepared for evaluation and projection.

#ifndef CALCULATIONS_SHAPES_HORAL_ALIGNMENT_H
#define CALCULATIONS_SHAPES_HORAL_ALIGNMENT_H

#include "shapes/BoxTree.h"
#include "shapes/HoralSegment.h"
#include "shapes/SmoothWedge.h"
#include "shapes/SoleSegment.h"
#include "shapes/StationingIndex.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

namespace Ruv {

/// Place, direction and curvature of an alignment at one stationing.
struct CAlignmentPosition {
  double stationing = 0.0;
  double azimuth = 0.0;  ///< of the alignment, in [0, 2 pi)
  double radius = 0.0;   ///< 0 where the curvature is 0
  Point2D position;      ///< x east, y north
};

/// Foot of a point on an alignment.
struct CAlignmentFoot {
  double stationing = 0.0;
  double offset = 0.0;  ///< of the point, to the right
};

/// What a list of points keeps from one projection to the next.
///
/// The sole segment is found anew when some feet in a row that it did not serve lie near each
/// other, as in the lists that scanners write, and after the more of them, the less the last one
/// served: finding it takes as long as two or three projections.
class CFootTrail {
 public:
  CSoleSegment sole;

  void noteServed() { ++m_numServed; }
  /// To be told of each foot that the sole segment did not serve.
  /// @return whether it is to be found anew
  bool isDueAfter(double stationing);

 private:
  static constexpr double kNear = 2.0;           // m; less than points without order lie apart
  static constexpr unsigned kRow = 3;            // feet near each other
  static constexpr unsigned kWorthFinding = 16;  // points served
  static constexpr unsigned kLongestPause = 96;  // points not served

  double m_lastStationing = std::numeric_limits<double>::infinity();
  unsigned m_row = 0;
  unsigned m_numServed = kWorthFinding;
  unsigned m_numMissed = 0;
  unsigned m_pause = kRow;
};

/// An immutable horizontal alignment ("Horal", the course of an axis in plan): segments with the
/// tables that make searching it fast.
class CHoralAlignment {
 public:
  CHoralAlignment() = default;
  /// @param startStationing of the alignment, where the first segment begins
  CHoralAlignment(double startStationing, const std::vector<CHoralSegmentData>& segments);

  const std::vector<CHoralSegment>& segments() const { return m_segments; }
  const CBoxTree& boxes() const { return m_boxes; }

  /// Evaluates, but for the heading, the first segment whose end stationing is not less than the
  /// given one. Nothing outside the alignment or when that segment is not evaluable. O(log n).
  std::optional<CCurvePoint> placeAt(double stationing) const;
  /// The same place with the azimuth and the signed radius that callers are told, 0 where it is
  /// straight.
  std::optional<CAlignmentPosition> positionAt(double stationing) const;

  /// Nearest foot of a point, the first of equally near ones. A joint counts as a foot of the
  /// points in its smooth wedge, with the distance as offset. Where no segment has a foot, as on
  /// the outer side of a corner, the nearest corner that faces the point takes its place, with
  /// the distance as offset. Nothing when there is neither. O(log n) for points that have a foot
  /// near the alignment, O(n) for those that have none.
  std::optional<CAlignmentFoot> project(const Point2D& p) const;
  /// The same, to the bit, for the points of a list one after the other: faster where they lie near
  /// each other.
  std::optional<CAlignmentFoot> project(const Point2D& p, CFootTrail& trail) const;

 private:
  void findWedges();
  const CHoralSegment* segmentAt(double stationing) const;
  std::optional<CAlignmentFoot> nearestFoot(const Point2D& p) const;
  std::optional<CAlignmentFoot> footOnSoleSegment(const Point2D& p, const CSoleSegment& sole) const;
  void followTo(double stationing, CFootTrail& trail) const;
  std::optional<CAlignmentFoot> nearestCorner(const Point2D& p) const;

  double m_startStationing = 0.0;
  CStationingIndex m_ends;
  std::vector<CHoralSegment> m_segments;
  std::vector<CSmoothWedge> m_wedges;  // at the end of the segment of the same index; empty if none
  CBoxTree m_boxes;
  double m_vicinity = 0.0;  // m around a point that is searched first
};

/// Azimuth in [0, 2 pi), with values that only rounding keeps below a full turn given as 0: due
/// north must not read 6.283.
double reportedAzimuth(double bearing);

}  // namespace Ruv

#endif
