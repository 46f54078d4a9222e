// SPDX-License-Identifier: BSL-1.0
// Accepting a rigid motion of measured points onto fix points.
//
//   m', f'         measured points and fix points, each reduced to their centroid
//   R              a rotation; the motion is m -> R m' + centroid of the fix points
//   d              deviations R m' - f', with components east, north and height
//   tp, th         tolerances in plan, for east and north each, and in height
//
// A motion is accepted when |d| < tp in east and in north and |d| < th in height for every point,
// and when the instrument is tilted by no more than allowed: the cosine of the tilt is the element
// of R in row 3, column 3, as R carries the instrument's vertical axis there. The score of a motion
// is the sum of d_east^2 + d_north^2 + 2 d_height^2.
//
// A rigid motion keeps distances. So the distance between two fix points differs from that of their
// measured points by at most the sum of both deviations, each shorter than sqrt(2 tp^2 + th^2).

#include "stations/RigidPlacement.h"

#include <Calculations/Utilities.h>

#include "stations/MatrixPointsFit.h"

#include <Eigen/Geometry>

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// What rounding may add to a difference of distances (m), with room for coordinates of 1e8 m.
constexpr double kRoundingAllowance = 1e-6;

/// The score weights squared height deviations by this: heights are measured better than plan
/// positions.
constexpr double kHeightWeight = 2.0;

double weightedSquares(const Eigen::Matrix3Xd& deviations) {
  return deviations.topRows<2>().squaredNorm() + kHeightWeight * deviations.row(2).squaredNorm();
}

/// The best rotation about the vertical.
Eigen::Matrix3d levelRotation(const Eigen::Matrix3Xd& measured, const Eigen::Matrix3Xd& fixPoints) {
  const MatrixPointsFit plan(measured.topRows<2>(), fixPoints.topRows<2>());
  Eigen::Matrix3d rotation = Eigen::Matrix3d::Identity();
  rotation.topLeftCorner<2, 2>() = plan.rotation();
  return rotation;
}

/// The smallest rotation that turns one vector onto the direction of another; nothing when they are
/// parallel, for want of an axis.
std::optional<Eigen::Matrix3d> shortestTurn(const Eigen::Vector3d& from,
                                            const Eigen::Vector3d& to) {
  const Eigen::Vector3d axis = from.cross(to);
  const double sine = axis.norm();
  if (!(sine > 0.0)) return std::nullopt;
  const double angle = std::atan2(sine, from.dot(to));  // sharper than acos at small angles
  return Eigen::AngleAxisd(angle, axis / sine).toRotationMatrix();
}

/// The rotation, corrected so that the point farthest from the centroid (the first of equals)
/// lies in the direction of its fix point.
std::optional<Eigen::Matrix3d> alignedToFarthest(const Eigen::Matrix3d& rotation,
                                                 const Eigen::Matrix3Xd& measured,
                                                 const Eigen::Matrix3Xd& fixPoints) {
  Eigen::Index farthest = 0;
  measured.colwise().squaredNorm().maxCoeff(&farthest);
  const auto turn = shortestTurn(rotation * measured.col(farthest), fixPoints.col(farthest));
  if (!turn) return std::nullopt;
  return *turn * rotation;
}

Eigen::Matrix3Xd reducedToCentroid(const Eigen::Matrix3Xd& points) {
  return points.colwise() - MatrixPointsFit::centroidOf(points).head<3>();
}

}  // namespace

RigidPlacement::RigidPlacement(const MatchSettings& settings)
    : m_planTolerance(settings.toleranceDistanceDifference),
      m_heightTolerance(settings.toleranceHeightDifference),
      m_cosTilt(std::cos(Utilities::deg2rad(settings.toleranceTilt))) {}

double RigidPlacement::largestChangeOfDistance() const {
  const double deviation =
      std::sqrt(2.0 * m_planTolerance * m_planTolerance + m_heightTolerance * m_heightTolerance);
  return 2.0 * deviation + kRoundingAllowance;
}

std::optional<double> RigidPlacement::score(const Eigen::Matrix3Xd& measured,
                                            const Eigen::Matrix3Xd& fixPoints) const {
  const Eigen::Matrix3Xd from = reducedToCentroid(measured);
  const Eigen::Matrix3Xd to = reducedToCentroid(fixPoints);

  // A figure whose best rotation leaves it outside the tolerances is refused outright. The two
  // other rotations are for figures that fit, but only with an instrument tilted more than is
  // allowed, as a few points near a line may.
  const Eigen::Matrix3d best = MatrixPointsFit(measured, fixPoints).rotation();
  Eigen::Matrix3Xd deviations = best * from - to;
  if (!isWithinTolerances(deviations)) return std::nullopt;
  if (isUpright(best)) return weightedSquares(deviations);

  deviations = levelRotation(measured, fixPoints) * from - to;
  if (isWithinTolerances(deviations)) return weightedSquares(deviations);

  const auto aligned = alignedToFarthest(best, from, to);
  if (!aligned) return std::nullopt;
  deviations = *aligned * from - to;
  if (!isWithinTolerances(deviations) || !isUpright(*aligned)) return std::nullopt;
  return weightedSquares(deviations);
}

bool RigidPlacement::isWithinTolerances(const Eigen::Matrix3Xd& deviations) const {
  // Not-a-number is not within: comparisons with it are false.
  return (deviations.topRows<2>().array().abs() < m_planTolerance).all() &&
         (deviations.row(2).array().abs() < m_heightTolerance).all();
}

bool RigidPlacement::isUpright(const Eigen::Matrix3d& rotation) const {
  return rotation(2, 2) >= m_cosTilt;
}

}  // namespace Calculations
}  // namespace Ruv
