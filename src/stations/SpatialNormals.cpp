// SPDX-License-Identifier: BSL-1.0
// Normal equations of the adjustment global = t + m R local by Gauss-Newton steps (Mikhail and
// Ackermann, Observations and Least Squares, 1976, chapter on the seven-parameter transformation).
//
//   t, m, R        translation, scale, rotation by the three angles
//   p              the unknowns omega, phi, kappa and m, for which D_j = d(m R) / dp_j
//   n              number of pairs
//   c, G           centroids of the local and of the global points
//   l', g'         local and global points reduced to them; their sums are zero
//   w              misclosures g - t - m R l. Their mean is W = G - t - m R c, and what is left of
//                  each is w' = g' - m R l'
//   S              spread of the local points, the sum of l' l'^T
//   C              the derivatives of the transformed centroid: its column j is D_j c
//
// As the reduced points sum to zero, the equations fall into two groups:
//
//   N dp = b       with N_ij = sum (D_i l').(D_j l') = sum of the elements of (D_i S) o D_j and
//                  b_i = sum (D_i l').w' = sum of the elements of D_i o (sum w' l'^T)
//   dt = W - C dp
//
// where o multiplies matrices element by element. The inverse of the seven equations has the blocks
// N^-1 for p, -C N^-1 between t and p, and 1 / n + C N^-1 C^T for t. The sum of the squared
// misclosures is n W^2 + sum w'^2.

#include "stations/SpatialNormals.h"

#include "stations/EigenPoints.h"

#include <Eigen/Cholesky>

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Below this reciprocal condition (1-norm, columns of the design matrix scaled to length 1) the
/// rotation is not determined. Exactly collinear points give rounding noise, some 1e-17; points
/// that stray from a line by 3e-7 of their extent give this.
constexpr double kSmallestReciprocalCondition = 1e-13;

std::vector<Eigen::Vector3d> reduced(const std::vector<ENHPoint>& points,
                                     const ENHPoint& centroid) {
  std::vector<Eigen::Vector3d> vectors;
  vectors.reserve(points.size());
  for (const ENHPoint& p : points) {
    vectors.push_back(asVector(p - centroid));
  }
  return vectors;
}

Eigen::Matrix3d spreadOf(const std::vector<Eigen::Vector3d>& vectors) {
  Eigen::Matrix3d spread = Eigen::Matrix3d::Zero();
  for (const Eigen::Vector3d& v : vectors) {
    spread.noalias() += v * v.transpose();
  }
  return spread;
}

/// The largest sum of magnitudes in a column.
double norm1(const Eigen::Matrix4d& m) { return m.cwiseAbs().colwise().sum().maxCoeff(); }

/// The normal matrix, scaled as if all columns of the design matrix had length 1.
struct ScaledNormals {
  explicit ScaledNormals(const Eigen::Matrix4d& normals)
      : scales(normals.diagonal().cwiseSqrt().cwiseInverse()),
        matrix(scales.asDiagonal() * normals * scales.asDiagonal()),
        factors(matrix) {}

  Eigen::Vector4d scales;
  Eigen::Matrix4d matrix;
  Eigen::LDLT<Eigen::Matrix4d> factors;
};

std::optional<Eigen::Matrix4d> inverseOfNormals(const Eigen::Matrix4d& normals) {
  const ScaledNormals scaled(normals);
  // The solver leaves out a pivot of exactly zero, and then nothing looks large in the inverse.
  if (!(scaled.factors.vectorD().minCoeff() > 0.0)) return std::nullopt;
  const Eigen::Matrix4d inverse = scaled.factors.solve(Eigen::Matrix4d::Identity());
  const double condition = norm1(scaled.matrix) * norm1(inverse);
  if (!(condition * kSmallestReciprocalCondition <= 1.0)) return std::nullopt;
  return scaled.scales.asDiagonal() * inverse * scaled.scales.asDiagonal();
}

}  // namespace

ReducedPairs::ReducedPairs(const PointPairs& pairs) {
  const ENHPoint from = centroidOf(pairs.local);
  const ENHPoint to = centroidOf(pairs.global);
  local = reduced(pairs.local, from);
  global = reduced(pairs.global, to);
  localCentroid = asVector(from);
  globalCentroid = asVector(to);
  localSpread = spreadOf(local);
  globalSpread = spreadOf(global);
}

