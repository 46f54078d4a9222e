// SPDX-License-Identifier: BSL-1.0
/// @file
/// The centroid of an area.

#ifndef CALCULATIONS_SHAPES_AREA_CENTROID_H
#define CALCULATIONS_SHAPES_AREA_CENTROID_H

#include "shapes/PlaneGeometry.h"

#include <optional>
#include <vector>

namespace Ruv {

/// Centroid of the area of a polygon by the shoelace formula; nothing without area.
/// @param polygon at least one point; the last one leads back to the first
std::optional<Point2D> areaCentroid(const std::vector<Point2D>& polygon);

}  // namespace Ruv

#endif
