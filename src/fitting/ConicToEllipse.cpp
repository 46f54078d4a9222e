#include "fitting/ConicToEllipse.h"

#include "foundation/MathConstants.h"

#include <Calculations/Utilities.h>

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Negative for the square of an imaginary semi-axis.
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
  ellipse.rotation = axis1 >= axis2 ? theta : Utilities::getangleAsMinusPiToPi(theta - kHalfPi);
  return ellipse;
}

}  // namespace Calculations
}  // namespace Ruv
