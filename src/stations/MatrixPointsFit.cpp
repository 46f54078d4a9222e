// SPDX-License-Identifier: BSL-1.0
#include "stations/MatrixPointsFit.h"

#include "foundation/MathConstants.h"

#include <Eigen/Geometry>
#include <Eigen/LU>
#include <Eigen/SVD>

#include <cmath>
#include <stdexcept>

namespace Ruv {
namespace Calculations {

namespace {

constexpr const char* kDifferentSize =
    "matrixPointsToMatch and matrixPointsCandidates have different size";

/// A cross-covariance whose second singular value is below this part of the first has rank 1: the
/// points, or their candidates, lie on a line. Rounding leaves less than 1e-11 of lines of some
/// metres, even at coordinates of 5000 km, which come in steps of 1e-9 m. Points that stray from
/// lines by 1e-5 of their length, 0.1 mm in 10 m, give this; farther astray they have a best
/// rotation, however weakly it is determined.
constexpr double kRankOne = 1e-10;

/// A rotation whose cosine of the tilt could grow by less than this stays as it is: the identity of
/// equal points, and any rotation of points on a plumb line, which no turn about it tilts.
constexpr double kNegligibleGain = 1e-12;

/// Of the rotations that follow a given one by a turn about an axis, the one with the largest
/// element in row 3, column 3, the cosine of the tilt.
///
/// A turn by t about the unit vector a takes v = R e3 to (a.v) a + cos(t) p + sin(t) (a x v), with
/// the part p = v - (a.v) a of v square to a. Its height is largest when t is the angle of the
/// vector (height of p, height of a x v).
Eigen::Matrix3d mostUpright(const Eigen::Matrix3d& rotation, const Eigen::Vector3d& axis) {
  const Eigen::Vector3d vertical = rotation.col(2);
  const Eigen::Vector3d across = vertical - axis.dot(vertical) * axis;
  const Eigen::Vector2d height(across.z(), axis.cross(vertical).z());
  if (height.norm() - height.x() < kNegligibleGain) return rotation;
  const double turn = std::atan2(height.y(), height.x());
  return Eigen::AngleAxisd(turn, axis).toRotationMatrix() * rotation;
}

/// The proper rotation R that maximises the trace of R times the covariance of points (left) and
/// candidates (right).
template <int dimension>
Eigen::MatrixXd rotationFrom(const Eigen::MatrixXd& crossCovariance) {
  using Matrix = Eigen::Matrix<double, dimension, dimension>;
  const Eigen::JacobiSVD<Matrix, Eigen::NoQRPreconditioner> svd(
      Matrix(crossCovariance), Eigen::ComputeFullU | Eigen::ComputeFullV);
  Matrix v = svd.matrixV();
  Matrix rotation = v * svd.matrixU().transpose();
  if (rotation.determinant() < 0.0) {
    // A reflection fits better. Turning the direction of least spread costs least.
    v.col(v.cols() - 1) *= -1.0;
    rotation = v * svd.matrixU().transpose();
  }
  if constexpr (dimension == 3) {
    const Eigen::Vector3d& spread = svd.singularValues();
    if (spread(0) > 0.0 && spread(1) <= kRankOne * spread(0))
      return mostUpright(rotation, v.col(0));
  }
  return rotation;
}

Eigen::MatrixXd properRotation(const Eigen::MatrixXd& crossCovariance) {
  const Eigen::Index dimension = crossCovariance.rows();
  // The decomposition leaves its factors unset for a matrix that is not finite.
  if (!crossCovariance.allFinite()) {
    return Eigen::MatrixXd::Constant(dimension, dimension, kNotANumber);
  }
  if (dimension == 3) return rotationFrom<3>(crossCovariance);
  return rotationFrom<Eigen::Dynamic>(crossCovariance);
}

}  // namespace

MatrixPointsFit::MatrixPointsFit(const Points& pointsToMatch, const Points& candidates) {
  if (pointsToMatch.rows() != candidates.rows() || pointsToMatch.cols() != candidates.cols()) {
    throw std::runtime_error(kDifferentSize);
  }
  const Eigen::VectorXd from = centroidOf(pointsToMatch);
  const Eigen::VectorXd to = centroidOf(candidates);
  // Row by row: the blocked product for large matrices takes as long to compile as all the rest.
  m_rotation = properRotation(
      (pointsToMatch.colwise() - from).lazyProduct((candidates.colwise() - to).transpose()));
  m_translation = to - m_rotation * from;
}

Eigen::VectorXd MatrixPointsFit::centroidOf(const Points& points) {
  if (points.cols() == 0) return Eigen::VectorXd::Zero(points.rows());
  const Eigen::VectorXd first = points.col(0);
  return first + (points.colwise() - first).rowwise().mean();
}

}  // namespace Calculations
}  // namespace Ruv
