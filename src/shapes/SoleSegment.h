// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tells for the points of a list that only one segment of an alignment comes into question.

#ifndef CALCULATIONS_SHAPES_SOLE_SEGMENT_H
#define CALCULATIONS_SHAPES_SOLE_SEGMENT_H

#include "shapes/BoxTree.h"
#include "shapes/HoralSegment.h"

#include <array>
#include <cstddef>
#include <vector>

namespace Ruv {

/// One segment of an alignment and the points of which it alone can have the nearest foot.
///
/// Around a place there is a circle that holds nothing of the alignment but this segment and those
/// it joins. A point at a distance d from the place, whose foot lies at a distance r, has nothing
/// else as near where d + r is no more than the radius. What is left are the neighbours: where a
/// point lies behind the start of the next one, and the circle is small before its radii, that one
/// has no foot for it, and likewise the one before. So most points of a scan need no search.
class CSoleSegment {
 public:
  /// Serves no point.
  CSoleSegment() = default;
  /// @param place near the segment, to one side of which the points are expected
  CSoleSegment(const std::vector<CHoralSegment>& segments, const CBoxTree& boxes, std::size_t index,
               const Point2D& place);

  std::size_t index() const { return m_index; }

  /// A foot on the segment that is no farther from a point than this is the nearest one of the
  /// alignment. Negative where no foot is known to be.
  double reachAlone(const Point2D& p) const {
    if (!(m_joints[0].isPassedBy(p) && m_joints[1].isPassedBy(p))) return -1.0;
    return m_radius - (p - m_place).length();
  }

 private:
  /// The normal at a joint with a neighbour, directed towards this segment. As constructed, all
  /// points have passed it.
  struct Joint {
    Point2D place;
    CDirection inward{0.0, 0.0};
    double margin = -1.0;

    bool isPassedBy(const Point2D& p) const { return forwardComponent(p - place, inward) > margin; }
  };

  void setMargin(Joint& joint, bool opensWedge, double radius) const;

  std::size_t m_index = 0;
  Point2D m_place;
  double m_radius = -1.0;
  std::array<Joint, 2> m_joints;
};

}  // namespace Ruv

#endif
