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
///   direction has less than 0.001 both in east and in north.
/// Failure: never throws. Where a conversion fails results are (0, 0, 0), which a point at the
///   origin gives too. Null pointers fail.
/// Cost: a few conversions of AxisCalculator a call.
/// Lifetime: shares ownership of vector and axis, which must stay as they are. Shareable between
///   threads, not copyable.
/// @snippet snippets/Guidance.cpp GuidanceCalculator
class CALCULATIONS_EXPORT GuidanceCalculator {
 public:
  /// On an axis.
  GuidanceCalculator(const boost::shared_ptr<const GuidanceVectorDefinition>& vector,
                     const boost::shared_ptr<const AxisDefinition>& axis, bool perpendicular);
  /// On the block's own axis.
  GuidanceCalculator(const boost::shared_ptr<const GuidanceVectorDefinition>& vector,
                     const boost::shared_ptr<const BlockAxisDefinition>& block, bool perpendicular);
  GuidanceCalculator(const GuidanceCalculator&) = delete;
  GuidanceCalculator& operator=(const GuidanceCalculator&) = delete;
  virtual ~GuidanceCalculator();

  /// How far a grid point lies forward along the vector, to the right of it and above it. For a
  /// straight vector horizontal is level and square to it, vertical square to both.
  GuidanceOffsets calculateOffsets(const ENHPoint& point) const;

  /// The grid point that lies forwardValue along the vector from its origin. Where a conversion
  /// has failed the result may hold what another one has written.
  ENHPoint absolutePointAtForwardValue(double forwardValue) const;

 private:
  std::unique_ptr<GuidanceCalculatorImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
