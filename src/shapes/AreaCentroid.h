// SPDX-License-Identifier: BSL-1.0
/// @file
/// The area inside a polygon, and its centroid.

#ifndef CALCULATIONS_SHAPES_AREA_CENTROID_H
#define CALCULATIONS_SHAPES_AREA_CENTROID_H

#include "shapes/PlaneGeometry.h"

#include <optional>
#include <vector>

namespace Ruv {

struct AreaAndCentroid {
  double area = 0.0;  ///< positive when the polygon runs clockwise
  Point2D centroid;
};

/// By the shoelace formula; nothing for a polygon without area.
/// @param polygon the last point leads back to the first
std::optional<AreaAndCentroid> areaAndCentroid(const std::vector<Point2D>& polygon);

}  // namespace Ruv

#endif
