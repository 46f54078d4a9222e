// SPDX-License-Identifier: BSL-1.0
// Direct least squares of the conic a1.(x^2, x y, y^2) + a2.(x, y, 1) = 0 (Fitzgibbon, Pilu and
// Fisher 1999, IEEE Trans. Pattern Anal. Mach. Intell. 21; in parts: Halir and Flusser 1998, WSCG).
//
//   a1, a2         quadratic coefficients (xx, xy, yy) and linear ones (x, y, constant)
//   D1, D2         one row (x^2, x y, y^2) and one row (x, y, 1) for each point
//   S1, S2, S3     D1^T D1, D1^T D2 and D2^T D2, here divided by the number of points
//   C              matrix of the constraint a1^T C a1 = 4 xx yy - xy^2
//
// The sum |D1 a1 + D2 a2|^2 is least for a2 = T a1 with T = -S3^-1 S2^T. What is left depends on a1
// alone, and under the constraint it is stationary where
//
//   C^-1 (S1 + S2 T) a1 = lambda a1.
//
// Of the three eigenvectors exactly one has a1^T C a1 > 0: that of the ellipse.

#include "fitting/DirectConicFit.h"

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <Eigen/Eigenvalues>
#include <Eigen/Geometry>
#include <Eigen/Jacobi>

#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

using Eigen::Array2d;
using Eigen::Matrix3d;
using Eigen::Vector3d;

/// Five points determine a conic; through fewer pass any number of them.
constexpr std::size_t kFewestPointsOfConic = 5;

/// Mean products of the rows (x^2, x y, y^2) and (x, y, 1).
struct ScatterMatrices {
  Matrix3d quadratic;  ///< S1
  Matrix3d mixed;      ///< S2
  Matrix3d linear;     ///< S3
};

ScatterMatrices scatterMatricesOf(const PointSubset& points, const PointFrame& frame) {
  Array2d first = Array2d::Zero();
  Array2d squares = Array2d::Zero();
  Array2d cubes = Array2d::Zero();
  Array2d mixedCubes = Array2d::Zero();    // x^2 y, y^2 x
  Array2d fourths = Array2d::Zero();       // x^4, y^4
  Array2d mixedFourths = Array2d::Zero();  // x^3 y, y^3 x
  Array2d products = Array2d::Zero();      // x y, x^2 y^2
  points.forEach([&](const Point2D& point) {
    const Array2d p = coordinatesOf(frame.reduced(point));
    const Array2d square = p * p;
    const double product = p.x() * p.y();
    first += p;
    squares += square;
    cubes += square * p;
    mixedCubes += square * p.reverse();
    fourths += square * square;
    mixedFourths += square * product;
    products += Array2d(product, product * product);
  });
  ScatterMatrices s;
  s.quadratic << fourths.x(), mixedFourths.x(), products.y(),  //
      mixedFourths.x(), products.y(), mixedFourths.y(),        //
      products.y(), mixedFourths.y(), fourths.y();
  s.mixed << cubes.x(), mixedCubes.x(), squares.x(),  //
      mixedCubes.x(), mixedCubes.y(), products.x(),   //
      mixedCubes.y(), cubes.y(), squares.y();
  const auto n = static_cast<double>(frame.count);
  s.linear << squares.x(), products.x(), first.x(),  //
      products.x(), squares.y(), first.y(),          //
      first.x(), first.y(), n;
  s.quadratic /= n;
  s.mixed /= n;
  s.linear /= n;
  return s;
}

/// C^-1 M. The rows of C are (0, 0, 2), (0, -1, 0) and (2, 0, 0), those of its inverse (0, 0, 1/2),
/// (0, -1, 0) and (1/2, 0, 0).
Matrix3d constrained(const Matrix3d& m) {
  Matrix3d result;
  result << 0.5 * m.row(2), -m.row(1), 0.5 * m.row(0);
  return result;
}

/// The equation of points on a parabola or on two parallel lines has 4 xx yy - xy^2 = 0 and belongs
/// to a double eigenvalue, which rounding splits: into two that differ from it by the root of the
/// rounding, with ellipses some 10000 times as long as wide, or into a complex pair.
constexpr double kNoiseOfDoubleEigenvalue = 1e-6;

