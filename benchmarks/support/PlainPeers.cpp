// SPDX-License-Identifier: BSL-1.0
#include "support/PlainPeers.h"

#include <Eigen/Core>
#include <Eigen/LU>
#include <Eigen/SVD>

#include <algorithm>
#include <cmath>

namespace Benchmarks {

namespace {

constexpr double kTolerance = 0.05;
constexpr double kHeightTolerance = 0.02;
constexpr double kCosineOfTilt = 0.17364817766693041;  // 80 degrees
constexpr std::size_t kFewestMeasured = 3;

/// What both ends of a distance may deviate by, with room for rounding.
double largestChange() {
  constexpr double kRounding = 1e-6;
  return 2.0 * std::sqrt(2.0 * kTolerance * kTolerance + kHeightTolerance * kHeightTolerance) +
         kRounding;
}

/// Of columns about their centroids, by Kabsch (Acta Cryst. A32, 1976).
Eigen::Matrix3d bestRotation(const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to) {
  const Eigen::JacobiSVD<Eigen::Matrix3d> svd(from * to.transpose(),
                                              Eigen::ComputeFullU | Eigen::ComputeFullV);
  Eigen::Matrix3d v = svd.matrixV();
  if ((v * svd.matrixU().transpose()).determinant() < 0.0) v.col(2) *= -1.0;
  return v * svd.matrixU().transpose();
}

/// Moves the measured points onto their fix points; none beyond the tolerances.
std::optional<double> fitWithinTolerances(const Eigen::Matrix3Xd& measured,
                                          const Eigen::Matrix3Xd& fixPoints) {
  const Eigen::Matrix3Xd from = measured.colwise() - Eigen::Vector3d(measured.rowwise().mean());
  const Eigen::Matrix3Xd to = fixPoints.colwise() - Eigen::Vector3d(fixPoints.rowwise().mean());
  const Eigen::Matrix3d rotation = bestRotation(from, to);
  const Eigen::Matrix3Xd deviations = rotation * from - to;
  const bool fits = (deviations.topRows<2>().array().abs() < kTolerance).all() &&
                    (deviations.row(2).array().abs() < kHeightTolerance).all() &&
                    rotation(2, 2) >= kCosineOfTilt;
  return fits ? std::optional<double>(deviations.squaredNorm()) : std::nullopt;
}

/// The place of a subset in the queue that holds each subset once for each order in which its
/// missing members can be left out.
double placeInRepeatingQueue(const std::vector<std::size_t>& assigned) {
  const std::size_t count = assigned.size();
  const auto removed =
      static_cast<std::size_t>(std::count(assigned.begin(), assigned.end(), PlainSearch::kLeftOut));
  double before = 0.0;
  double sequences = 1.0;  // of so many removals
  for (std::size_t i = 0; i < removed; ++i) {
    before += sequences;
    sequences *= static_cast<double>(count - i);
  }
  // Among those with as many removals: the first sequence leaves out the missing ones in order.
  double place = 0.0;
  std::size_t gone = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (assigned[i] != PlainSearch::kLeftOut) continue;
    sequences /= static_cast<double>(count - gone);
    place += sequences * static_cast<double>(i - gone);
    ++gone;
  }
  return before + place + 1.0;
}

}  // namespace

PlainSearch plainSearchOf(const FixPointWorkload& workload) {
  return {workload.fixPoints, workload.measured,   kTolerance,
          kFewestMeasured,    fitWithinTolerances, largestChange()};
}

double numRepeatedSubsets(const PlainSearch::Solution& solution) {
  return placeInRepeatingQueue(solution.fixPoints);
}

}  // namespace Benchmarks
