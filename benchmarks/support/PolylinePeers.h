// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a caller would otherwise project points with: a polyline, searched by Boost.Geometry or by
/// GEOS. On a curve the result is off by up to the polyline's own error.

#ifndef CALCULATIONS_BENCHMARKS_POLYLINE_PEERS_H
#define CALCULATIONS_BENCHMARKS_POLYLINE_PEERS_H

#include "support/GeosHandles.h"

#include <Calculations/Points.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::Point2D;

/// The nearest place on a polyline.
struct PolylineFoot {
  std::size_t segment = 0;
  double part = 0.0;  ///< of the segment, in [0, 1]
  Point2D point;
  double offset = 0.0;  ///< from the line through the segment, positive to the right
};

/// The segments of a polyline in a Boost R-tree.
class SegmentTree {
 public:
  /// Bulk build.
  explicit SegmentTree(const std::vector<Point2D>& vertices);

  PolylineFoot project(const Point2D& point) const;

 private:
  using Vertex = boost::geometry::model::d2::point_xy<double>;
  using Segment = boost::geometry::model::segment<Vertex>;

  struct Entry {
    Segment segment;
    std::uint32_t index = 0;
  };

  struct SegmentOf {
    using result_type = const Segment&;
    result_type operator()(const Entry& entry) const { return entry.segment; }
  };

  // Of 4, 8, 16 and 32 entries to a node, 16 answered fastest on long axes and nearly so on short
  // ones.
  using Tree = boost::geometry::index::rtree<Entry, boost::geometry::index::rstar<16>, SegmentOf>;

  static std::vector<Entry> entriesOf(const std::vector<Point2D>& vertices);

  Tree m_tree;
};

/// A polyline as a GEOS line string. Projection is linear in the number of vertices.
class LineString {
 public:
  explicit LineString(const std::vector<Point2D>& vertices) : m_line(m_geos.lineString(vertices)) {}

  /// The length along the polyline to the nearest place.
  double lengthTo(const Point2D& point) const;

 private:
  GeosContext m_geos;
  GeosGeometry m_line;
};

}  // namespace Benchmarks

#endif
