// SPDX-License-Identifier: BSL-1.0
/// @file
/// The rigid motion that fits one set of points onto another.

#ifndef CALCULATIONS_STATIONS_MATRIX_POINTS_FIT_H
#define CALCULATIONS_STATIONS_MATRIX_POINTS_FIT_H

#include <Eigen/Core>

namespace Ruv {
namespace Calculations {

/// Least-squares rotation and translation, without scale, of points onto candidates (Arun, Huang
/// and Blostein 1987; proper rotations after Kabsch 1978).
///
/// Mirror images get the best proper rotation, never a reflection. Spatial points on a line leave
/// the rotation about it open: of the equally good ones the most upright is returned, which tilts
/// the third axis least. Input that is not finite gives not-a-number.
class MatrixPointsFit {
 public:
  /// One column per point; two rows for plane points, three for spatial ones. Columns of the same
  /// index belong together.
  using Points = Eigen::Ref<const Eigen::MatrixXd>;

  /// Throws std::runtime_error when the shapes differ.
  MatrixPointsFit(const Points& pointsToMatch, const Points& candidates);

  /// candidate = rotation * point + translation
  const Eigen::MatrixXd& rotation() const { return m_rotation; }
  const Eigen::VectorXd& translation() const { return m_translation; }

  /// The mean of the columns; zero without columns.
  static Eigen::VectorXd centroidOf(const Points& points);

 private:
  Eigen::MatrixXd m_rotation;
  Eigen::VectorXd m_translation;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
