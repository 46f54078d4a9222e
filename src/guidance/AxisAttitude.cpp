// SPDX-License-Identifier: BSL-1.0
// The slope is taken as an angle and the transverse slope in percent, as the rotations in Utilities
// want them. Where the axis has none of them all stay 0, and isKnown tells that from a level axis
// that leads north.

#include "guidance/AxisAttitude.h"

namespace Ruv {
namespace Calculations {

AxisAttitude::AxisAttitude(const AxisCalculator& axis, double stationing) {
  double radius = 0.0;
  double longSlopePercent = 0.0;
  double transSlopeRad = 0.0;
  isKnown = axis.axisPropertiesAtStationing(stationing, azimuth, radius, longSlope,
                                            longSlopePercent, transSlopeRad, transSlopePercent);
}

}  // namespace Calculations
}  // namespace Ruv
