// SPDX-License-Identifier: BSL-1.0
#include "support/GeosHandles.h"

namespace Benchmarks {

using Ruv::Calculations::Point2D;

GEOSCoordSequence* GeosContext::sequenceOf(const std::vector<Point2D>& points) const {
  GEOSCoordSequence* sequence =
      GEOSCoordSeq_create_r(get(), static_cast<unsigned>(points.size()), 2);
  for (std::size_t i = 0; i < points.size(); ++i) {
    GEOSCoordSeq_setXY_r(get(), sequence, static_cast<unsigned>(i), points[i].x, points[i].y);
  }
  return sequence;
}

GeosGeometry GeosContext::lineString(const std::vector<Point2D>& points) const {
  return owned(GEOSGeom_createLineString_r(get(), sequenceOf(points)));
}

GeosGeometry GeosContext::polygon(const std::vector<Point2D>& ring) const {
  std::vector<Point2D> closed = ring;
  closed.push_back(ring.front());
  GEOSGeometry* shell = GEOSGeom_createLinearRing_r(get(), sequenceOf(closed));
  return owned(GEOSGeom_createPolygon_r(get(), shell, nullptr, 0));
}

}  // namespace Benchmarks
