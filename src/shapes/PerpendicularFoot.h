// SPDX-License-Identifier: BSL-1.0
/// @file
/// Projection of a point onto the axis in space.

#ifndef CALCULATIONS_SHAPES_PERPENDICULAR_FOOT_H
#define CALCULATIONS_SHAPES_PERPENDICULAR_FOOT_H

#include "shapes/ShapeContainer.h"

#include <Calculations/Points.h>

#include <optional>

namespace Ruv {

/// Foot of a point on an axis in space, and the point's place in the plane square to it there.
struct CSpatialFoot {
  double stationing = 0.0;
  double offset = 0.0;  ///< horizontal, to the right
  double height = 0.0;  ///< square to the axis and to the offset, upwards
};

/// The nearest foot within the stationing range of the axis, in space; the first of equally near
/// ones.
///
/// The stationing is a root of (P - C(s)) . C'(s), searched on every stretch between breaks of
/// the plan or of the profile. Starting from the foot in plan would not do: at the end of a graded
/// axis it may lie outside although the foot in space does not. Where grade or direction breaks
/// and the point lies ahead of the axis before the break and behind it after, the break is a
/// candidate too: its offset is measured in plan and its height takes up the rest of the distance.
/// O(log n) for points near the axis.
std::optional<CSpatialFoot> perpendicularFoot(const CAxisGeometry& axis,
                                              const Calculations::ENHPoint& point);
/// The same, to the bit, for the points of a list one after the other: faster where they lie near
/// each other.
std::optional<CSpatialFoot> perpendicularFoot(const CAxisGeometry& axis,
                                              const Calculations::ENHPoint& point,
                                              CBoxTree::Neighbourhood& around);

}  // namespace Ruv

#endif
