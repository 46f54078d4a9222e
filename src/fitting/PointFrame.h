// SPDX-License-Identifier: BSL-1.0
/// @file
/// Local coordinates in which a fit is well conditioned.

#ifndef CALCULATIONS_FITTING_POINT_FRAME_H
#define CALCULATIONS_FITTING_POINT_FRAME_H

#include "fitting/PointSubset.h"

#include <Calculations/Points.h>

#include <cstddef>

namespace Ruv {
namespace Calculations {

/// Coordinates with the origin in the centroid of the points and a root mean square distance
/// between 1 and 2.
///
/// Powers of coordinates of 100 km would leave no digits for a radius of 5 m. The fits commute
/// with shifts and scales, so their results do not depend on the frame but for rounding.
struct PointFrame {
  std::size_t count = 0;  ///< of the points
  Point2D origin;
  double unit = 1.0;  ///< a power of two, so that scaling is free of rounding

  Point2D reduced(const Point2D& p) const { return (p - origin) * (1.0 / unit); }

  Point2D restored(const Point2D& p) const { return origin + p * unit; }
};

/// The unit is 1 for coincident points and for none. Coordinates that are not finite give an origin
/// that is not.
PointFrame frameOf(const PointSubset& points);

/// What the rounding of the points' own coordinates amounts to in units of the frame, with a margin
/// of four: nothing smaller can be told from the points.
double coordinateNoise(const PointFrame& frame);

/// Whether points with these second moments about their centroid (in any unit) lie on a straight
/// line as far as sums can tell. Always for moments that are not finite.
/// @param roundings units in the last place that the moments may be off: the number of points,
///   times the factor by which the moments are smaller than the sums they were taken from
bool areCollinear(double xx, double xy, double yy, double roundings);

}  // namespace Calculations
}  // namespace Ruv

#endif
