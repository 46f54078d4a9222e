// SPDX-License-Identifier: BSL-1.0
/// @file
/// The space that fix points fill.

#ifndef CALCULATIONS_STATIONS_FIX_POINT_SPACE_H
#define CALCULATIONS_STATIONS_FIX_POINT_SPACE_H

#include <Calculations/Points.h>

#include <Eigen/Core>

#include <vector>

namespace Ruv {
namespace Calculations {

/// The upright box around fix points, along the grid or along their longest extent in plan,
/// whichever is the smaller box, and how much of it they fill.
struct FixPointSpace {
  /// @param fixPoints those that are not finite are left out, those at the same place taken once
  /// @param leastExtents of the box and of all its parts: fix points in a plane or on a line fill
  ///   no volume of their own
  FixPointSpace(const std::vector<ENHPoint>& fixPoints, const Eigen::Vector3d& leastExtents);

  std::vector<Eigen::Vector3d> points;  ///< along the box's axes, the third one vertical
  Eigen::Vector3d extents;              ///< of the box

  /// The volume that they fill, at most that of the box. A curved tunnel fills a small part of its
  /// box: the fix points are halved across the longest extent, their halves likewise, and the boxes
  /// of the parts summed up.
  double volume = 0.0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
