/// @file
/// The fitting methods and the record that a fit returns.

#ifndef CALCULATIONS_FITTING_RESULT_H
#define CALCULATIONS_FITTING_RESULT_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <cstdint>

namespace Ruv {
namespace Calculations {

/// Names the ways to fit a circle or an ellipse to points.
struct FittingMethod {
  enum Method : std::int32_t {
    CircleLegacy = 0,               ///< damped Gauss-Newton on squared distances
    CircleKasa = 1,                 ///< algebraic least squares
    CircleLandau = 2,               ///< the same circle in closed form
    EllipseFitzgibbon = 3,          ///< direct ellipse fit, one round
    EllipseFitzgibbonIterative = 4  ///< the same, repeated without outliers
  };
};

/// A fitted circle or ellipse.
struct CALCULATIONS_EXPORT FittingResult {
  FittingMethod::Method method;
  Point2D center;
  double radius;     ///< of the circle; 0 for an ellipse
  double semiAxisA;  ///< first semi-axis of the ellipse; the radius for a circle
  double semiAxisB;  ///< second semi-axis of the ellipse; the radius for a circle
  double rotation;   ///< of the ellipse (rad); 0 for a circle

  /// No geometry yet: everything but the method is 0.
  explicit FittingResult(FittingMethod::Method m);
  /// A circle.
  FittingResult(FittingMethod::Method m, Point2D centerPoint, double r);
  /// An ellipse with the semi-axes a and b.
  FittingResult(FittingMethod::Method m, Point2D centerPoint, double a, double b, double angle);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