/// @param v of length 1
bool isEllipse(const Vector3d& v) {
  return 4.0 * v(0) * v(2) - v(1) * v(1) > kNoiseOfDoubleEigenvalue;
}

/// A matrix with the same eigenvalues and a zero in the lower left corner, which the solver asks
/// for. A rotation in the plane of the last two axes does it (Golub and Van Loan, Matrix
/// Computations, Hessenberg form).
Matrix3d hessenbergForm(const Matrix3d& m) {
  Eigen::JacobiRotation<double> rotation;
  rotation.makeGivens(m(1, 0), m(2, 0));
  Matrix3d turned = m;
  turned.applyOnTheLeft(1, 2, rotation.adjoint());
  turned.applyOnTheRight(1, 2, rotation);
  turned(2, 0) = 0.0;
  return turned;
}

/// Whether a real eigenvalue stands at that place of the diagonal which stands nowhere else. A
/// complex pair is a block of two rows with an element below the diagonal.
bool isSingle(const Matrix3d& schurForm, Eigen::Index index) {
  const bool hasBlockAbove = index > 0 && schurForm(index, index - 1) != 0.0;
  const bool hasBlockBelow = index < 2 && schurForm(index + 1, index) != 0.0;
  const double value = schurForm(index, index);
  return !hasBlockAbove && !hasBlockBelow && (schurForm.diagonal().array() == value).count() == 1;
}

/// Square to all rows of m - value I, which span a plane: along the longest of their cross
/// products.
Vector3d eigenvectorOf(const Matrix3d& m, double value) {
  const Matrix3d rows = m - value * Matrix3d::Identity();
  Vector3d longest = Vector3d::Zero();
  for (Eigen::Index i = 0; i < 3; ++i) {
    const Vector3d first = rows.row(i);
    const Vector3d second = rows.row((i + 1) % 3);
    const Vector3d normal = first.cross(second);
    if (normal.squaredNorm() > longest.squaredNorm()) longest = normal;
  }
  return longest.normalized();
}

/// The first eigenvector that belongs to an ellipse. Eigen's solver for all three would take longer
/// to compile than the rest of the library's fits together.
std::optional<Vector3d> ellipticEigenvector(const Matrix3d& m) {
  if (!m.allFinite() || m.isZero(0.0)) return std::nullopt;  // no input for the solver
  const double size = m.cwiseAbs().maxCoeff();
  const Matrix3d scaled = m / size;
  Eigen::RealSchur<Matrix3d> solver;
  const Matrix3d unused = Matrix3d::Identity();  // the rotation, which only eigenvectors would need
  solver.computeFromHessenberg(hessenbergForm(scaled), unused, false);
  if (solver.info() != Eigen::Success) return std::nullopt;
  for (Eigen::Index i = 0; i < 3; ++i) {
    if (!isSingle(solver.matrixT(), i)) continue;
    const Vector3d v = eigenvectorOf(scaled, solver.matrixT()(i, i));
    if (isEllipse(v)) return v;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Conic> fitConic(const PointSubset& points, const PointFrame& frame) {
  if (frame.count < kFewestPointsOfConic) return std::nullopt;
  const ScatterMatrices s = scatterMatricesOf(points, frame);
  // Otherwise the scatter matrix of the linear terms has an inverse.
  if (areCollinear(s.linear(0, 0), s.linear(0, 1), s.linear(1, 1),
                   static_cast<double>(frame.count))) {
    return std::nullopt;
  }
  const Matrix3d linearOfQuadratic = -s.linear.ldlt().solve(s.mixed.transpose());  // T
  const auto v = ellipticEigenvector(constrained(s.quadratic + s.mixed * linearOfQuadratic));
  if (!v) return std::nullopt;
  // An eigenvector has no sign of its own. This one is what ellipseOf asks for.
  const Vector3d quadratic = v->x() + v->z() > 0.0 ? Vector3d(-*v) : *v;
  const Vector3d linear = linearOfQuadratic * quadratic;
  return Conic{quadratic.x(), quadratic.y(), quadratic.z(), linear.x(), linear.y(), linear.z()};
}

}  // namespace Calculations
}  // namespace Ruv
