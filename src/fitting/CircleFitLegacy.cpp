// SPDX-License-Identifier: BSL-1.0
#include "fitting/PointSubset.h"
#include "foundation/MathConstants.h"

#include <Calculations/FittingHelper.h>

#include <Eigen/Core>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace Ruv {
namespace Calculations {

namespace {

// All constants and the order of the sums are fixed: results of older versions depend on them. On
// points that lie far away or on a short arc the iterates run far out before they return, and then
// depend on every rounding; that is why no sum is replaced by an equal one.

// Gauss-Newton on the residuals f = dx^2 + dy^2 - r^2, where (dx, dy) = p - (a, b). Each step
// solves the normal equations by Cramer's rule, and a quarter of it is applied. The constants are
// the fewest points, the most steps, the divisor that damps a step, and the step (m) below which
// the fit stops.
constexpr std::size_t kFewestPoints = 12;
constexpr std::int16_t kMostSteps = 1000;
constexpr double kDamping = 4.0;
constexpr double kConvergedStep = 1e-5;
/// Stands for a determinant of exactly zero, so that points in one place do not divide by it.
constexpr double kInPlaceOfZeroDeterminant = 1e-5;

/// A column of the normal equations, or their right side.
using Column = std::array<double, 3>;

/// The iterate: centre (a, b) and radius r. It starts as the unit circle about the origin, wherever
/// the points are.
struct Circle {
  double a = 0.0;
  double b = 0.0;
  double r = 1.0;
};

/// (J^T J) step = -J^T f for the residuals f = dx^2 + dy^2 - r^2 with J = (-2 dx, -2 dy, -2 r).
struct NormalEquations {
  std::array<Column, 3> columns;
  Column rightSide;
};

NormalEquations normalEquationsAt(const Circle& circle, const std::vector<Point2D>& points) {
  const Eigen::Array2d centre(circle.a, circle.b);
  const double r = circle.r;
  const double squaredRadius = r * r;
  Eigen::Array2d squares = Eigen::Array2d::Zero();
  Eigen::Array2d timesR = Eigen::Array2d::Zero();
  Eigen::Array2d timesF = Eigen::Array2d::Zero();
  double products = 0.0;
  double rr = 0.0;
  double rf = 0.0;
  for (const Point2D& p : points) {
    const Eigen::Array2d d = coordinatesOf(p) - centre;
    const Eigen::Array2d square = d * d;
    const double f = square.x() + square.y() - squaredRadius;
    squares += square;
    timesR += d * r;
    timesF += d * f;
    products += d.x() * d.y();
    rr += squaredRadius;
    rf += r * f;
  }
  // The factors -2 of J are taken out of the sums: being powers of two they change no digit.
  const double xy = 4.0 * products;
  const double xr = 4.0 * timesR.x();
  const double yr = 4.0 * timesR.y();
  return {{{{4.0 * squares.x(), xy, xr}, {xy, 4.0 * squares.y(), yr}, {xr, yr, 4.0 * rr}}},
          {2.0 * timesF.x(), 2.0 * timesF.y(), 2.0 * rf}};
}

/// Determinant of the matrix with these columns.
double determinant(const Column& u, const Column& v, const Column& w) {
  return u[0] * (v[1] * w[2] - w[1] * v[2]) - v[0] * (u[1] * w[2] - w[1] * u[2]) +
         w[0] * (u[1] * v[2] - v[1] * u[2]);
}

/// Solves the equations by Cramer's rule.
Circle stepOf(const NormalEquations& equations) {
  const auto& [c0, c1, c2] = equations.columns;
  const Column& g = equations.rightSide;
  double det = determinant(c0, c1, c2);
  if (det == 0.0) det = kInPlaceOfZeroDeterminant;
  return {determinant(g, c1, c2) / det, determinant(c0, g, c2) / det, determinant(c0, c1, g) / det};
}

bool isConverged(const Circle& step) {
  return std::abs(step.a) < kConvergedStep && std::abs(step.b) < kConvergedStep &&
         std::abs(step.r) < kConvergedStep;
}

/// From here on no iterate changes any more.
bool isLost(const Circle& circle) {
  return std::isnan(circle.a) && std::isnan(circle.b) && std::isnan(circle.r);
}

/// The mean of the points; not-a-number when there are none.
Point2D centroidOf(const std::vector<Point2D>& points) {
  if (points.empty()) return Point2D(kNotANumber, kNotANumber);
  Point2D sum;
  for (const Point2D& p : points) {
    sum = sum + p;
  }
  return sum / static_cast<double>(points.size());
}

}  // namespace

FittingResult FittingHelper::circleFitRuvLegacy(const std::vector<Point2D>& points) {
  if (points.size() < kFewestPoints) {
    return FittingResult(FittingMethod::CircleLegacy, centroidOf(points), 0.0);
  }
  Circle circle;
  for (std::int16_t count = 0; count < kMostSteps; ++count) {
    const Circle step = stepOf(normalEquationsAt(circle, points));
    circle.a += step.a / kDamping;
    circle.b += step.b / kDamping;
    circle.r += step.r / kDamping;
    if (isConverged(step) || isLost(circle)) break;
  }
  return FittingResult(FittingMethod::CircleLegacy, Point2D(circle.a, circle.b), circle.r);
}

}  // namespace Calculations
}  // namespace Ruv
