// SPDX-License-Identifier: BSL-1.0
// The number of assignments that chance alone is expected to bring about, an a-contrario count
// (Desolneux, Moisan and Morel 2008, From Gestalt Theory to Image Analysis, chapter 3; for rigid
// matches of points Moisan and Stival 2004, International Journal of Computer Vision 57).
//
//   n      measurements
//   k      those assigned
//   N      fix points
//   V      volume that the fix points fill
//   t, h   tolerances in east and north, in height
//   D      diag(t^2, t^2, h^2) / 3, the covariance of a point at random in the box of the
//   tolerances S      sum of f f^T over the k fix points f of an assignment, reduced to their
//   centroid [f]    the matrix of the cross product with f
//
// By hypothesis the n measurements are independent and uniform in V. Every choice of k of them and
// every one of the N^k assignments of these is a test, so that the number of assignments within
// the tolerances has the expectation
//
//   E = C(n, k) * sum over the assignments of P,
//
// P being the probability that k random points can be moved onto the fix points of the assignment.
// The robust determination has tried larger subsets before, whose share is smaller by orders of
// magnitude and is left out. That E bounds the probability of any such assignment is Markov's
// inequality; no independence of the tests is needed.
//
// P is the volume of all figures of k points within the tolerances, divided by V^k. Such a figure
// is m_i = Q (f_i + e_i) + shift with a pose (Q, shift) and deviations e_i that are those of a best
// fit: their sum is zero, and so is that of f_i x e_i. These are six conditions A e = 0, with
// A A^T = diag(k 1, J) and J = sum of [f] [f]^T. Small deviations change the poses by k^(3/2)
// sqrt(det J) per unit of deviation. The section A e = 0 of the box of the deviations, which has
// the volume B = (8 t^2 h)^k, measures B sqrt(det A A^T) times the density of A e at zero for
// random e. Taken as normal, with the covariance diag(k D, K) and K = sum of [f] D [f]^T, this
// density is (2 pi)^-3 k^(-3/2) (det D det K)^(-1/2). Hence
//
//   P = (8 t^2 h / V)^k * k^(3/2) det J / ((2 pi)^3 sqrt(det D det K)) * poses
//
// with the measure of the poses in which the figure lies inside the fix points' box (kinematic
// measure: Santalo 1976, Integral Geometry and Geometric Probability, chapter 15) and is tilted by
// no more than allowed: so many independent places for it, and a probability of 8 t^2 h / V for
// each of its points. The mean of P over the assignments is taken over a fixed sample of them.
//
// Three steps are on the safe side. Only a triangle of each figure has to lie inside the box; the
// section of a box is smaller than a normal density says; and the tolerance of distances from the
// reference point, which refuses some of the deviations, is not counted. In simulations of 3 to 5
// points in boxes, slabs, tunnels and shafts E is 4 to 10 times the mean number found.

#include "stations/ChanceAssignments.h"

#include <Calculations/Utilities.h>

#include "stations/FigurePoses.h"
#include "stations/FixPointSpace.h"

