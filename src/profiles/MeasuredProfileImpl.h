// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a MeasuredProfile holds.

#ifndef CALCULATIONS_PROFILES_MEASURED_PROFILE_IMPL_H
#define CALCULATIONS_PROFILES_MEASURED_PROFILE_IMPL_H

#include <Calculations/MeasuredProfile.h>

#include <vector>

namespace Ruv {
namespace Calculations {

class MeasuredProfileImpl {
 public:
  /// What a profile holds.
  static const MeasuredProfileImpl& of(const MeasuredProfile& profile) { return *profile.m_impl; }

  std::vector<Point2D> points;

  unsigned int count() const { return static_cast<unsigned int>(points.size()); }
  Point2D at(unsigned int index) const { return index < points.size() ? points[index] : Point2D(); }
};

}  // namespace Calculations
}  // namespace Ruv

#endif
