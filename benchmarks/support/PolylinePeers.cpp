// SPDX-License-Identifier: BSL-1.0
#include "support/PolylinePeers.h"

#include <algorithm>

namespace Benchmarks {

SegmentTree::SegmentTree(const std::vector<Point2D>& vertices) : m_tree(entriesOf(vertices)) {}

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

PolylineFoot SegmentTree::project(const Point2D& point) const {
  Entry nearest;
  m_tree.query(boost::geometry::index::nearest(Vertex(point.x, point.y), 1), &nearest);
  const Vertex& from = nearest.segment.first;
  const Vertex& to = nearest.segment.second;
  const Point2D start(from.x(), from.y());
  const Point2D chord(to.x() - from.x(), to.y() - from.y());
  const Point2D ray = point - start;
  const double length = chord.length();
  const double part = (ray.x * chord.x + ray.y * chord.y) / (length * length);
  const double partInside = std::clamp(part, 0.0, 1.0);
  return {nearest.index, partInside, start + chord * partInside,
          (ray.x * chord.y - ray.y * chord.x) / length};
}

double LineString::lengthTo(const Point2D& point) const {
  GEOSContextHandle_t context = m_geos.get();
  const GeosGeometry query = m_geos.owned(GEOSGeom_createPointFromXY_r(context, point.x, point.y));
  return GEOSProject_r(context, m_line.get(), query.get());
}

}  // namespace Benchmarks
