// SPDX-License-Identifier: BSL-1.0
/// @file
/// Normal equations of the spatial similarity transformation.

#ifndef CALCULATIONS_STATIONS_SPATIAL_NORMALS_H
#define CALCULATIONS_STATIONS_SPATIAL_NORMALS_H

#include "stations/PointPairs.h"
#include "stations/SpatialRotation.h"

#include <Eigen/Core>

#include <array>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

/// The unknowns of global = translation + scale * rotation * local, in the order of the matrices.
struct SpatialParameters {
  Eigen::Vector3d translation;
  SpatialAngles angles;
  double scale = 1.0;
};

/// Point pairs reduced to their two centroids.
struct ReducedPairs {
  explicit ReducedPairs(const PointPairs& pairs);

  std::vector<Eigen::Vector3d> local;
  std::vector<Eigen::Vector3d> global;
  Eigen::Vector3d localCentroid;
  Eigen::Vector3d globalCentroid;
  Eigen::Matrix3d localSpread;   ///< sum of the products local local^T
  Eigen::Matrix3d globalSpread;  ///< likewise
};

/// The normal equations of one Gauss-Newton step, with the misclosures of the pairs at the given
/// parameters.
///
/// Every derivative by an angle or by the scale is a 3 x 3 matrix D times the local point. Hence
/// the products of derivatives, summed over the points, follow from the spread of the points alone
/// and need no design matrix. Points reduced to their centroid sum to zero, which separates the
/// shift of the centroid from the other unknowns: what remains to be solved are four equations for
/// the angles and the scale. Their condition does not suffer when the instrument is far away from
/// the points. The step is that of the seven equations, whose matrix normalMatrix() gives.
class SpatialNormals {
 public:
  using Vector7 = Eigen::Matrix<double, 7, 1>;
  using Matrix7 = Eigen::Matrix<double, 7, 7>;

  SpatialNormals(const ReducedPairs& pairs, const SpatialParameters& at);

  /// The corrections of translation, angles and scale; nothing when they are not finite. Where the
  /// points do not determine them they are arbitrary.
  std::optional<Vector7> solve() const;

  /// The inverse of the normal matrix; nothing when the points do not determine the parameters.
  std::optional<Matrix7> cofactors() const;

  /// Sum of the squared misclosures.
  double squaredMisclosures() const { return m_squaredMisclosures; }

  /// The matrix and the right side of the full equations.
  Matrix7 normalMatrix() const;
  Vector7 rightSide() const;

 private:
  using Matrix34 = Eigen::Matrix<double, 3, 4>;

  void setNormals(const Eigen::Matrix3d& spread);
  void addMisclosures(const ReducedPairs& pairs, const Eigen::Matrix3d& scaledRotation);

  double m_count;
  std::array<Eigen::Matrix3d, 4> m_derivatives;  ///< of scale * rotation by angles and scale
  Matrix34 m_centroidDerivatives;                ///< of the transformed local centroid
  Eigen::Vector3d m_meanMisclosure;
  Eigen::Matrix4d m_normals;  ///< of angles and scale
  Eigen::Vector4d m_rightSide;
  double m_squaredMisclosures = 0.0;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
