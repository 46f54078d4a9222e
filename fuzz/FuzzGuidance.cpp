// SPDX-License-Identifier: BSL-1.0
// Guidance vectors on axes: a point set out along the vector lies on it.

#include "FuzzAxes.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ruv::Calculations;
using Fuzz::FuzzedAxis;
using Fuzz::Input;
using Fuzz::requireNear;
using VectorPtr = boost::shared_ptr<GuidanceVectorDefinition>;

VectorPtr vectorOn(Input& input, const FuzzedAxis& made, const AxisPoint& origin) {
  GuidanceVectorDefinition* vector = nullptr;
  switch (input.count(4)) {
    case 0:
      vector = GuidanceVectorFactory::createAsAxisParallelFromAxisCoordinate(origin);
      break;
    case 1: {
      const double forward = input.number(0.0, 2.0);
      const double horizontal = input.number(-2.0, 2.0);
      vector = GuidanceVectorFactory::createAsStraightFromAxisCoordinateAndVectorComponents(
          origin, GuidanceOffsets(forward, horizontal, input.number(-2.0, 2.0)));
      break;
    }
    case 2:
      vector = GuidanceVectorFactory::createAsStraightInProfilePlaneWithVerticalAngle(
          origin, input.number(-7.0, 7.0));
      break;
    case 3: {
      const double stationing = input.number(0.0, 300.0);
      const double offset = input.number(-5.0, 5.0);
      vector = GuidanceVectorFactory::createAsStraightFromPairOfAxisCoordinates(
          made.axis, origin, AxisPoint(stationing, offset, input.number(-5.0, 5.0)), input.yes(),
          input.yes());
      break;
    }
    default: {
      const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
      const double radius = input.number(1.0, 6.0);
      profile->addSegmentArc(-radius, 0.0, radius, 0.0, radius);
      profile->addSegmentArc(radius, 0.0, -radius, 0.0, radius);
      vector = GuidanceVectorFactory::createAsStraightRadialFromAxisCoordinateAndProfile(profile,
                                                                                         origin);
    }
  }
  return VectorPtr(vector);
}

/// Sets a direction from two of its views; by chance it has none, and is then not a number.
void turnIntoViews(Input& input, GuidanceVectorDefinition& vector) {
  const double first = input.number(-7.0, 7.0);
  const double second = input.number(-7.0, 7.0);
  switch (input.count(2)) {
    case 0:
      vector.setVectorDirectionFromProjectedAnglesFrontAndTopViewPlane(first, second, 1.0);
      break;
    case 1:
      vector.setVectorDirectionFromProjectedAnglesTopAndSideViewPlane(first, second, 1.0);
      break;
    default:
      vector.setVectorDirectionFromProjectedAnglesFrontAndSideViewPlane(first, second, 1.0);
  }
  const GuidanceOffsets direction = vector.getVectorDirection();
  if (!std::isfinite(direction.length())) return;
  if (input.isTame())
    Fuzz::requireNear(direction.length(), 1.0, 1e-9, "a direction has its length");
  const double front = vector.getGuidanceAngleProjectedInFrontViewPlane();
  const double top = vector.getGuidanceAngleProjectedInTopViewPlane();
  const double side = vector.getGuidanceAngleProjectedInSideViewPlane();
  Fuzz::require(std::isfinite(front + top + side), "directions have views");
}

/// Directions with less than a millimetre in plan count as plumb.
bool isPlumb(const ENHPoint& unit, double length) {
  constexpr double kLeast = 0.0011;
  return !(std::max(std::abs(unit.east), std::abs(unit.north)) * length > kLeast);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const FuzzedAxis made = Fuzz::fuzzedAxis(input);
  while (input.isLeft()) {
    const double stationing = input.number(0.0, 300.0);
    const double offset = input.number(-5.0, 5.0);
    const AxisPoint origin(stationing, offset, input.number(-5.0, 5.0));
    const VectorPtr vector = vectorOn(input, made, origin);
    if (input.count(3) == 0) turnIntoViews(input, *vector);
    const bool perpendicular = input.yes();
    const GuidanceCalculator calculator(vector, made.axis, perpendicular);
    const double forward = input.number(-10.0, 10.0);
    const GuidanceOffsets back =
        calculator.calculateOffsets(calculator.absolutePointAtForwardValue(forward));
    calculator.calculateOffsets(input.gridPoint(4e5));
    const double length = vector->getVectorDirection().length();
    const ENHPoint along =
        calculator.absolutePointAtForwardValue(1.0) - calculator.absolutePointAtForwardValue(0.0);
    ENHPoint place;
    const AxisCalculator axis(made.axis);
    // Beside the axis another part of it may be nearer; straight vectors do not ask for it.
    if (!input.isTame() || vector->isVectorDirectionAxisParallel() || isPlumb(along, length) ||
        !axis.axisPointToEnhPoint(origin, place, perpendicular, true)) {
      continue;
    }
    requireNear(back.forward, forward, 1e-8, "a point set out lies as far forward");
    requireNear(back.horizontal, 0.0, 1e-8, "a point set out lies beside nothing");
    requireNear(back.vertical, 0.0, 1e-8, "a point set out lies above nothing");
  }
  return 0;
}
