// SPDX-License-Identifier: BSL-1.0
// The circle with the least sum of (|p - c|^2 - r^2)^2 in closed form (Thomas and Chan 1989,
// Computer Vision, Graphics, and Image Processing 45; Landau 1987, ibid. 38, gives the iteration
// for it).
//
// Setting the derivatives by the centre c = (a, b) and by r^2 to zero and eliminating r leaves two
// linear equations for a and b, whose coefficients are sums of powers of the coordinates up to the
// third. The radius follows as the root mean square distance of the points from the centre.

#include "fitting/PointFrame.h"
#include "fitting/PointSubset.h"
#include "foundation/MathConstants.h"

#include <Calculations/FittingHelper.h>

#include <Eigen/Core>

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Sums of powers of the coordinates, each in the order of the points.
struct PowerSums {
  double x = 0.0;
  double y = 0.0;
  double xx = 0.0;
  double yy = 0.0;
  double xy = 0.0;
  double xxx = 0.0;
  double yyy = 0.0;
  double xyy = 0.0;
  double xxy = 0.0;
};

/// The sums for coordinates counted from an origin.
PowerSums powerSumsFrom(const Point2D& origin, const std::vector<Point2D>& points) {
  const Eigen::Array2d from = coordinatesOf(origin);
  Eigen::Array2d first = Eigen::Array2d::Zero();
  Eigen::Array2d squares = Eigen::Array2d::Zero();
  Eigen::Array2d cubes = Eigen::Array2d::Zero();
  Eigen::Array2d mixedCubes = Eigen::Array2d::Zero();  // x^2 y, y^2 x
  double products = 0.0;
  for (const Point2D& p : points) {
    const Eigen::Array2d d = coordinatesOf(p) - from;
    const Eigen::Array2d square = d * d;
    first += d;
    squares += square;
    cubes += square * d;
    mixedCubes += square * d.reverse();
    products += d.x() * d.y();
  }
  return {first.x(), first.y(), squares.x(),    squares.y(),   products,
          cubes.x(), cubes.y(), mixedCubes.y(), mixedCubes.x()};
}

}  // namespace

FittingResult FittingHelper::circleFitLandau(const std::vector<Point2D>& points) {
  // Relative to a point of the set: third powers of plane coordinates would leave no digits.
  const Point2D origin = points.empty() ? Point2D() : points.front();
  const PowerSums s = powerSumsFrom(origin, points);
  const auto n = static_cast<double>(points.size());
  // The normal equations of the centre (a, b): xx a + xy b = x, xy a + yy b = y.
  const double xx = 2.0 * (s.x * s.x - n * s.xx);
  const double xy = 2.0 * (s.x * s.y - n * s.xy);
  const double yy = 2.0 * (s.y * s.y - n * s.yy);
  const double x = s.xx * s.x - n * s.xxx + s.yy * s.x - n * s.xyy;
  const double y = s.y * s.xx - n * s.yyy + s.yy * s.y - n * s.xxy;
  // Rounding must not turn a straight line into a circle of arbitrary radius. The moments lose as
  // many digits as the first point is far from the others: a factor n if it stands alone.
  const bool areInOnePlace = xx + yy == 0.0;
  const double cancellation = areInOnePlace ? 1.0 : -2.0 * n * (s.xx + s.yy) / (xx + yy);
  if (areInOnePlace || areCollinear(xx, xy, yy, n * cancellation)) {
    return FittingResult(FittingMethod::CircleLandau, Point2D(kNotANumber, kNotANumber),
                         kNotANumber);
  }
  // The two equations are solved by Cramer's rule.
  const double det = yy * xx - xy * xy;
  const double a = (x * yy - y * xy) / det;
  const double b = (y * xx - x * xy) / det;
  const double radius =
      std::sqrt((s.xx - 2.0 * a * s.x + n * a * a + s.yy - 2.0 * b * s.y + n * b * b) / n);
  return FittingResult(FittingMethod::CircleLandau, origin + Point2D(a, b), radius);
}

}  // namespace Calculations
}  // namespace Ruv
