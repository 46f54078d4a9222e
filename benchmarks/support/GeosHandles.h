// SPDX-License-Identifier: BSL-1.0
/// @file
/// Owns what GEOS hands out.

#ifndef CALCULATIONS_BENCHMARKS_GEOS_HANDLES_H
#define CALCULATIONS_BENCHMARKS_GEOS_HANDLES_H

#include <Calculations/Points.h>

#include <geos_c.h>

#include <memory>
#include <vector>

namespace Benchmarks {

struct FinishGeos {
  void operator()(GEOSContextHandle_t context) const { GEOS_finish_r(context); }
};

struct DestroyGeosGeometry {
  GEOSContextHandle_t context = nullptr;
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
};

using GeosGeometry = std::unique_ptr<GEOSGeometry, DestroyGeosGeometry>;

/// A GEOS context of one's own. Geometries must not outlive it.
class GeosContext {
 public:
  GeosContext() : m_context(GEOS_init_r()) {}

  GEOSContextHandle_t get() const { return m_context.get(); }
  GeosGeometry owned(GEOSGeometry* geometry) const {
    return GeosGeometry(geometry, DestroyGeosGeometry{get()});
  }

  GeosGeometry lineString(const std::vector<Ruv::Calculations::Point2D>& points) const;
  /// The polygon of a closed ring; the points do not repeat the first one.
  GeosGeometry polygon(const std::vector<Ruv::Calculations::Point2D>& ring) const;

 private:
  GEOSCoordSequence* sequenceOf(const std::vector<Ruv::Calculations::Point2D>& points) const;

  std::unique_ptr<GEOSContextHandle_HS, FinishGeos> m_context;
};

}  // namespace Benchmarks

#endif
