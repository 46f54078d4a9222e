// SPDX-License-Identifier: BSL-1.0
/// @file
/// Where a point lies relative to a guidance vector.

#ifndef CALCULATIONS_GUIDANCE_CALCULATOR_H
#define CALCULATIONS_GUIDANCE_CALCULATOR_H

#include <Calculations/AxisDefinition.h>
#include <Calculations/BlockAxisDefinition.h>
#include <Calculations/Export.h>
#include <Calculations/GuidanceVectorDefinition.h>
#include <Calculations/Points.h>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace Ruv {
namespace Calculations {

class GuidanceCalculatorImpl;

/// Evaluates a guidance vector on an axis.
///
/// Conventions: with perpendicular set, axis coordinates are read in the plane square to the axis
///   in space, forward distances along an axis-parallel vector are tunnel meters, and the
///   components of a straight vector are relative to the inclined tangent. Clear: the vertical
///   plane, stationings, and forward and vertical relative to the horizontal. A shaft counts as
///   perpendicular. The transverse slope of the axis always applies.
/// Plumb: calculateOffsets takes a straight vector for plumb, with azimuth 0, when its stored
///   direction has less than 0.001 both in east and in north, and for level, heading north, when it
///   has no more upwards either. So store directions of length 1, as GuidanceVectorFactory does.
/// Failure: never throws and returns no flag. **(0, 0, 0) may mean failure**: it is what comes back
///   for a point without a foot on the axis, for an origin or a place beyond the axis, and for null
///   pointers, and it reads like a point exactly on target. Before steering by a result of
///   (0, 0, 0), ask AxisCalculator whether the point, and the origin, can be converted.
/// Origin beyond the axis: of an axis-parallel vector only. In the vertical plane it counts by its
///   stationing; perpendicular, the tunnel meter is continued beyond the ends by 1 m per metre of
///   stationing. A place beyond the axis has no grid point: (0, 0, 0), but for a shaft, which is
///   continued straight. Where the axis has no tunnel meter to continue, beyond a rounding that
///   cannot be computed, forward is not a number.
/// Cost: a few conversions of AxisCalculator a call.
/// Lifetime: shares ownership of vector and axis, which must stay as they are. Shareable between
///   threads, not copyable.
/// @snippet snippets/Guidance.cpp GuidanceCalculator
class CALCULATIONS_EXPORT GuidanceCalculator {
 public:
  /// Guides on an axis.
  GuidanceCalculator(const boost::shared_ptr<const GuidanceVectorDefinition>& vector,
                     const boost::shared_ptr<const AxisDefinition>& axis, bool perpendicular);
  /// Guides on the block's own axis.
  GuidanceCalculator(const boost::shared_ptr<const GuidanceVectorDefinition>& vector,
                     const boost::shared_ptr<const BlockAxisDefinition>& block, bool perpendicular);
  GuidanceCalculator(const GuidanceCalculator&) = delete;
  GuidanceCalculator& operator=(const GuidanceCalculator&) = delete;
  virtual ~GuidanceCalculator();

  /// How far a grid point lies forward along the vector, to the right of it and above it. For a
  /// straight vector horizontal is level and square to it, vertical square to both.
  /// @return (0, 0, 0) also on failure
  GuidanceOffsets calculateOffsets(const ENHPoint& point) const;

  /// The grid point that lies forwardValue along the vector from its origin.
  /// @return (0, 0, 0) on failure
  ENHPoint absolutePointAtForwardValue(double forwardValue) const;

 private:
  std::unique_ptr<GuidanceCalculatorImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
