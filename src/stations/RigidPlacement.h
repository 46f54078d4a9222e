// SPDX-License-Identifier: BSL-1.0
/// @file
/// Whether measured points, moved as a rigid body, come to lie on their fix points.

#ifndef CALCULATIONS_STATIONS_RIGID_PLACEMENT_H
#define CALCULATIONS_STATIONS_RIGID_PLACEMENT_H

#include "stations/Matching.h"

#include <Eigen/Core>

#include <optional>

namespace Ruv {
namespace Calculations {

/// Accepts a motion that brings each measured point within the tolerances of its fix point.
class RigidPlacement {
 public:
  explicit RigidPlacement(const MatchSettings& settings);

  /// Tries up to three rotations, each about the centroids: the best fit in space; when that one
  /// tilts too far, the best fit of a level instrument; at last the spatial one, turned so that
  /// the point farthest from the centroid points exactly at its fix point.
  /// @param measured one column per point
  /// @param fixPoints the column of the same index belongs to the measured point
  /// @return the score of the motion; nothing when none is accepted
  std::optional<double> score(const Eigen::Matrix3Xd& measured,
                              const Eigen::Matrix3Xd& fixPoints) const;

  /// No accepted motion leaves a distance between two points that differs from that of their fix
  /// points by this or more (m): both ends deviate by less than the tolerances.
  double largestChangeOfDistance() const;

 private:
  bool isWithinTolerances(const Eigen::Matrix3Xd& deviations) const;
  bool isUpright(const Eigen::Matrix3d& rotation) const;

  double m_planTolerance;
  double m_heightTolerance;
  double m_cosTilt;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
