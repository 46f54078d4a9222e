// SPDX-License-Identifier: BSL-1.0
#include "support/FitPeers.h"

namespace Benchmarks {

namespace {

constexpr int kMostSteps = 1000;
constexpr double kDamping = 4.0;
constexpr double kConvergedStep = 1e-5;
constexpr double kInPlaceOfZeroDeterminant = 1e-5;

using Matrix = std::array<std::array<double, 3>, 3>;
using Column = std::array<double, 3>;

double determinant(const Matrix& m) {
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
         m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

/// Cramer's rule.
Column solved(const Matrix& m, const Column& rightSide) {
  double whole = determinant(m);
  if (whole == 0.0) whole = kInPlaceOfZeroDeterminant;
  Column unknowns = {};
  for (std::size_t c = 0; c < 3; ++c) {
    Matrix replaced = m;
    for (std::size_t r = 0; r < 3; ++r) {
      replaced[r][c] = rightSide[r];
    }
    unknowns[c] = determinant(replaced) / whole;
  }
  return unknowns;
}

/// @param stepAt gives the full step at a circle
template <class StepAt>
FittedCircle<double> iterate(const StepAt& stepAt) {
  FittedCircle<double> circle = {0.0, 0.0, 1.0};
  for (int count = 0; count < kMostSteps; ++count) {
    const Column step = stepAt(circle);
    circle.x += step[0] / kDamping;
    circle.y += step[1] / kDamping;
    circle.radius += step[2] / kDamping;
    if (std::abs(step[0]) < kConvergedStep && std::abs(step[1]) < kConvergedStep &&
        std::abs(step[2]) < kConvergedStep) {
      break;
    }
  }
  return circle;
}

}  // namespace

FittedCircle<double> legacyByStoredJacobian(const std::vector<Point2D>& points) {
  std::vector<Column> jacobian(points.size());
  std::vector<double> residuals(points.size());
  return iterate([&](const FittedCircle<double>& circle) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double dx = points[i].x - circle.x;
      const double dy = points[i].y - circle.y;
      residuals[i] = dx * dx + dy * dy - circle.radius * circle.radius;
      jacobian[i] = {-2.0 * dx, -2.0 * dy, -2.0 * circle.radius};
    }
    Matrix normals = {};
    Column rightSide = {};
    for (std::size_t r = 0; r < 3; ++r) {
      for (std::size_t c = 0; c < 3; ++c) {
        for (const Column& row : jacobian) {
          normals[r][c] += row[r] * row[c];
        }
      }
      for (std::size_t i = 0; i < points.size(); ++i) {
        rightSide[r] -= jacobian[i][r] * residuals[i];
      }
    }
    return solved(normals, rightSide);
  });
}

FittedCircle<double> legacyByMatrices(const std::vector<Point2D>& points) {
  const auto n = static_cast<Eigen::Index>(points.size());
  Eigen::MatrixX3d jacobian(n, 3);
  Eigen::VectorXd residuals(n);
  return iterate([&](const FittedCircle<double>& circle) {
    for (Eigen::Index i = 0; i < n; ++i) {
      const Point2D& p = points[static_cast<std::size_t>(i)];
      const double dx = p.x - circle.x;
      const double dy = p.y - circle.y;
      residuals(i) = dx * dx + dy * dy - circle.radius * circle.radius;
      jacobian.row(i) << -2.0 * dx, -2.0 * dy, -2.0 * circle.radius;
    }
    const Eigen::Matrix3d normals = jacobian.transpose() * jacobian;
    const Eigen::Vector3d rightSide = -jacobian.transpose() * residuals;
    Matrix m = {};
    for (std::size_t r = 0; r < 3; ++r) {
      for (std::size_t c = 0; c < 3; ++c) {
        m[r][c] = normals(static_cast<Eigen::Index>(r), static_cast<Eigen::Index>(c));
      }
    }
    return solved(m, {rightSide(0), rightSide(1), rightSide(2)});
  });
}

}  // namespace Benchmarks
