// SPDX-License-Identifier: BSL-1.0
// Principal axes of the conic xx x^2 + xy x y + yy y^2 + x x + y y + constant = 0 (Bronshtein and
// Semendyayev, Handbook of Mathematics, curves of the second order).
//
//   theta          angle by which the axes are turned, with tan(2 theta) = xy / (xx - yy)
//   (u, w)         coordinates along the turned axes: x = u c - w s, y = u s + w c
//   c, s           cosine and sine of theta
//   uu, ww         coefficients of u^2 and w^2; that of u w is 0
//
// Completing the squares puts the centre at u0 = -(c x + s y) / (2 uu), w0 = -(c y - s x) / (2 ww)
// and leaves uu (u - u0)^2 + ww (w - w0)^2 = -(constant - uu u0^2 - ww w0^2), whose right side
// divided by uu and by ww gives the squares of the semi-axes.

#include "fitting/ConicToEllipse.h"

#include "foundation/MathConstants.h"

#include <Calculations/Utilities.h>

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// The semi-axis is negative where its square is, which is that of an imaginary one.
double semiAxisFromSquare(double square) {
  return std::copysign(std::sqrt(std::abs(square)), square);
}

}  // namespace

Ellipse ellipseOf(const Conic& conic) {
  const double theta = 0.5 * std::atan2(conic.xy, conic.xx - conic.yy);
  const double c = std::cos(theta);
  const double s = std::sin(theta);
  // Turned by theta the equation has no mixed term.
  const double uu = conic.xx * c * c + conic.yy * s * s + conic.xy * s * c;
  const double ww = conic.xx * s * s + conic.yy * c * c - conic.xy * s * c;
  const double u = -(s * conic.y + c * conic.x) / (2.0 * uu);
  const double w = -(c * conic.y - s * conic.x) / (2.0 * ww);
  const double constant = conic.constant - u * u * uu - w * w * ww;
  const double axis1 = semiAxisFromSquare(-constant / uu);
  const double axis2 = semiAxisFromSquare(-constant / ww);
  Ellipse ellipse;
  ellipse.center = Point2D(u * c - w * s, u * s + w * c);
  ellipse.semiAxisA = std::max(axis1, axis2);
  ellipse.semiAxisB = std::min(axis1, axis2);
  // The choice of theta makes uu the larger coefficient. Of an ellipse with xx + yy < 0 both are
  // negative, so axis1 is the longer one; only other conics come to the second case.
  ellipse.rotation = axis1 >= axis2 ? theta : Utilities::getangleAsMinusPiToPi(theta - kHalfPi);
  return ellipse;
}

}  // namespace Calculations
}  // namespace Ruv
