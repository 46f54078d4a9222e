#include "stations/MatrixPointsFit.h"

#include <Eigen/LU>
#include <Eigen/SVD>

#include <limits>
#include <stdexcept>

namespace Ruv {
namespace Calculations {

namespace {

constexpr const char* kDifferentSize =
    "matrixPointsToMatch and matrixPointsCandidates have different size";

/// The proper rotation R that maximises the trace of R times the covariance of points (left) and
/// candidates (right).
template <int dimension>
Eigen::MatrixXd rotationFrom(const Eigen::MatrixXd& crossCovariance) {
  using Matrix = Eigen::Matrix<double, dimension, dimension>;
  const Eigen::JacobiSVD<Matrix> svd(Matrix(crossCovariance),
                                     Eigen::ComputeFullU | Eigen::ComputeFullV);
  Matrix v = svd.matrixV();
  Matrix rotation = v * svd.matrixU().transpose();
  if (rotation.determinant() < 0.0) {
    // A reflection fits better. Turning the direction of least spread costs least.
    v.col(v.cols() - 1) *= -1.0;
    rotation = v * svd.matrixU().transpose();
  }
  return rotation;
}

Eigen::MatrixXd properRotation(const Eigen::MatrixXd& crossCovariance) {
  const Eigen::Index dimension = crossCovariance.rows();
  // Of a matrix that is not finite the decomposition leaves its factors unset.
  if (!crossCovariance.allFinite()) {
    return Eigen::MatrixXd::Constant(dimension, dimension,
                                     std::numeric_limits<double>::quiet_NaN());
  }
  if (dimension == 3) return rotationFrom<3>(crossCovariance);
  if (dimension == 2) return rotationFrom<2>(crossCovariance);
  return rotationFrom<Eigen::Dynamic>(crossCovariance);
}

}  // namespace

MatrixPointsFit::MatrixPointsFit(const Points& pointsToMatch, const Points& candidates) {
  if (pointsToMatch.rows() != candidates.rows() || pointsToMatch.cols() != candidates.cols()) {
    throw std::runtime_error(kDifferentSize);
  }
  const Eigen::VectorXd from = centroidOf(pointsToMatch);
  const Eigen::VectorXd to = centroidOf(candidates);
  m_rotation =
      properRotation((pointsToMatch.colwise() - from) * (candidates.colwise() - to).transpose());
  m_translation = to - m_rotation * from;
}

Eigen::VectorXd MatrixPointsFit::centroidOf(const Points& points) {
  if (points.cols() == 0) return Eigen::VectorXd::Zero(points.rows());
  const Eigen::VectorXd first = points.col(0);
  return first + (points.colwise() - first).rowwise().mean();
}

}  // namespace Calculations
}  // namespace Ruv
