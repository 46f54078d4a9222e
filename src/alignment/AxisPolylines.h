// SPDX-License-Identifier: BSL-1.0
/// @file
/// Samples the alignments of an axis for drawing.

#ifndef CALCULATIONS_ALIGNMENT_AXIS_POLYLINES_H
#define CALCULATIONS_ALIGNMENT_AXIS_POLYLINES_H

#include "shapes/ShapeContainer.h"

#include <Calculations/Points.h>

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// East and north along the segment between two horizontal entries, the one at index and the
/// next. The index must be that of a segment.
std::vector<Point2D> sampledSegment(const CShapeContainer& container, std::size_t index,
                                    double step);

/// Stationing and height around one vertical point, whose index must be in range.
std::vector<Point2D> sampledVeralPoint(const CShapeContainer& container, std::size_t index,
                                       double step);

/// Stationing and height along the whole vertical alignment. Repeats are dropped, and what of a
/// rounding another one already covers or lies beyond the ends.
std::vector<Point2D> sampledVeral(const CShapeContainer& container, double step);

}  // namespace Calculations
}  // namespace Ruv

#endif