SpatialNormals::SpatialNormals(const ReducedPairs& pairs, const SpatialParameters& at)
    : m_count(static_cast<double>(pairs.local.size())) {
  const SpatialRotation rotation = spatialRotation(at.angles);
  const Eigen::Matrix3d scaledRotation = at.scale * rotation.matrix;
  m_derivatives = {at.scale * rotation.byOmega, at.scale * rotation.byPhi,
                   at.scale * rotation.byKappa, rotation.matrix};
  m_meanMisclosure = pairs.globalCentroid - at.translation - scaledRotation * pairs.localCentroid;
  for (int i = 0; i < 4; ++i) {
    m_centroidDerivatives.col(i) = m_derivatives[static_cast<std::size_t>(i)] * pairs.localCentroid;
  }
  setNormals(pairs.localSpread);
  addMisclosures(pairs, scaledRotation);
}

/// N from the spread alone: (D_i l).(D_j l) is the sum of the elements of (D_i l l^T) o D_j.
void SpatialNormals::setNormals(const Eigen::Matrix3d& spread) {
  for (std::size_t i = 0; i < 4; ++i) {
    const Eigen::Matrix3d spreadDerivative = m_derivatives[i] * spread;
    for (std::size_t j = 0; j <= i; ++j) {
      const double product = spreadDerivative.cwiseProduct(m_derivatives[j]).sum();
      m_normals(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)) = product;
      m_normals(static_cast<Eigen::Index>(j), static_cast<Eigen::Index>(i)) = product;
    }
  }
}

/// The misclosures are taken point by point: their sums, derived from those of the coordinates,
/// would be small differences of large numbers.
void SpatialNormals::addMisclosures(const ReducedPairs& pairs,
                                    const Eigen::Matrix3d& scaledRotation) {
  Eigen::Matrix3d products = Eigen::Matrix3d::Zero();
  m_squaredMisclosures = m_count * m_meanMisclosure.squaredNorm();
  for (std::size_t i = 0; i < pairs.local.size(); ++i) {
    const Eigen::Vector3d misclosure = pairs.global[i] - scaledRotation * pairs.local[i];
    products.noalias() += misclosure * pairs.local[i].transpose();
    m_squaredMisclosures += misclosure.squaredNorm();
  }
  for (std::size_t i = 0; i < 4; ++i) {
    m_rightSide(static_cast<Eigen::Index>(i)) = m_derivatives[i].cwiseProduct(products).sum();
  }
}

std::optional<SpatialNormals::Vector7> SpatialNormals::solve() const {
  const ScaledNormals scaled(m_normals);
  const Eigen::Vector4d scaledSide = scaled.scales.cwiseProduct(m_rightSide);
  const Eigen::Vector4d turn = scaled.scales.cwiseProduct(scaled.factors.solve(scaledSide));
  Vector7 corrections;
  corrections << m_meanMisclosure - m_centroidDerivatives * turn, turn;
  if (!corrections.allFinite()) return std::nullopt;
  return corrections;
}

std::optional<SpatialNormals::Matrix7> SpatialNormals::cofactors() const {
  const auto inverse = inverseOfNormals(m_normals);
  if (!inverse) return std::nullopt;
  // A turn about the centroid carries the instrument along on a lever as long as it is away.
  const Matrix34 lever = m_centroidDerivatives * *inverse;
  const Eigen::Matrix3d translation =
      Eigen::Matrix3d::Identity() / m_count + lever * m_centroidDerivatives.transpose();
  Matrix7 cofactors;
  cofactors << translation, -lever, -lever.transpose(), *inverse;
  return cofactors;
}

SpatialNormals::Matrix7 SpatialNormals::normalMatrix() const {
  // The seven equations follow from the four by undoing the reduction to the centroid.
  const Matrix34 mixed = m_count * m_centroidDerivatives;
  const Eigen::Matrix4d turns = m_normals + m_centroidDerivatives.transpose() * mixed;
  Matrix7 matrix;
  matrix << m_count * Eigen::Matrix3d::Identity(), mixed, mixed.transpose(), turns;
  return matrix;
}

SpatialNormals::Vector7 SpatialNormals::rightSide() const {
  const Eigen::Vector3d sum = m_count * m_meanMisclosure;
  Vector7 side;
  side << sum, m_rightSide + m_centroidDerivatives.transpose() * sum;
  return side;
}

}  // namespace Calculations
}  // namespace Ruv
