// SPDX-License-Identifier: BSL-1.0
/// @file
/// Chains of straights and arcs: outlines in the plane of a cross-section.

#ifndef CALCULATIONS_SHAPES_CURVE_CHAIN_H
#define CALCULATIONS_SHAPES_CURVE_CHAIN_H

#include "shapes/BoxTree.h"
#include "shapes/ChainSegment.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {

/// A node of a chain: its first point, or the end of a segment.
struct CChainNode {
  Point2D point;
  double station = 0.0;  ///< length along the chain
  double radius = 0.0;   ///< of the segment that ends here
};

/// Nearest point of a chain, seen from a point p.
struct CChainFoot {
  Point2D point;
  double station = 0.0;
  double outside = 0.0;  ///< distance of p, positive outside the outline, negative inside
  /// Unit normal to the outside. At a vertex it lies on the line through p, so that
  /// offsetPoint(outside) is p everywhere.
  Point2D normal;
  std::size_t segment = 0;  ///< on which it lies

  Point2D offsetPoint(double offset) const { return point + normal * offset; }
};

/// An immutable chain.
///
/// Outside is the side away from the area that the chain, closed by a straight, encloses: left of
/// travel on a clockwise chain, right of travel on an anticlockwise one and on one without area.
/// The bulge of arcs counts, so two half circles have a sense as well.
class CCurveChain {
 public:
  CCurveChain() = default;
  explicit CCurveChain(std::vector<CChainNode> nodes);

  const std::vector<CChainNode>& nodes() const { return m_nodes; }
  const std::vector<CChainSegment>& segments() const { return m_segments; }

  /// Nearest point, the ends of all segments included; of equally near ones that of the lower
  /// station. Nothing for fewer than two nodes or a point that is not finite. O(log n) for points
  /// near the chain.
  std::optional<CChainFoot> project(const Point2D& p) const;
  /// The same, faster where the foot lies near the hint, as it mostly does on the segment of the
  /// foot before in a list of points along the chain.
  std::optional<CChainFoot> project(const Point2D& p, std::size_t hint) const;

  /// The point at a station. Nothing outside the stations of the chain. Where stations do not fit
  /// the nodes, the stretch between two of them is spread evenly over its segment. O(log n).
  std::optional<Point2D> pointAt(double station) const {
    std::size_t end = 1;
    return pointAt(station, end);
  }
  /// The same, faster for stations that follow each other either way along the chain.
  /// @param end of the segment of the station before, as an index of a node; any number at first
  std::optional<Point2D> pointAt(double station, std::size_t& end) const;

 private:
  std::size_t endOfSegmentAt(double station, std::size_t guess) const;

  /// A candidate of the search for the nearest point.
  struct Candidate {
    std::size_t segment = 0;
    CFootReport report = CFootReport::Unknown;
    double length = 0.0;
    double lateral = 0.0;
  };

  /// @param visit shows a function the segments that may lie within a reach
  template <class Visit>
  std::optional<CChainFoot> nearestFoot(const Point2D& p, const Visit& visit) const;
  CChainFoot footInside(const Candidate& candidate) const;
  CChainFoot footAtVertex(std::size_t node, std::size_t segment, const Point2D& p) const;
  Point2D outwardNormal(const CDirection& tangent) const;
  bool isClosed() const;
  /// The segment that leads to a node or on from it, across the joint of a closed chain. Repeated
  /// nodes have segments without direction between them, which are passed over. Null at an open
  /// end.
  /// @{
  const CChainSegment* segmentBefore(std::size_t node) const;
  const CChainSegment* segmentAfter(std::size_t node) const;
  /// @}
  CDirection directionThroughVertex(std::size_t node) const;
  double stationOn(std::size_t segment, double length) const;

  std::vector<CChainNode> m_nodes;
  std::vector<CChainSegment> m_segments;  // segment i leads from node i to node i + 1
  double m_outwards = 1.0;                // +1 when outside lies right of travel, else -1
  CBoxTree m_boxes;
};

}  // namespace Ruv

#endif
