// SPDX-License-Identifier: BSL-1.0
/// @file
/// Points as vectors of the matrix library.

#ifndef CALCULATIONS_STATIONS_EIGEN_POINTS_H
#define CALCULATIONS_STATIONS_EIGEN_POINTS_H

#include <Calculations/Points.h>

#include <Eigen/Core>

namespace Ruv {
namespace Calculations {

inline Eigen::Vector3d asVector(const ENHPoint& p) { return {p.east, p.north, p.height}; }

inline ENHPoint asPoint(const Eigen::Vector3d& v) { return {v.x(), v.y(), v.z()}; }

}  // namespace Calculations
}  // namespace Ruv

#endif
