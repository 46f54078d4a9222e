// SPDX-License-Identifier: BSL-1.0
#include <Calculations/AxisCalculator.h>
#include <Calculations/GuidanceVectorDefinition.h>
#include <Calculations/ThProfileCalculator.h>
#include <Calculations/Utilities.h>

#include "foundation/MathConstants.h"
#include "guidance/AxisAttitude.h"
#include "guidance/Levelling.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// A zero direction becomes not-a-number here, which no later step takes for a direction.
GuidanceVectorDefinition* straightVector(const AxisPoint& origin,
                                         const GuidanceOffsets& direction) {
  std::unique_ptr<GuidanceVectorDefinition> vector(new GuidanceVectorDefinition);
  vector->setVectorOriginPoint(origin);
  vector->setVectorDirectionAsStraight(direction.normalized());
  return vector.release();
}

/// The point is not a number where the conversion fails: from the origin of the grid a vector would
/// point to a plausible direction. A shaft writes its result all the same.
ENHPoint gridPointOf(const AxisCalculator& axis, const AxisPoint& point, bool perpendicular,
                     bool withTransSlope) {
  ENHPoint result(kNotANumber, kNotANumber, kNotANumber);
  axis.axisPointToEnhPoint(point, result, perpendicular, withTransSlope);
  return result;
}

}  // namespace

GuidanceVectorDefinition* GuidanceVectorFactory::createAsAxisParallelFromAxisCoordinate(
    const AxisPoint& origin) {
  std::unique_ptr<GuidanceVectorDefinition> vector(new GuidanceVectorDefinition);
  vector->setVectorOriginPoint(origin);
  vector->setVectorDirectionAsAxisParallel();
  return vector.release();
}

GuidanceVectorDefinition*
GuidanceVectorFactory::createAsStraightFromAxisCoordinateAndVectorComponents(
    const AxisPoint& origin, const GuidanceOffsets& components) {
  return straightVector(origin, components);
}

GuidanceVectorDefinition* GuidanceVectorFactory::createAsStraightInProfilePlaneWithVerticalAngle(
    const AxisPoint& origin, double angle) {
  // The angle counts as in the front view: 0 is up, a right angle to the right.
  return straightVector(origin, GuidanceOffsets(0.0, std::sin(angle), std::cos(angle)));
}

GuidanceVectorDefinition* GuidanceVectorFactory::createAsStraightRadialFromAxisCoordinateAndProfile(
    const boost::shared_ptr<const ThProfileDefinition>& profile, const AxisPoint& origin) {
  // Offsets count from the profile, not from the origin: the point at offset 1 lies inwards from
  // an origin farther out. The difference of two offset points is outwards everywhere.
  const ThProfileCalculator calculator(profile);
  const Point2D place(origin.offset, origin.height);
  const Point2D outwards =
      calculator.applyRadialOffset(place, 1.0) - calculator.applyRadialOffset(place, 0.0);
  return straightVector(origin, GuidanceOffsets(0.0, outwards.x, outwards.y));
}

GuidanceVectorDefinition* GuidanceVectorFactory::createAsStraightFromPairOfAxisCoordinates(
    const boost::shared_ptr<const AxisDefinition>& axis, const AxisPoint& first,
    const AxisPoint& second, bool perpendicular, bool withTransSlope) {
  const AxisCalculator calculator(axis);
  // The difference of the two places in the grid, turned into the frame of the axis at the first. A
  // calculator with the same plane turns it back by the same attitude, so that the vector leads
  // through the second place.
  const ENHPoint along = gridPointOf(calculator, second, perpendicular, withTransSlope) -
                         gridPointOf(calculator, first, perpendicular, withTransSlope);
  const AxisAttitude attitude(calculator, first.stationing);
  const GuidanceOffsets inclined = asOffsets(Utilities::rotateENHdiffToAxisDirectionComponents(
      along, attitude.azimuth, attitude.longSlope, attitude.transSlopePercent));
  const bool isLevelled = !perpendicular && !(axis && axis->isShaftAxis());
  return straightVector(first,
                        isLevelled ? relativeToHorizontal(inclined, attitude.longSlope) : inclined);
}

}  // namespace Calculations
}  // namespace Ruv
