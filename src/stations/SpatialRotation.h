// SPDX-License-Identifier: BSL-1.0
/// @file
/// The rotation of a tilted instrument and its derivatives.

#ifndef CALCULATIONS_STATIONS_SPATIAL_ROTATION_H
#define CALCULATIONS_STATIONS_SPATIAL_ROTATION_H

#include <Eigen/Core>

namespace Ruv {
namespace Calculations {

/// Turns local into global directions: first by omega about east, then by phi about north, then by
/// kappa clockwise about the vertical. Without tilt, kappa is the orientation.
struct SpatialAngles {
  double omega = 0.0;
  double phi = 0.0;
  double kappa = 0.0;
};

struct SpatialRotation {
  Eigen::Matrix3d matrix;
  Eigen::Matrix3d byOmega;  ///< derivative of the matrix with respect to omega
  Eigen::Matrix3d byPhi;
  Eigen::Matrix3d byKappa;
};

SpatialRotation spatialRotation(const SpatialAngles& angles);

/// The angles of a rotation. Two triples give every rotation, (omega, phi, kappa) and (omega + pi,
/// pi - phi, kappa + pi): this is the one with cos(phi) >= 0, whose kappa is the orientation even
/// of an instrument that is tilted by nearly a right angle.
SpatialAngles anglesOf(const Eigen::Matrix3d& rotation);

/// The triple with cos(phi) >= 0 of the same rotation.
SpatialAngles withPositiveCosPhi(const SpatialAngles& angles);

}  // namespace Calculations
}  // namespace Ruv

#endif
