/// @file
/// What a caller would otherwise project points with: a polyline of the axis, searched by
/// Boost.Geometry or by GEOS. The result is off by up to the polyline's own error.

#ifndef CALCULATIONS_BENCHMARKS_AXIS_PEERS_H
#define CALCULATIONS_BENCHMARKS_AXIS_PEERS_H

#include <Calculations/Points.h>

#include <geos_c.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <boost/geometry/index/rtree.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Point2D;

/// Vertex distance of the peers' polylines (m).
constexpr double kPolylineStep = 0.1;

/// The segments of a polyline in a Boost R-tree.
class SegmentTree {
 public:
  /// Bulk build. Vertices lie kPolylineStep apart.
  SegmentTree(const std::vector<Point2D>& vertices, double startStationing);

  /// Stationing and offset of a point; the height stays 0.
  AxisPoint project(const ENHPoint& point) const;

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

  double m_startStationing;
  Tree m_tree;
};

struct FinishGeos {
  void operator()(GEOSContextHandle_t context) const { GEOS_finish_r(context); }
};

struct DestroyGeosGeometry {
  GEOSContextHandle_t context = nullptr;
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
};

/// A polyline as a GEOS line string. Projection is linear in the number of vertices.
class LineString {
 public:
  LineString(const std::vector<Point2D>& vertices, double startStationing);

  double stationingOf(const ENHPoint& point) const;

 private:
  using Geometry = std::unique_ptr<GEOSGeometry, DestroyGeosGeometry>;

  Geometry owned(GEOSGeometry* geometry) const {
    return Geometry(geometry, DestroyGeosGeometry{m_context.get()});
  }

  double m_startStationing;
  std::unique_ptr<GEOSContextHandle_HS, FinishGeos> m_context;
  Geometry m_line;
};

}  // namespace Benchmarks

#endif
