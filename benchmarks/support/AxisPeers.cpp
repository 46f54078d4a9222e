#include "support/AxisPeers.h"

namespace Benchmarks {

SegmentTree::SegmentTree(const std::vector<Point2D>& vertices, double startStationing)
    : m_startStationing(startStationing), m_tree(entriesOf(vertices)) {}

std::vector<SegmentTree::Entry> SegmentTree::entriesOf(const std::vector<Point2D>& vertices) {
  std::vector<Entry> entries;
  entries.reserve(vertices.size() - 1);
  for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
    const Vertex from(vertices[i].x, vertices[i].y);
    const Vertex to(vertices[i + 1].x, vertices[i + 1].y);
    entries.push_back({Segment(from, to), static_cast<std::uint32_t>(i)});
  }
  return entries;
}

AxisPoint SegmentTree::project(const ENHPoint& point) const {
  const Vertex query(point.east, point.north);
  Entry nearest;
  m_tree.query(boost::geometry::index::nearest(query, 1), &nearest);
  const Vertex& from = nearest.segment.first;
  const Vertex& to = nearest.segment.second;
  const Point2D chord(to.x() - from.x(), to.y() - from.y());
  const Point2D ray(point.east - from.x(), point.north - from.y());
  const double length = chord.length();
  const double part = (ray.x * chord.x + ray.y * chord.y) / (length * length);
  const double stationing =
      m_startStationing + kPolylineStep * (static_cast<double>(nearest.index) + part);
  return {stationing, (ray.x * chord.y - ray.y * chord.x) / length, 0.0};
}

LineString::LineString(const std::vector<Point2D>& vertices, double startStationing)
    : m_startStationing(startStationing), m_context(GEOS_init_r()) {
  GEOSContextHandle_t context = m_context.get();
  GEOSCoordSequence* sequence =
      GEOSCoordSeq_create_r(context, static_cast<unsigned>(vertices.size()), 2);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    GEOSCoordSeq_setXY_r(context, sequence, static_cast<unsigned>(i), vertices[i].x, vertices[i].y);
  }
  m_line = owned(GEOSGeom_createLineString_r(context, sequence));
}

double LineString::stationingOf(const ENHPoint& point) const {
  const Geometry query =
      owned(GEOSGeom_createPointFromXY_r(m_context.get(), point.east, point.north));
  return m_startStationing + GEOSProject_r(m_context.get(), m_line.get(), query.get());
}

}  // namespace Benchmarks
