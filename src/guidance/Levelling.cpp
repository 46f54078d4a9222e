// SPDX-License-Identifier: BSL-1.0
// Both directions are turned about the horizontal axis to the right by the slope angle of the axis:
// forward' = forward cos a - vertical sin a, vertical' = vertical cos a + forward sin a. Only the
// calculator with vertical planes needs it: there forward and vertical of a vector are those of a
// spirit level, and those of the axis are inclined.

#include "guidance/Levelling.h"

#include <Calculations/Utilities.h>

namespace Ruv {
namespace Calculations {

namespace {

/// Turns about the horizontal axis to the right; a positive angle raises the forward direction.
GuidanceOffsets pitched(const GuidanceOffsets& d, double angle) {
  const ENHPoint turned =
      Utilities::rotateAroundEastXaxis(ENHPoint(d.horizontal, d.forward, d.vertical), angle);
  return GuidanceOffsets(turned.north, turned.east, turned.height);
}

}  // namespace

GuidanceOffsets relativeToAxis(const GuidanceOffsets& levelled, double longSlope) {
  return pitched(levelled, -longSlope);
}

GuidanceOffsets relativeToHorizontal(const GuidanceOffsets& inclined, double longSlope) {
  return pitched(inclined, longSlope);
}

AxisPoint asAxisPoint(const GuidanceOffsets& direction) {
  return AxisPoint(direction.forward, direction.horizontal, direction.vertical);
}

GuidanceOffsets asOffsets(const AxisPoint& direction) {
  return GuidanceOffsets(direction.stationing, direction.offset, direction.height);
}

}  // namespace Calculations
}  // namespace Ruv
