// SPDX-License-Identifier: BSL-1.0
/// @file
/// The fits as one would write them down with a matrix library. The number type is open: with long
/// double they tell the errors of all others.

#ifndef CALCULATIONS_BENCHMARKS_FIT_PEERS_H
#define CALCULATIONS_BENCHMARKS_FIT_PEERS_H

#include <Calculations/Points.h>

#include <Eigen/Core>
#include <Eigen/Eigenvalues>
#include <Eigen/LU>
#include <Eigen/QR>

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::Point2D;

template <class Scalar>
struct FittedCircle {
  Scalar x = 0;
  Scalar y = 0;
  Scalar radius = 0;
};

/// Kasa's circle: x p0 + y p1 + p2 = -(x^2 + y^2) for all points, by a QR decomposition of the
/// whole matrix.
/// @param origin to which the coordinates are reduced
template <class Scalar, template <class> class Decomposition>
FittedCircle<Scalar> kasaByQr(const std::vector<Point2D>& points,
                              const Point2D& origin = Point2D()) {
  using Matrix = Eigen::Matrix<Scalar, Eigen::Dynamic, 3>;
  using Vector = Eigen::Matrix<Scalar, Eigen::Dynamic, 1>;
  const auto n = static_cast<Eigen::Index>(points.size());
  Matrix coefficients(n, 3);
  Vector rightSide(n);
  for (Eigen::Index i = 0; i < n; ++i) {
    const Point2D& p = points[static_cast<std::size_t>(i)];
    const Scalar x = static_cast<Scalar>(p.x) - origin.x;
    const Scalar y = static_cast<Scalar>(p.y) - origin.y;
    coefficients(i, 0) = x;
    coefficients(i, 1) = y;
    coefficients(i, 2) = 1;
    rightSide(i) = -(x * x + y * y);
  }
  const Eigen::Matrix<Scalar, 3, 1> p = Decomposition<Matrix>(coefficients).solve(rightSide);
  const Scalar x = -p(0) / 2;
  const Scalar y = -p(1) / 2;
  return {origin.x + x, origin.y + y, std::sqrt(x * x + y * y - p(2))};
}

/// The damped Gauss-Newton iteration on squared distances with its matrix of derivatives, and all
/// sums of products one after the other.
FittedCircle<double> legacyByStoredJacobian(const std::vector<Point2D>& points);

/// The same with the products left to the matrix library.
FittedCircle<double> legacyByMatrices(const std::vector<Point2D>& points);

template <class Scalar>
struct FittedEllipse {
  Scalar x = 0;
  Scalar y = 0;
  Scalar semiAxisA = 0;
  Scalar semiAxisB = 0;
  Scalar rotation = 0;
  std::vector<bool> used;  ///< not far from it
};

/// A x^2 + B x y + C y^2 + D x + E y + F = 0 in this order.
template <class Scalar>
using ConicCoefficients = Eigen::Matrix<Scalar, 6, 1>;

template <class Scalar>
FittedEllipse<Scalar> ellipseOf(ConicCoefficients<Scalar> k) {
  if (k(0) + k(2) < 0) k = -k;
  const Scalar root = std::hypot(k(0) - k(2), k(1));
  const Scalar discriminant = k(1) * k(1) - 4 * k(0) * k(2);
  FittedEllipse<Scalar> ellipse;
  ellipse.x = (2 * k(2) * k(3) - k(1) * k(4)) / discriminant;
  ellipse.y = (2 * k(0) * k(4) - k(1) * k(3)) / discriminant;
  const Scalar atCentre = k(5) + (k(3) * ellipse.x + k(4) * ellipse.y) / 2;
  ellipse.semiAxisA = std::sqrt(-2 * atCentre / (k(0) + k(2) - root));
  ellipse.semiAxisB = std::sqrt(-2 * atCentre / (k(0) + k(2) + root));
  // The direction of the greater curvature, turned by a quarter.
  ellipse.rotation = std::atan2(-k(1), k(2) - k(0)) / 2;
  return ellipse;
}

/// The direct ellipse fit with design matrices (Halir and Flusser, WSCG 1998), and one rejection of
/// points whose algebraic distance exceeds three times the mean.
template <class Scalar>
FittedEllipse<Scalar> ellipseByDesignMatrices(const std::vector<Point2D>& points) {
  using Design = Eigen::Matrix<Scalar, Eigen::Dynamic, 3>;
  using Matrix3 = Eigen::Matrix<Scalar, 3, 3>;
  using Vector = Eigen::Matrix<Scalar, Eigen::Dynamic, 1>;
  constexpr int kOutlierFactor = 3;
  const auto n = static_cast<Eigen::Index>(points.size());
  Design quadratic(n, 3);
  Design linear(n, 3);
  for (Eigen::Index i = 0; i < n; ++i) {
    const Scalar x = points[static_cast<std::size_t>(i)].x;
    const Scalar y = points[static_cast<std::size_t>(i)].y;
    quadratic.row(i) << x * x, x * y, y * y;
    linear.row(i) << x, y, 1;
  }
  const Matrix3 s1 = quadratic.transpose() * quadratic;
  const Matrix3 s2 = quadratic.transpose() * linear;
  const Matrix3 s3 = linear.transpose() * linear;
  const Matrix3 toLinear = -s3.inverse() * s2.transpose();
  const Matrix3 reduced = s1 + s2 * toLinear;
  Matrix3 system;
  system << reduced.row(2) / 2, -reduced.row(1), reduced.row(0) / 2;
  const Eigen::EigenSolver<Matrix3> eigen(system);
  ConicCoefficients<Scalar> conic;
  for (Eigen::Index i = 0; i < 3; ++i) {
    const Eigen::Matrix<Scalar, 3, 1> v = eigen.eigenvectors().col(i).real();
    if (4 * v(0) * v(2) - v(1) * v(1) > 0) conic << v, toLinear * v;
  }
  const Vector distances =
      (quadratic * conic.template head<3>() + linear * conic.template tail<3>()).cwiseAbs();
  const Scalar limit = kOutlierFactor * distances.mean();
  FittedEllipse<Scalar> ellipse = ellipseOf(conic);
  ellipse.used.assign(points.size(), true);
  for (Eigen::Index i = 0; i < n; ++i) {
    if (distances(i) > limit) ellipse.used[static_cast<std::size_t>(i)] = false;
  }
  return ellipse;
}

}  // namespace Benchmarks

#endif
