// SPDX-License-Identifier: BSL-1.0
/// @file
/// The direction of an axis as guidance needs it.

#ifndef CALCULATIONS_GUIDANCE_AXIS_ATTITUDE_H
#define CALCULATIONS_GUIDANCE_AXIS_ATTITUDE_H

#include <Calculations/AxisCalculator.h>

namespace Ruv {
namespace Calculations {

/// Azimuth, slope and cross fall of an axis at one stationing; zeros where it has none.
struct AxisAttitude {
  double azimuth = 0.0;
  double longSlope = 0.0;  ///< rad
  double transSlopePercent = 0.0;
  bool isKnown = false;

  AxisAttitude(const AxisCalculator& axis, double stationing);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
