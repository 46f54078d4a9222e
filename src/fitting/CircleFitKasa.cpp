// SPDX-License-Identifier: BSL-1.0
// The circle as the conic x^2 + y^2 + p0 x + p1 y + p2 = 0 (Kasa 1976, IEEE Trans. Instrum. Meas.
// 25), which is linear in the unknowns p: least squares of the left side give them. With them the
// centre is (-p0 / 2, -p1 / 2) and the square of the radius (p0^2 + p1^2) / 4 - p2.
//
// The normal equations would be shorter, but they square the condition, so that short arcs lose
// twice as many digits.

#include "fitting/PointFrame.h"
#include "fitting/PointSubset.h"
#include "foundation/MathConstants.h"

#include <Calculations/FittingHelper.h>

#include <Eigen/Core>
#include <Eigen/QR>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace Ruv {
namespace Calculations {

namespace {

// The system x p0 + y p1 + p2 = -(x^2 + y^2), one row per point, is decomposed in blocks of rows:
// the triangle so far absorbs one block after the other. So the memory does not grow with the
// number of points, and a block stays in the cache. One step of refinement then takes away what
// rounding has added up, and the result is nearer to the exact one than that of one decomposition
// of all rows.

/// Rows of one block: 4 KiB, an eighth of a small first-level cache.
constexpr std::size_t kBlockRows = 128;

/// A bound for what rounding adds to a pivot, block by block, in relation to the largest pivot:
/// 2e-14 was seen at four million points.
constexpr double kNoiseOfBlocks = 1e-12;

/// Coefficients of p0, p1, p2 and the right-hand side.
using Rows = Eigen::Matrix<double, Eigen::Dynamic, 4>;
using RowsView = Eigen::Ref<Rows, 0, Eigen::OuterStride<>>;
/// Upper triangle of the decomposed coefficients, beside it the right-hand side turned likewise.
/// What stands below the diagonal is zero.
using Triangle = Eigen::Matrix<double, 3, 4>;

/// The triangle of the system of both, by Householder reflections. Destroys the rows.
void absorb(Triangle& triangle, RowsView rows) {
  for (Eigen::Index c = 0; c < 3; ++c) {
    const auto below = rows.col(c);
    const double squared = below.squaredNorm();
    if (squared == 0.0) continue;  // nothing to reflect
    const double diagonal = triangle(c, c);
    // The sign that avoids cancellation in the reflection vector (top, below).
    const double reflected = -std::copysign(std::sqrt(diagonal * diagonal + squared), diagonal);
    const double top = diagonal - reflected;
    const double factor = 1.0 / (reflected * top);
    triangle(c, c) = reflected;
    for (Eigen::Index j = c + 1; j < 4; ++j) {
      const double weight = (top * triangle(c, j) + below.dot(rows.col(j))) * factor;
      triangle(c, j) += weight * top;
      rows.col(j) += weight * below;
    }
  }
}

Triangle triangleOf(const std::vector<Point2D>& points, const PointFrame& frame) {
  Triangle triangle = Triangle::Zero();
  Eigen::Matrix<double, kBlockRows, 4> rows;
  for (std::size_t first = 0; first < points.size(); first += kBlockRows) {
    const std::size_t count = std::min(kBlockRows, points.size() - first);
    for (std::size_t i = 0; i < count; ++i) {
      const Point2D p = frame.reduced(points[first + i]);
      rows.row(static_cast<Eigen::Index>(i)) << p.x, p.y, 1.0, -(p.x * p.x + p.y * p.y);
    }
    absorb(triangle, rows.topRows(static_cast<Eigen::Index>(count)));
  }
  return triangle;
}

/// The unknowns, unless the rows leave one of them open: then the least-squares solution of
/// smallest norm would be a finite, wrong circle.
/// @param noise pivots below this part of the largest are not told from zero
std::optional<Eigen::Vector3d> unknownsOf(const Triangle& triangle, double noise) {
  if (!triangle.allFinite()) return std::nullopt;
  Eigen::FullPivHouseholderQR<Eigen::Matrix3d> decomposition;
  decomposition.setThreshold(noise);
  decomposition.compute(triangle.leftCols<3>());
  if (decomposition.rank() < 3) return std::nullopt;
  return decomposition.solve(triangle.col(3));
}

/// One step of iterative refinement, with the triangle in place of the coefficients (Bjorck, Linear
/// Algebra Appl. 88/89, 1987). The residuals are small, so what is left of rounding is about that
/// of the rows themselves, averaged over the points.
Eigen::Vector3d refined(const Eigen::Vector3d& p, const Triangle& triangle,
                        const std::vector<Point2D>& points, const PointFrame& frame) {
  Eigen::Array2d timesCoordinates = Eigen::Array2d::Zero();
  double sum = 0.0;
  for (const Point2D& point : points) {
    const Eigen::Array2d q = coordinatesOf(frame.reduced(point));
    const double residual = -(q * (q + p.head<2>().array())).sum() - p.z();
    timesCoordinates += q * residual;
    sum += residual;
  }
  const auto r = triangle.leftCols<3>().triangularView<Eigen::Upper>();
  Eigen::Vector3d step(timesCoordinates.x(), timesCoordinates.y(), sum);
  r.transpose().solveInPlace(step);
  r.solveInPlace(step);
  return p + step;
}

}  // namespace

FittingResult FittingHelper::circleFitKasa(const std::vector<Point2D>& points) {
  const PointFrame frame = frameOf(PointSubset(points));
  const Triangle triangle = triangleOf(points, frame);
  const auto approximate = unknownsOf(triangle, kNoiseOfBlocks + coordinateNoise(frame));
  if (!approximate) {
    return FittingResult(FittingMethod::CircleKasa, Point2D(kNotANumber, kNotANumber), kNotANumber);
  }
  const Eigen::Vector3d p = refined(*approximate, triangle, points, frame);
  const Point2D centre(-0.5 * p.x(), -0.5 * p.y());
  const double radius = std::sqrt((p.x() * p.x() + p.y() * p.y()) / 4.0 - p.z());
  return FittingResult(FittingMethod::CircleKasa, frame.restored(centre), frame.unit * radius);
}

}  // namespace Calculations
}  // namespace Ruv
