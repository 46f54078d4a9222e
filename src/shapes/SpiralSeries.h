// SPDX-License-Identifier: BSL-1.0
/// @file
/// The unit spiral: Fresnel integrals as functions of the tangent angle.

#ifndef CALCULATIONS_SHAPES_SPIRAL_SERIES_H
#define CALCULATIONS_SHAPES_SPIRAL_SERIES_H

namespace Ruv {

/// Coordinates of a point of a clothoid, divided by its arc length from the origin.
struct CSpiralFactors {
  double along;   ///< along the tangent at the origin
  double across;  ///< to the side
};

/// The series below keeps full accuracy up to this tangent angle (rad): 3e-14 of the arc length
/// at 2, but 4e-8 at 5.
constexpr double kLargestSeriesAngle = 2.0;

/// Point of a clothoid where its tangent has turned by tangentAngle since the origin.
/// @param tangentAngle in [0, kLargestSeriesAngle]
/// Source: Abramowitz and Stegun 7.3.11 and 7.3.13 with t = l^2 / (2 A^2):
///   x / l = sum (-1)^n t^2n / ((2n)! (4n+1)),  y / l = sum (-1)^n t^(2n+1) / ((2n+1)! (4n+3)).
CSpiralFactors spiralFactors(double tangentAngle);

}  // namespace Ruv

#endif
