// SPDX-License-Identifier: BSL-1.0
// Three frames meet here.
//
//   grid           east, north, height
//   axis frame     along the axis, to the right and upwards, at one stationing; turned by azimuth,
//                  slope and cross fall of the axis (AxisAttitude)
//   levelled       the same with the forward direction horizontal: the frame of vectors that are
//                  not perpendicular to the axis
//
// A vector parallel to the axis is a difference of axis coordinates. A straight one is carried to
// the grid at its origin, and offsets are the components of the point's vector from there in the
// frame of the vector's own azimuth and elevation.

#include <Calculations/AxisCalculator.h>
#include <Calculations/GuidanceCalculator.h>
#include <Calculations/Utilities.h>

#include "guidance/AxisAttitude.h"
#include "guidance/ContinuedTunnelMeter.h"
#include "guidance/Levelling.h"

#include <utility>

namespace Ruv {
namespace Calculations {

class GuidanceCalculatorImpl {
 public:
  GuidanceCalculatorImpl(boost::shared_ptr<const GuidanceVectorDefinition> guidanceVector,
                         boost::shared_ptr<const AxisDefinition> definition, bool isPerpendicular)
      : vector(std::move(guidanceVector)),
        axis(std::move(definition)),
        perpendicular(isPerpendicular || (axis && axis->isShaftAxis())) {}

  boost::shared_ptr<const GuidanceVectorDefinition> vector;
  boost::shared_ptr<const AxisDefinition> axis;
  bool perpendicular;

  GuidanceOffsets offsetsFromParallel(const ENHPoint& point) const;
  GuidanceOffsets offsetsFromStraight(const ENHPoint& point) const;
  ENHPoint pointOnParallel(double forwardValue) const;
  ENHPoint pointOnStraight(double forwardValue) const;

