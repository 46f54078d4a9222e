// SPDX-License-Identifier: BSL-1.0
/// @file
/// In how many ways a figure fits into a box.

#ifndef CALCULATIONS_STATIONS_FIGURE_POSES_H
#define CALCULATIONS_STATIONS_FIGURE_POSES_H

#include <Eigen/Core>

#include <cstdint>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Numbers that look random and are the same on every machine and in every call: splitmix64
/// (Steele, Lea and Flood 2014) from a fixed state.
class FixedDraws {
 public:
  /// A number in [low, high).
  double uniform(double low, double high);
  /// An index in [0, count).
  std::size_t index(std::size_t count);

 private:
  std::uint64_t next();

  std::uint64_t m_state = 1;
};

/// A base and the point farthest from it: the triangle that stands for a figure.
struct FigureTriangle {
  /// The base starts at the point farthest from the first one and ends at the point farthest from
  /// there.
  /// @param points at least one
  explicit FigureTriangle(const std::vector<Eigen::Vector3d>& points);

  double base = 0.0;
  double along = 0.0;   ///< of the foot of the height, from the start of the base
  double height = 0.0;  ///< of the third point above the base
  Eigen::Matrix3d axes = Eigen::Matrix3d::Identity();  ///< along the base, along the height, normal
};

/// One random sample of the measure of the poses in which a triangle lies inside a box and is
/// tilted by no more than a limit. Shifts count by their volume, rotations by the angle, so that
/// all rotations measure 8 pi^2 (Santalo 1976). The mean of many samples is the measure.
///
/// Drawn are only directions in which the base fits into the box, and then only turns about the
/// base in which the height fits: in a tunnel of 10 by 10 by 200 m one rotation in many thousands
/// leaves a long figure inside.
double samplePoses(const FigureTriangle& triangle, const Eigen::Vector3d& box, double cosTilt,
                   FixedDraws& draws);

}  // namespace Calculations
}  // namespace Ruv

#endif
