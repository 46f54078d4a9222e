// SPDX-License-Identifier: BSL-1.0
/// @file
/// Least-squares circles and ellipses through measured points.

#ifndef CALCULATIONS_FITTING_HELPER_H
#define CALCULATIONS_FITTING_HELPER_H

#include <Calculations/Export.h>
#include <Calculations/FittingResult.h>
#include <Calculations/Points.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// Fits circles and ellipses to points of a plane, for example of a measured profile.
///
/// Units: metres and radians. The result's method names the fit that made it.
/// Which circle: Kasa and Landau give the same one, that of the least sum of
///   (|p - centre|^2 - r^2)^2 over the points p; neither needs a start value. Landau is the
///   fastest; Kasa keeps every digit on short arcs too. The legacy fit iterates to the same minimum
///   from the origin and is kept because older results were computed with it.
/// Accuracy: points of a circle, or of an ellipse no flatter than 1 : 20, give it back within 1e-10
///   of its size, also 100 km from the origin; arcs lose digits the shorter they are. The legacy
///   fit stops within 1e-5 m of the minimum and is meant for points near the origin.
/// Failure: throws nothing but std::bad_alloc. Input that determines nothing gives not-a-number or
///   infinite values (circles) or zeros (ellipses), as each fit says. Coordinates that are not
///   finite do the same, and coordinates beyond about 1e50 m may.
/// Cost: linear in the number of points, with a fixed amount of memory; the legacy fit passes over
///   them some 70 times, the ellipse a few times a round.
/// @snippet snippets/Profiles.cpp FittingHelper
class CALCULATIONS_EXPORT FittingHelper {
 public:
  /// Circle by damped Gauss-Newton steps on squared distances.
  ///
  /// Starts with the centre (0, 0) and the radius 1, applies a quarter of each step, and stops when
  /// the full step is below 1e-5 in all three unknowns: about 70 passes over the points. The
  /// coordinates are used as they are; the further the points lie from the origin, in relation to
  /// their radius, the less the result can be relied upon. From some 500 radii on, 2000 for points
  /// all round, it returns arbitrary circles: always beyond 10 km from the origin for a tunnel.
  /// @return after 1000 steps the circle reached by then, without a mark. The radius may come out
  ///   negative, as it mostly does away from the origin; its magnitude counts. Fewer than 12
  ///   points: their centroid with the radius 0 (not-a-number for no points). A coordinate that is
  ///   not finite: not-a-number.
  static FittingResult circleFitRuvLegacy(const std::vector<Point2D>& points);

  /// Circle by the linear least squares of Kasa (IEEE Trans. Instrum. Meas. 25, 1976), solved
  /// with an orthogonal decomposition.
  /// @return not-a-number for fewer than three distinct points, for points on a straight line as
  ///   far as their digits tell, and for a coordinate that is not finite
  static FittingResult circleFitKasa(const std::vector<Point2D>& points);

  /// Circle in closed form from sums of powers, in one pass (Thomas and Chan, Comput. Vision Graph.
  /// Image Process. 45, 1989).
  /// @return not-a-number or infinite values for fewer than three distinct points, for points on
  ///   a straight line, and for a coordinate that is not finite. An arc counts as a line when it
  ///   rises less than about 5e-8 of its chord, or 2e-5 for a million points.
  static FittingResult circleFitLandau(const std::vector<Point2D>& points);

  /// Direct ellipse fit, repeated without outlying points.
  ///
  /// Each round fits the points in use (Fitzgibbon, Pilu and Fisher, IEEE Trans. Pattern Anal.
  /// Mach. Intell. 21, 1999, as partitioned by Halir and Flusser, WSCG 1998), then rejects every
  /// point in use whose algebraic distance exceeds three times the mean over all points, rejected
  /// ones included. Distances that are rounding noise reject nothing. A rejected point stays out.
  /// The rounds end when nothing was rejected or fewer than four points are left.
  ///
  /// @param      points of the plane
  /// @param[out] used   one flag per point: false when it was rejected. The last round may reject
  ///   points that took part in the returned ellipse; with one round they always did.
  /// @param      rounds greatest number of rounds; none are made for 0 or less
  /// @return method EllipseFitzgibbon for rounds < 2, else EllipseFitzgibbonIterative; the
  ///   semi-axes with a >= b; as rotation the direction of a, anticlockwise from +x, in
  ///   (-pi/2, pi/2] (of no meaning for a circle). Zeros when the first round finds no ellipse;
  ///   a later round that finds none leaves the ellipse of the round before. None is found for
  ///   fewer than five points in use, for points on a straight line, on two parallel ones or on a
  ///   parabola, and for coordinates that are not finite; five or more points in fewer than five
  ///   places give any ellipse or none.
  static FittingResult ellipseFitFitzgibbon(const std::vector<Point2D>& points,
                                            std::vector<bool>& used, int rounds);

 private:
  /// One direct fit of the points whose flag is true. The rounds of ellipseFitFitzgibbon do the
  /// same without keeping the distances, which at a million points costs more than the fit; their
  /// tests measure them by this one.
  /// @param[in]     used      one flag per point
  /// @param[in,out] result    keeps its method; unchanged on failure
  /// @param[out]    residuals algebraic distance of every point from the conic, as a magnitude, up
  ///   to a factor common to all; unchanged on failure
  /// @return false when no ellipse results
  static bool ellipseFitFitzgibbonInternal(const std::vector<Point2D>& points,
                                           std::vector<bool> used, FittingResult& result,
                                           std::vector<double>& residuals);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
