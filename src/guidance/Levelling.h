// SPDX-License-Identifier: BSL-1.0
/// @file
/// Directions relative to the inclined axis and to the horizontal.

#ifndef CALCULATIONS_GUIDANCE_LEVELLING_H
#define CALCULATIONS_GUIDANCE_LEVELLING_H

#include <Calculations/Points.h>

namespace Ruv {
namespace Calculations {

/// Turns components relative to the horizontal into components relative to an axis that rises by
/// the slope angle.
GuidanceOffsets relativeToAxis(const GuidanceOffsets& levelled, double longSlope);

/// The inverse of relativeToAxis.
GuidanceOffsets relativeToHorizontal(const GuidanceOffsets& inclined, double longSlope);

AxisPoint asAxisPoint(const GuidanceOffsets& direction);
GuidanceOffsets asOffsets(const AxisPoint& direction);

}  // namespace Calculations
}  // namespace Ruv

#endif
