// SPDX-License-Identifier: BSL-1.0
/// @file
/// The segments of a profile as a list.

#ifndef CALCULATIONS_PROFILES_PROFILE_SEGMENTS_H
#define CALCULATIONS_PROFILES_PROFILE_SEGMENTS_H

#include <Calculations/Points.h>
#include <Calculations/ThProfileDefinition.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// One segment of a profile as read.
struct ProfileSegment {
  Point2D start;
  Point2D end;
  double radius = 0.0;
};

std::vector<ProfileSegment> segmentsOf(const IProfileSegmentProvider& profile);

}  // namespace Calculations
}  // namespace Ruv

#endif
