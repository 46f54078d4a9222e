// SPDX-License-Identifier: BSL-1.0
/// @file
/// Similarity transformations between ready coordinates, by Eigen. The number type is open: with
/// long double they tell the errors of all others.

#ifndef CALCULATIONS_BENCHMARKS_RESECTION_PEERS_H
#define CALCULATIONS_BENCHMARKS_RESECTION_PEERS_H

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <Eigen/Geometry>
#include <Eigen/LU>

#include <cmath>
#include <limits>

namespace Benchmarks {

template <class Scalar>
using Columns = Eigen::Matrix<Scalar, 3, Eigen::Dynamic>;

/// The origin of the local system in the global one, the rotation about the vertical (clockwise)
/// that follows the tilts, and the scale.
template <class Scalar>
struct Similarity {
  Eigen::Matrix<Scalar, 3, 1> station = Eigen::Matrix<Scalar, 3, 1>::Zero();
  Scalar orientation = 0;
  Scalar scale = 1;
  Eigen::Matrix<Scalar, 7, 1> stdDevs = Eigen::Matrix<Scalar, 7, 1>::Zero();  ///< in space only
};

template <class Scalar>
using PlanColumns = Eigen::Matrix<Scalar, 2, Eigen::Dynamic>;

/// Eigen's umeyama() in plan.
template <class Scalar>
Similarity<Scalar> planeSimilarity(const PlanColumns<Scalar>& local,
                                   const PlanColumns<Scalar>& global) {
  const Eigen::Matrix<Scalar, 3, 3> t = Eigen::umeyama(local, global, true);
  Similarity<Scalar> similarity;
  similarity.station.template head<2>() = t.template topRightCorner<2, 1>();
  similarity.orientation = std::atan2(t(0, 1), t(0, 0));
  similarity.scale = std::hypot(t(0, 0), t(0, 1));
  return similarity;
}

/// Gauss-Newton on the seven parameters with a design matrix of three rows for each pair.
template <class Scalar>
class DenseGaussNewton {
 public:
  DenseGaussNewton(const Columns<Scalar>& local, const Columns<Scalar>& global)
      : m_local(local),
        m_global(global),
        m_design(3 * local.cols(), 7),
        m_misclosures(3 * local.cols()) {
    start();
  }

  /// @param negligible steps are taken until the translation and the angles change by less
  Similarity<Scalar> solve(Scalar negligible) {
    constexpr int kMostSteps = 100;
    Vector7 step = Vector7::Zero();
    Matrix7 normals = Matrix7::Zero();
    for (int count = 0; count < kMostSteps; ++count) {
      linearise();
      normals.noalias() = m_design.transpose() * m_design;
      step = normals.ldlt().solve(m_design.transpose() * m_misclosures);
      m_translation += step.template head<3>();
      m_angles += step.template segment<3>(3);
      m_scale += step(6);
      const Scalar translation = rootMeanSquare(step.template head<3>());
      const Scalar turning = rootMeanSquare(step.template segment<3>(3));
      if (translation < negligible && turning < negligible) break;
    }
    const auto redundancy = static_cast<Scalar>(m_misclosures.size() - 7);
    const Scalar sigma0 = std::sqrt((m_misclosures - m_design * step).squaredNorm() / redundancy);
    return {m_translation, m_angles.z(), m_scale,
            sigma0 * normals.inverse().diagonal().cwiseSqrt()};
  }

 private:
  using Vector3 = Eigen::Matrix<Scalar, 3, 1>;
  using Matrix3 = Eigen::Matrix<Scalar, 3, 3>;
  using Vector7 = Eigen::Matrix<Scalar, 7, 1>;
  using Matrix7 = Eigen::Matrix<Scalar, 7, 7>;

  static Scalar rootMeanSquare(const Vector3& v) { return std::sqrt(v.squaredNorm() / 3); }

  /// The plane similarity in closed form.
  void start() {
    const Vector3 from = m_local.rowwise().mean();
    const Vector3 to = m_global.rowwise().mean();
    Scalar sine = 0;
    Scalar cosine = 0;
    Scalar extent = 0;
    for (Eigen::Index i = 0; i < m_local.cols(); ++i) {
      const Vector3 l = m_local.col(i) - from;
      const Vector3 g = m_global.col(i) - to;
      extent += l.x() * l.x() + l.y() * l.y();
      sine += g.x() * l.y() - g.y() * l.x();
      cosine += g.x() * l.x() + g.y() * l.y();
    }
    m_angles << 0, 0, std::atan2(sine, cosine);
    m_scale = std::hypot(sine, cosine) / extent;
    m_translation = to - m_scale * (rotation() * from);
  }

  /// Tilts about east and north, then the clockwise rotation about the vertical.
  Matrix3 rotation() const {
    return clockwise() * Eigen::AngleAxis<Scalar>(m_angles.y(), Vector3::UnitY()) *
           Eigen::AngleAxis<Scalar>(m_angles.x(), Vector3::UnitX());
  }

  Matrix3 clockwise() const {
    return Eigen::AngleAxis<Scalar>(-m_angles.z(), Vector3::UnitZ()).toRotationMatrix();
  }

  void linearise() {
    const Matrix3 turned = rotation();
    // A rotation changes by the cross product of its axis with what it has turned.
    const Vector3 northAxis = clockwise() * Vector3::UnitY();
    const Vector3 eastAxis =
        clockwise() * (Eigen::AngleAxis<Scalar>(m_angles.y(), Vector3::UnitY()) * Vector3::UnitX());
    for (Eigen::Index i = 0; i < m_local.cols(); ++i) {
      const Vector3 unscaled = turned * m_local.col(i);
      const Vector3 moved = m_scale * unscaled;
      auto rows = m_design.template middleRows<3>(3 * i);
      rows.template leftCols<3>().setIdentity();
      rows.col(3) = eastAxis.cross(moved);
      rows.col(4) = northAxis.cross(moved);
      rows.col(5) = -Vector3::UnitZ().cross(moved);
      rows.col(6) = unscaled;
      m_misclosures.template segment<3>(3 * i) = m_global.col(i) - m_translation - moved;
    }
  }

  const Columns<Scalar>& m_local;
  const Columns<Scalar>& m_global;
  Eigen::Matrix<Scalar, Eigen::Dynamic, 7> m_design;
  Eigen::Matrix<Scalar, Eigen::Dynamic, 1> m_misclosures;
  Vector3 m_translation = Vector3::Zero();
  Vector3 m_angles = Vector3::Zero();  ///< about east, north and, clockwise, the vertical
  Scalar m_scale = 1;
};

}  // namespace Benchmarks

#endif
