// SPDX-License-Identifier: BSL-1.0
/// @file
/// The record that profile calculators return for a point.

#ifndef CALCULATIONS_PROFILE_POINT_RESULT_H
#define CALCULATIONS_PROFILE_POINT_RESULT_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

namespace Ruv {
namespace Calculations {

/// Where a point lies relative to a profile.
///
/// Conventions: metres; signs as in ThProfileCalculator. The derolment is the profile's own
///   coordinate: its outline unrolled into a straight, on which profilePoint lies that far from the
///   crown, clockwise positive.
/// Failure: none; all zero where a calculator finds no foot.
/// Cost: constant.
/// @snippet snippets/Profiles.cpp ThProfileCalculator
struct CALCULATIONS_EXPORT ProfilePointResult {
  Point2D profilePoint;    ///< the nearest point of the profile
  double distance = 0.0;   ///< signed distance of the queried point from the profile
  double derolment = 0.0;  ///< length along the profile from its crown, see above

  ProfilePointResult();
  /// Takes the values in the order of the members.
  ProfilePointResult(const Point2D& p, double distanceValue, double derolmentValue);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