 private:
  /// A direction of the vector in grid coordinates: from the levelled frame to that of the axis,
  /// where the vector is levelled, and then turned by transverse slope, slope and azimuth, in this
  /// order.
  ENHPoint onGrid(const GuidanceOffsets& direction, const AxisAttitude& attitude) const {
    const GuidanceOffsets inclined =
        perpendicular ? direction : relativeToAxis(direction, attitude.longSlope);
    return Utilities::rotateAxisDirectionComponentsToENHdiff(
        asAxisPoint(inclined), attitude.azimuth, attitude.longSlope, attitude.transSlopePercent);
  }
};

GuidanceOffsets GuidanceCalculatorImpl::offsetsFromParallel(const ENHPoint& point) const {
  const AxisCalculator calculator(axis);
  const AxisPoint origin = vector->getVectorOriginPoint();
  AxisPoint place;
  if (!calculator.enhPointToAxisPoint(point, place, perpendicular, true)) return GuidanceOffsets();
  double forward = place.stationing - origin.stationing;
  // Square to the axis distances count in space. One of the two ends must lie on the axis: between
  // two places beyond it the continued tunnel meter is no more than a guess.
  if (perpendicular) {
    const ContinuedTunnelMeter tunnelmeter(*axis, calculator);
    const ContinuedTunnelMeter::Value atPoint = tunnelmeter.at(place.stationing);
    const ContinuedTunnelMeter::Value atOrigin = tunnelmeter.at(origin.stationing);
    if (!atPoint.isOnAxis && !atOrigin.isOnAxis) return GuidanceOffsets();
    forward = atPoint.value - atOrigin.value;
  }
  return GuidanceOffsets(forward, place.offset - origin.offset, place.height - origin.height);
}

GuidanceOffsets GuidanceCalculatorImpl::offsetsFromStraight(const ENHPoint& point) const {
  const AxisCalculator calculator(axis);
  const AxisPoint origin = vector->getVectorOriginPoint();
  ENHPoint start;
  if (!calculator.axisPointToEnhPoint(origin, start, perpendicular, true)) {
    return GuidanceOffsets();
  }
  const AxisAttitude attitude(calculator, origin.stationing);
  if (!attitude.isKnown) return GuidanceOffsets();
  // Azimuth and elevation fix the vector's own frame but for the roll about it, which is taken as
  // level: the transverse slope turns the vector with the axis, but not right and up around it.
  const ENHPoint direction = onGrid(vector->getVectorDirection(), attitude);
  return asOffsets(Utilities::rotateENHdiffToAxisDirectionComponentsWithoutTransSlope(
      point - start, direction.azimuthAngle(), direction.elevationAngle()));
}

ENHPoint GuidanceCalculatorImpl::pointOnParallel(double forwardValue) const {
  const AxisCalculator calculator(axis);
  const AxisPoint origin = vector->getVectorOriginPoint();
  double stationing = origin.stationing + forwardValue;
  if (perpendicular) {
    // Nothing has failed so far that a missing axis makes fail, and the next line refers to it.
    if (!axis) return ENHPoint();
    const ContinuedTunnelMeter tunnelmeter(*axis, calculator);
    const ContinuedTunnelMeter::Value atOrigin = tunnelmeter.at(origin.stationing);
    const ContinuedTunnelMeter::Value there =
        tunnelmeter.stationingAt(atOrigin.value + forwardValue);
    if (!atOrigin.isOnAxis && !there.isOnAxis) return ENHPoint();
    stationing = there.value;
  }
  ENHPoint point;
  calculator.axisPointToEnhPoint(AxisPoint(stationing, origin.offset, origin.height), point,
                                 perpendicular, true);
  return point;
}

ENHPoint GuidanceCalculatorImpl::pointOnStraight(double forwardValue) const {
  const AxisCalculator calculator(axis);
  const AxisPoint origin = vector->getVectorOriginPoint();
  const AxisAttitude attitude(calculator, origin.stationing);
  if (!attitude.isKnown) return ENHPoint();
  // Forward distances are metres, whatever the length of the direction that was stored.
  const GuidanceOffsets unit = vector->getVectorDirection().normalized();
  const GuidanceOffsets along(unit.forward * forwardValue, unit.horizontal * forwardValue,
                              unit.vertical * forwardValue);
  ENHPoint start;
  // A place with a known attitude converts too, so there is no failure to look at.
  calculator.axisPointToEnhPoint(origin, start, perpendicular, true);
  return onGrid(along, attitude) + start;
}

namespace {

boost::shared_ptr<const AxisDefinition> axisOfBlock(
    const boost::shared_ptr<const BlockAxisDefinition>& block) {
  return block ? block->asAxisDefinition() : boost::shared_ptr<const AxisDefinition>();
}

}  // namespace

GuidanceCalculator::GuidanceCalculator(
    const boost::shared_ptr<const GuidanceVectorDefinition>& vector,
    const boost::shared_ptr<const AxisDefinition>& axis, bool perpendicular)
    : m_impl(new GuidanceCalculatorImpl(vector, axis, perpendicular)) {}

GuidanceCalculator::GuidanceCalculator(
    const boost::shared_ptr<const GuidanceVectorDefinition>& vector,
    const boost::shared_ptr<const BlockAxisDefinition>& block, bool perpendicular)
    : m_impl(new GuidanceCalculatorImpl(vector, axisOfBlock(block), perpendicular)) {}

GuidanceCalculator::~GuidanceCalculator() = default;

GuidanceOffsets GuidanceCalculator::calculateOffsets(const ENHPoint& point) const {
  if (!m_impl->vector) return GuidanceOffsets();
  return m_impl->vector->isVectorDirectionAxisParallel() ? m_impl->offsetsFromParallel(point)
                                                         : m_impl->offsetsFromStraight(point);
}

ENHPoint GuidanceCalculator::absolutePointAtForwardValue(double forwardValue) const {
  if (!m_impl->vector) return ENHPoint();
  return m_impl->vector->isVectorDirectionAxisParallel() ? m_impl->pointOnParallel(forwardValue)
                                                         : m_impl->pointOnStraight(forwardValue);
}

}  // namespace Calculations
}  // namespace Ruv
