// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measured points of a circle and of an ellipse.

#ifndef CALCULATIONS_BENCHMARKS_FIT_WORKLOAD_H
#define CALCULATIONS_BENCHMARKS_FIT_WORKLOAD_H

#include <Calculations/Points.h>

#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::Point2D;

/// All round a circle of 5.5 m, with noise of 5 mm.
/// @param shift of the centre from its place near the origin
std::vector<Point2D> circlePoints(std::size_t count, const Point2D& shift = Point2D());

/// All round an ellipse of 5.5 m by 4.5 m, turned, with noise of 5 mm in the directions of its
/// axes.
std::vector<Point2D> ellipsePoints(std::size_t count);

}  // namespace Benchmarks

#endif
