// SPDX-License-Identifier: BSL-1.0
// R = R_kappa R_phi R_omega, written out, with s and c for sine and cosine of an angle:
//
//   R_omega = (1 0 0 / 0 co so / 0 -so co)       about east
//   R_phi   = (cp 0 -sp / 0 1 0 / sp 0 cp)       about north
//   R_kappa = (ck sk 0 / -sk ck 0 / 0 0 1)       about the vertical, clockwise
//
// The derivative by omega takes the second column to minus the third and the third to the second,
// for R_omega stands on the right; that by kappa takes the first row to the second and the second
// to minus the first, for R_kappa stands on the left.

#include "stations/SpatialRotation.h"

#include "foundation/MathConstants.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

SpatialRotation spatialRotation(const SpatialAngles& angles) {
  const double so = std::sin(angles.omega);
  const double co = std::cos(angles.omega);
  const double sp = std::sin(angles.phi);
  const double cp = std::cos(angles.phi);
  const double sk = std::sin(angles.kappa);
  const double ck = std::cos(angles.kappa);

  SpatialRotation r;
  Eigen::Matrix3d& m = r.matrix;
  m << cp * ck, so * sp * ck + co * sk, so * sk - co * sp * ck,  //
      -cp * sk, co * ck - so * sp * sk, so * ck + co * sp * sk,  //
      sp, -so * cp, co * cp;
  r.byOmega << Eigen::Vector3d::Zero(), -m.col(2), m.col(1);
  r.byPhi << -sp * ck, so * cp * ck, -co * cp * ck,  //
      sp * sk, -so * cp * sk, co * cp * sk,          //
      cp, so * sp, -co * sp;
  r.byKappa << m.row(1), -m.row(0), Eigen::RowVector3d::Zero();
  return r;
}

SpatialAngles anglesOf(const Eigen::Matrix3d& rotation) {
  const Eigen::Matrix3d& m = rotation;
  SpatialAngles angles;
  angles.omega = std::atan2(-m(2, 1), m(2, 2));
  angles.phi = std::atan2(m(2, 0), std::hypot(m(2, 1), m(2, 2)));
  angles.kappa = std::atan2(-m(1, 0), m(0, 0));
  return angles;
}

SpatialAngles withPositiveCosPhi(const SpatialAngles& angles) {
  if (std::abs(angles.phi) <= kHalfPi) return angles;
  return anglesOf(spatialRotation(angles).matrix);
}

}  // namespace Calculations
}  // namespace Ruv
