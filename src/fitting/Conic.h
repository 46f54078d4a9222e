// SPDX-License-Identifier: BSL-1.0
/// @file
/// Conics by their equation.

#ifndef CALCULATIONS_FITTING_CONIC_H
#define CALCULATIONS_FITTING_CONIC_H

#include <cmath>

namespace Ruv {
namespace Calculations {

/// The equation xx x^2 + xy x y + yy y^2 + x x + y y + constant = 0 by its coefficients.
struct Conic {
  double xx = 0.0;
  double xy = 0.0;
  double yy = 0.0;
  double x = 0.0;
  double y = 0.0;
  double constant = 0.0;
};

/// The left side of the equation: the signed algebraic distance of the point (u, v).
inline double valueAt(const Conic& conic, double u, double v) {
  return (conic.xx * u + conic.xy * v + conic.x) * u + (conic.yy * v + conic.y) * v +
         conic.constant;
}

/// The sum of the magnitudes of the terms, by which the rounding of valueAt is measured.
inline double magnitudeAt(const Conic& conic, double u, double v) {
  return std::abs(conic.xx * u * u) + std::abs(conic.xy * u * v) + std::abs(conic.yy * v * v) +
         std::abs(conic.x * u) + std::abs(conic.y * v) + std::abs(conic.constant);
}

/// The most by which valueAt changes with a shift of the point, for each unit of the shift.
inline double slopeAt(const Conic& conic, double u, double v) {
  const double alongU = 2.0 * conic.xx * u + conic.xy * v + conic.x;
  const double alongV = conic.xy * u + 2.0 * conic.yy * v + conic.y;
  return std::sqrt(alongU * alongU + alongV * alongV);
}

}  // namespace Calculations
}  // namespace Ruv

#endif
