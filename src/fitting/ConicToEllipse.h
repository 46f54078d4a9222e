// SPDX-License-Identifier: BSL-1.0
/// @file
/// Centre, axes and direction of an ellipse given by its equation.

#ifndef CALCULATIONS_FITTING_CONIC_TO_ELLIPSE_H
#define CALCULATIONS_FITTING_CONIC_TO_ELLIPSE_H

#include "fitting/Conic.h"

#include <Calculations/Points.h>

namespace Ruv {
namespace Calculations {

struct Ellipse {
  Point2D center;
  double semiAxisA = 0.0;  ///< the larger one
  double semiAxisB = 0.0;
  double rotation = 0.0;  ///< direction of the longer semi-axis, anticlockwise from +x
};

/// @param conic an ellipse (4 xx yy > xy^2) with xx + yy < 0. This sign of the equation puts the
///   rotation into (-pi/2, pi/2]; with the other sign the same steps turn it by a half turn
///   for some ellipses. An equation without real points gives negative semi-axes.
Ellipse ellipseOf(const Conic& conic);

}  // namespace Calculations
}  // namespace Ruv

#endif
