// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measurements from a tilted instrument to fix points.

#ifndef CALCULATIONS_BENCHMARKS_RESECTION_WORKLOAD_H
#define CALCULATIONS_BENCHMARKS_RESECTION_WORKLOAD_H

#include <Calculations/Calculations.h>

#include <Eigen/Core>

#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::PolarPoint;
using Ruv::Calculations::Resection;
using Ruv::Calculations::StationPlacement;

/// Pairs of points around an instrument within 100 m, measured and on the national grid, with noise
/// of 2 mm. The instrument is tilted by a milliradian.
class ResectionWorkload {
 public:
  explicit ResectionWorkload(std::size_t numPairs);

  /// Fix points and polar measurements with their ids, entered through the public interface.
  Resection enter() const;

  /// The coordinates, one column per pair, as the measurements give them.
  Eigen::Matrix3Xd local() const;
  Eigen::Matrix3Xd global() const;

 private:
  std::vector<PolarPoint> m_measurements;
  std::vector<ENHPoint> m_fixPoints;
};

}  // namespace Benchmarks

#endif
