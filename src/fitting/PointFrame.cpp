// SPDX-License-Identifier: BSL-1.0
#include "fitting/PointFrame.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ruv {
namespace Calculations {

namespace {

/// The greatest power of two that does not exceed the value. It is 1 where no such power is, so
/// that coincident points are not divided by 0.
double powerOfTwoBelow(double value) {
  if (!(value > 0.0) || !std::isfinite(value)) return 1.0;
  int exponent = 0;
  std::frexp(value, &exponent);
  return std::ldexp(1.0, exponent - 1);
}

}  // namespace

PointFrame frameOf(const PointSubset& points) {
  // Relative to the first point, which keeps the digits; its squared distance from the centroid is
  // at most n times the mean one, so the difference below loses few of them.
  std::size_t count = 0;
  Eigen::Array2d first = Eigen::Array2d::Zero();
  Eigen::Array2d sum = Eigen::Array2d::Zero();
  Eigen::Array2d sumOfSquares = Eigen::Array2d::Zero();
  points.forEach([&](const Point2D& p) {
    if (count++ == 0) first = coordinatesOf(p);
    const Eigen::Array2d d = coordinatesOf(p) - first;
    sum += d;
    sumOfSquares += d * d;
  });
  PointFrame frame;
  if (count == 0) return frame;
  const auto n = static_cast<double>(count);
  const Eigen::Array2d mean = sum / n;
  // The mean square distance from the mean is the mean of the squares less the square of the mean.
  const double meanSquare = (sumOfSquares / n - mean * mean).sum();
  frame.count = count;
  frame.origin = Point2D(first.x() + mean.x(), first.y() + mean.y());
  frame.unit = powerOfTwoBelow(std::sqrt(std::max(0.0, meanSquare)));
  return frame;
}

/// A coordinate reduced by the origin keeps the rounding that it had with the origin's magnitude.
double coordinateNoise(const PointFrame& frame) {
  constexpr double kMargin = 4.0;
  const double roundings = 1.0 + frame.origin.length() / frame.unit;
  return kMargin * std::numeric_limits<double>::epsilon() * roundings;
}

bool areCollinear(double xx, double xy, double yy, double roundings) {
  // The determinant of the moments in relation to that of equal spread in all directions, about
  // the square of width by length. The floor is for few points.
  constexpr double kFloor = 1e-14;
  const double tolerance = std::max(kFloor, roundings * std::numeric_limits<double>::epsilon());
  const double halfTrace = 0.5 * (xx + yy);
  return !(xx * yy - xy * xy > tolerance * halfTrace * halfTrace);
}

}  // namespace Calculations
}  // namespace Ruv