#include <Eigen/LU>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ruv {
namespace Calculations {

namespace {

using Eigen::Matrix3d;
using Eigen::Vector3d;

/// Assignments that stand for all. Their mean has a standard deviation of 5 to 8 %.
constexpr int kSampledAssignments = 1000;

/// Limits of the tilt (degrees) outside this range count as its ends. Within less than 20 degrees
/// lie three rotations in a hundred, too few for the sample; and a figure that tilts farther is
/// accepted where that of a level instrument fits as well.
constexpr double kLeastTilt = 20.0;
constexpr double kLargestTilt = 180.0;

/// Numbers of larger logarithms would overflow.
constexpr double kLargestLog = 709.0;

/// Half the size of the box of the tolerances.
Vector3d tolerancesOf(const MatchSettings& settings) {
  return {settings.toleranceDistanceDifference, settings.toleranceDistanceDifference,
          settings.toleranceHeightDifference};
}

/// The sum of [f] diag(d) [f]^T, from the sum of f f^T.
Matrix3d crossSpread(const Matrix3d& spread, const Vector3d& d) {
  Matrix3d m;
  m << spread(1, 1) * d(2) + spread(2, 2) * d(1), -spread(0, 1) * d(2), -spread(0, 2) * d(1),  //
      -spread(0, 1) * d(2), spread(2, 2) * d(0) + spread(0, 0) * d(2), -spread(1, 2) * d(0),   //
      -spread(0, 2) * d(1), -spread(1, 2) * d(0), spread(0, 0) * d(1) + spread(1, 1) * d(0);
  return m;
}

/// Poses per unit of their measure that the tolerances tell apart.
double poseDensity(const std::vector<Vector3d>& figure, const Vector3d& tolerances) {
  const auto count = static_cast<double>(figure.size());
  Vector3d centroid = Vector3d::Zero();
  for (const Vector3d& f : figure) {
    centroid += f / count;
  }
  const Vector3d variances = tolerances.cwiseAbs2() / 3.0;
  // Each point is as large as the tolerances: on a line, too, there is one pose to a turn about it.
  Matrix3d spread = count * Matrix3d(variances.asDiagonal());
  for (const Vector3d& f : figure) {
    spread += (f - centroid) * (f - centroid).transpose();
  }
  constexpr double kCubeOfTwoPi = 248.05021344239853;
  return count * std::sqrt(count) * crossSpread(spread, Vector3d::Ones()).determinant() /
         (kCubeOfTwoPi *
          std::sqrt(variances.prod() * crossSpread(spread, variances).determinant()));
}

/// The mean over assignments of the number of independent poses of their fix points, one of which
/// is that of the fix points themselves. The points may stick out of the box by the tolerances.
double meanPoses(const FixPointSpace& space, std::size_t matched, const MatchSettings& settings) {
  const Vector3d tolerances = tolerancesOf(settings);
  const Vector3d box = space.extents + 2.0 * tolerances;
  const double cosTilt = std::cos(
      Utilities::deg2rad(std::min(std::max(settings.toleranceTilt, kLeastTilt), kLargestTilt)));
  FixedDraws draws;
  std::vector<Vector3d> figure(matched);
  double sum = 0.0;
  for (int i = 0; i < kSampledAssignments; ++i) {
    for (Vector3d& f : figure) {
      f = space.points[draws.index(space.points.size())];
    }
    const FigureTriangle triangle(figure);
    if (!(triangle.base > 0.0)) continue;
    sum += poseDensity(figure, tolerances) * samplePoses(triangle, box, cosTilt, draws);
  }
  return 1.0 + sum / kSampledAssignments;
}

/// The logarithm of the number of ways to choose some of many and to assign them to fix points.
double logOfTests(std::size_t measured, std::size_t matched, std::size_t numFixPoints) {
  double sum = static_cast<double>(matched) * std::log(static_cast<double>(numFixPoints));
  for (std::size_t i = 0; i < matched; ++i) {
    sum += std::log(static_cast<double>(measured - i) / static_cast<double>(i + 1));
  }
  return sum;
}

}  // namespace

std::size_t numMatchedPlaces(const MatchedSolution& solution,
                             const std::vector<ENHPoint>& fixPoints, double tolerance) {
  std::vector<ENHPoint> places;
  for (const std::size_t index : solution.fixPoints) {
    if (index == kNotAssigned) continue;
    const ENHPoint& fixPoint = fixPoints[index];
    const bool isNew = std::none_of(places.begin(), places.end(), [&](const ENHPoint& place) {
      return (fixPoint - place).length() < tolerance;
    });
    if (isNew) places.push_back(fixPoint);
  }
  return places.size();
}

double expectedChanceAssignments(const std::vector<ENHPoint>& fixPoints, std::size_t measured,
                                 std::size_t matched, const MatchSettings& settings) {
  const Vector3d sizes = 2.0 * tolerancesOf(settings);
  const FixPointSpace space(fixPoints, sizes);
  const double logOfPoint = std::log(sizes.prod() / space.volume);
  const double logOfPoses = std::log(meanPoses(space, matched, settings));
  // A probability is at most 1, which wide tolerances exceed. So they do when they overflow.
  double logOfProbability = static_cast<double>(matched) * logOfPoint + logOfPoses;
  if (!(logOfProbability < 0.0)) logOfProbability = 0.0;
  const double sum = logOfTests(measured, matched, space.points.size()) + logOfProbability;
  return sum < kLargestLog ? std::exp(sum) : std::numeric_limits<double>::infinity();
}

}  // namespace Calculations
}  // namespace Ruv
