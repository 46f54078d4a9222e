// SPDX-License-Identifier: BSL-1.0
/// @file
/// What an AxisDefinition holds.

#ifndef CALCULATIONS_ALIGNMENT_AXIS_DEFINITION_IMPL_H
#define CALCULATIONS_ALIGNMENT_AXIS_DEFINITION_IMPL_H

#include "shapes/ShapeContainer.h"

#include <cstdint>

namespace Ruv {
namespace Calculations {

enum class AxisType : std::int32_t { HoralVeral = 0, Shaft = 1, Untyped = 2 };

class AxisDefinitionImpl {
 public:
  CShapeContainer container;
  AxisType axisType = AxisType::Untyped;
  double stationingMappingOrigin2d = 0.0;
  double stationingMappingValue3dAtOrigin = 0.0;

  /// (0, 0) while the axis lacks its elements.
  void stationingRange(double& minimum, double& maximum) const;
  /// A shaft that has its point in plan and both heights.
  bool isCompleteShaft() const;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
