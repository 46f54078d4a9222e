// SPDX-License-Identifier: BSL-1.0
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
///
/// Conventions: each value stands for one fit of FittingHelper.
/// Failure: MeasuredProfileCalculator::leastSquarePointOfComparisonProfile throws for any other.
/// Cost: see FittingHelper.
/// @snippet snippets/Profiles.cpp FittingHelper
struct FittingMethod {
  /// Tells which fit it is.
  enum Method : std::int32_t {
    CircleLegacy = 0,               ///< damped Gauss-Newton on squared distances
    CircleKasa = 1,                 ///< algebraic least squares
    CircleLandau = 2,               ///< the same circle in closed form
    EllipseFitzgibbon = 3,          ///< direct ellipse fit, one round
    EllipseFitzgibbonIterative = 4  ///< the same, repeated without outliers
  };
};

/// A fitted circle or ellipse.
///
/// Units: metres; the rotation in radians, anticlockwise from +x.
/// Failure: none; what a fit without result writes is told by FittingHelper.
/// Cost: constant.
/// @snippet snippets/Profiles.cpp FittingHelper
struct CALCULATIONS_EXPORT FittingResult {
  FittingMethod::Method method;  ///< the fit that made it
  Point2D center;                ///< centre of the circle or ellipse
  double radius;                 ///< radius of the circle; 0 for an ellipse
  double semiAxisA;              ///< first semi-axis of the ellipse; the radius for a circle
  double semiAxisB;              ///< second semi-axis of the ellipse; the radius for a circle
  double rotation;               ///< direction of the longer semi-axis (rad); 0 for a circle

  /// All 0; the method is then CircleLegacy.
  FittingResult();
  /// No geometry yet: everything but the method is 0.
  FittingResult(FittingMethod::Method m);
  /// Makes a circle.
  FittingResult(FittingMethod::Method m, Point2D centerPoint, double r);
  /// Makes an ellipse with the semi-axes a and b.
  FittingResult(FittingMethod::Method m, Point2D centerPoint, double a, double b, double angle);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
