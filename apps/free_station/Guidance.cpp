// SPDX-License-Identifier: BSL-1.0
#include "free_station/Guidance.h"

#include "common/console/Files.h"

#include <memory>

namespace FreeStation {

namespace {

using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::GuidanceCalculator;
using Ruv::Calculations::GuidanceOffsets;
using Ruv::Calculations::GuidanceVectorDefinition;
using Ruv::Calculations::GuidanceVectorFactory;

constexpr bool kPerpendicular = true;

/// A guidance calculator tells failures only by zeros.
void requireBesideAxis(const AxisCalculator& calculator, const ENHPoint& point,
                       const std::string& name) {
  AxisPoint onAxis;
  if (!calculator.enhPointToAxisPointPerpendicular(point, onAxis)) {
    throw Console::Failure(name + " lies beside no part of the axis");
  }
}

GuidanceResult resultOf(const GuidanceTask& task, const std::string& name,
                        GuidanceVectorDefinition* vector) {
  constexpr int kParts = 50;
  const boost::shared_ptr<const GuidanceVectorDefinition> definition(vector);
  const GuidanceCalculator calculator(definition, task.axis, kPerpendicular);
  GuidanceResult result;
  result.vector = name;
  result.offsets = calculator.calculateOffsets(task.boom);
  const double end = result.offsets.forward + task.ahead;
  result.ahead = calculator.absolutePointAtForwardValue(end);
  for (int i = 0; i <= kParts; ++i) {
    result.line.push_back(calculator.absolutePointAtForwardValue(end * i / kParts));
  }
  return result;
}

}  // namespace

std::vector<GuidanceResult> guide(const GuidanceTask& task) {
  const AxisCalculator calculator(task.axis);
  ENHPoint origin;
  if (!calculator.axisPointToEnhPointPerpendicular(task.origin, origin)) {
    throw Console::Failure("the origin of the guidance vector lies beyond the axis");
  }
  requireBesideAxis(calculator, task.boom, "the boom point");
  std::vector<GuidanceResult> results = {
      resultOf(task, "parallel to the axis",
               GuidanceVectorFactory::createAsAxisParallelFromAxisCoordinate(task.origin)),
      resultOf(task, "straight",
               GuidanceVectorFactory::createAsStraightFromAxisCoordinateAndVectorComponents(
                   task.origin, GuidanceOffsets(1.0, 0.0, 0.0)))};
  for (const GuidanceResult& result : results) {
    requireBesideAxis(calculator, result.ahead, "the point ahead of the boom");
  }
  return results;
}

}  // namespace FreeStation
