// SPDX-License-Identifier: BSL-1.0
/// @file
/// The horizontal alignment, prepared for evaluation and projection.

#ifndef CALCULATIONS_SHAPES_HORAL_ALIGNMENT_H
#define CALCULATIONS_SHAPES_HORAL_ALIGNMENT_H

#include "shapes/BoxTree.h"
#include "shapes/HoralSegment.h"
#include "shapes/SmoothWedge.h"
#include "shapes/StationingIndex.h"

#include <cstddef>
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

/// An immutable horizontal alignment ("Horal", the course of an axis in plan): segments with the
/// tables that make searching it fast.
class CHoralAlignment {
 public:
  CHoralAlignment() = default;
  /// @param startStationing of the alignment, where the first segment begins
  CHoralAlignment(double startStationing, const std::vector<CHoralSegmentData>& segments);

  const std::vector<CHoralSegment>& segments() const { return m_segments; }
  const CBoxTree& boxes() const { return m_boxes; }

  /// Evaluates the first segment whose end stationing is not less than the given one. Nothing
  /// outside the alignment or when that segment is not evaluable. O(log n).
  std::optional<CCurvePoint> pointAt(double stationing) const;
  /// Signed radius at the same place; 0 where it is straight and where pointAt gives nothing.
  double radiusAt(double stationing) const;
  /// The same place with the azimuth and the radius that callers are told.
  std::optional<CAlignmentPosition> positionAt(double stationing) const;

  /// Nearest foot of a point, the first of equally near ones. A joint counts as a foot of the
  /// points in its smooth wedge, with the distance as offset. Where no segment has a foot, as on
  /// the outer side of a corner, the nearest corner that faces the point takes its place, with
  /// the distance as offset. Nothing when there is neither. O(log n) for points that have a foot
  /// near the alignment, O(n) for those that have none.
  std::optional<CAlignmentFoot> project(const Point2D& p) const;
  /// The same, to the bit, for the points of a list one after the other: faster where they lie near
  /// each other.
  std::optional<CAlignmentFoot> project(const Point2D& p, CBoxTree::Neighbourhood& around) const;

 private:
  void findWedges();
  const CHoralSegment* segmentAt(double stationing) const;
  /// @param visit shows a function the segments that may lie within a reach
  template <class Visit>
  std::optional<CAlignmentFoot> nearestFoot(const Point2D& p, const Visit& visit) const;
  std::optional<CAlignmentFoot> nearestCorner(const Point2D& p) const;

  double m_startStationing = 0.0;
  CStationingIndex m_ends;
  std::vector<CHoralSegment> m_segments;
  std::vector<CSmoothWedge> m_wedges;  // at the end of the segment of the same index; empty if none
  CBoxTree m_boxes;
};

/// Azimuth in [0, 2 pi), with values that only rounding keeps below a full turn given as 0: due
/// north must not read 6.283.
double reportedAzimuth(double bearing);

}  // namespace Ruv

#endif
