// SPDX-License-Identifier: BSL-1.0
/// @file
/// Angles, units, rotations and station transformations shared by the whole library.

#ifndef CALCULATIONS_UTILITIES_H
#define CALCULATIONS_UTILITIES_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// Static helpers that fix the library's conventions.
///
/// Conventions: metres; angles are radians. Azimuths run clockwise from north: azimuth = atan2(d
///   east, d north). Vertical angles of measurements are zenith angles; elevations are measured up
///   from the horizontal. A longitudinal slope in percent is 100 tan(angle), positive rising
///   forward. A transverse slope in percent is positive clockwise looking forward (right side
///   lower), its angle positive anticlockwise; hence the sign change in its two conversions.
///
/// Failure: no function checks its input: not-a-number stays not-a-number.
/// Cost: constant, but averageCordinates is linear.
/// @snippet snippets/Values.cpp Utilities
class CALCULATIONS_EXPORT Utilities {
 public:
  /// @name Angle normalisation
  /// Whole turns are added or removed one at a time, so results are those of repeated addition,
  /// not of a remainder. Angles from 1e6 rad on lose their turns by a remainder first; an
  /// infinite angle becomes not-a-number.
  /// @{

  /// Brings an angle into [0, 2 pi). -0.0 stays -0.0.
  static void angleAsZeroToTwoPi(double& angle);
  /// Brings an angle into [-pi, pi).
  static void angleAsMinusPiToPi(double& angle);
  /// The same as a function.
  static double getAngleAsZeroToTwoPi(double angle);
  /// The same as a function.
  static double getangleAsMinusPiToPi(double angle);
  /// @}

  /// @name Unit conversions
  /// @{

  /// Converts from the unit named first to the one named second, with the signs told above.
  static double gon2rad(double gon);
  static double rad2gon(double rad);
  static double deg2rad(double deg);
  static double rad2deg(double rad);
  static double anglePercentToRad(double percent);
  static double longSlopePercentToRad(double percent);
  static double angleRadToPercent(double rad);
  static double longSlopeRadToPercent(double rad);
  static double transSlopePercentClockwiseToRadAntiClockwise(double percent);
  static double transSlopeRadAntiClockwiseToPercentClockwise(double rad);
  /// @}

  /// Raises value to lowest, then lowers it to highest: with lowest > highest the result is
  /// highest. Not-a-number stays.
  static void forceInRange(double& value, double lowest, double highest);
  /// The same for integers.
  static void forceInRange(int& value, int lowest, int highest);

  /// @name Distances and angles between points
  /// @{

  /// Distance in space.
  static double distance3dBetween(const ENHPoint& a, const ENHPoint& b);
  /// Height of b above a.
  static double heightDiffBetween(const ENHPoint& a, const ENHPoint& b);
  /// Angle at the vertex between the rays to p and q, in [0, pi]; not-a-number when p or q is
  /// the vertex.
  static double angle3dBetween(const ENHPoint& vertex, const ENHPoint& p, const ENHPoint& q);
  /// Angle between two vectors, in [0, pi]; not-a-number when one of them is zero.
  static double angle3dBetween(const ENHPoint& a, const ENHPoint& b);
  /// Azimuth from a to b in [0, 2 pi); 0 for coincident points. Unlike ENHPoint::azimuthAngle it
  /// has no smallest length.
  static double horAngleBetween(const ENHPoint& a, const ENHPoint& b);
  /// Component-wise mean; not-a-number components for an empty list.
  static ENHPoint averageCordinates(const std::vector<ENHPoint>& points);
  /// @}

  /// @name Rotations
  /// @{

  /// A positive angle turns anticlockwise seen from the tip of the named axis.
  static ENHPoint rotateAroundEastXaxis(const ENHPoint& p, double angle);
  static ENHPoint rotateAroundNorthYaxis(const ENHPoint& p, double angle);
  static ENHPoint rotateAroundHeightZaxis(const ENHPoint& p, double angle);
  /// @}

  /// @name Polar measurements and station transformations
  /// @{

  /// East, north and height of the target relative to the instrument, its zero direction taken
  /// as north.
  static ENHPoint convertToLocalCoordinates(const PolarPoint& measurement);
  /// The measurement from the origin to v; both angles in [0, 2 pi).
  static PolarPoint convertToPolarMeasurement(const ENHPoint& v);
  /// The measurement from one point to another, the zero direction being north.
  static PolarPoint convertToPolarMeasurement(const ENHPoint& from, const ENHPoint& to);
  /// Turns local coordinates clockwise by the orientation, scales all three components and
  /// shifts them to the origin.
  static ENHPoint transformLocalToGlobal(const ENHPoint& local, const ENHPoint& origin,
                                         double orientation, double scale);
  /// The same for a measurement in place of its local coordinates.
  static ENHPoint transformLocalToGlobal(const PolarPoint& measurement, const ENHPoint& origin,
                                         double orientation, double scale);
  /// The inverse of transformLocalToGlobal.
  static ENHPoint transformGlobalToLocal(const ENHPoint& global, const ENHPoint& origin,
                                         double orientation, double scale);
  /// Orientation of the horizontal circle from one backsight, in [0, 2 pi): bearing + offset
  /// less the measured direction. A vertical angle above pi marks a second-face reading.
  /// @param measurement of the backsight target
  /// @param offset added to the orientation
  /// @param bearing of the backsight target
  /// @param reversed has no effect on the result: it adds a half turn twice
  static double calculateOrientationFromBacksight(const PolarPoint& measurement, double offset,
                                                  double bearing, bool reversed);
  /// @}

  /// @name Directions relative to an axis
  /// @{

  /// Turns a grid vector into components (forward, right, up) in an AxisPoint, or back. The axis
  /// direction is given by its azimuth, its longitudinal slope angle and its transverse slope
  /// (percent).
  static AxisPoint rotateENHdiffToAxisDirectionComponentsWithoutTransSlope(const ENHPoint& diff,
                                                                           double azimuth,
                                                                           double longSlope);
  static ENHPoint rotateAxisDirectionComponentsToENHdiffWithoutTransSlope(
      const AxisPoint& components, double azimuth, double longSlope);
  static AxisPoint rotateENHdiffToAxisDirectionComponents(const ENHPoint& diff, double azimuth,
                                                          double longSlope,
                                                          double transSlopePercent);
  static ENHPoint rotateAxisDirectionComponentsToENHdiff(const AxisPoint& components,
                                                         double azimuth, double longSlope,
                                                         double transSlopePercent);
  /// @}

  /// @name Guidance angles
  /// Projections of a direction (forward, right, up).
  /// @{

  /// Seen along the axis: 0 straight up, growing to the right, in [0, 2 pi).
  static double getGuidanceAngleInFrontView(const AxisPoint& direction);
  /// Seen from above: 0 straight ahead, growing to the right, in [0, 2 pi).
  static double getGuidanceAngleInTopView(const AxisPoint& direction);
  /// Seen from the side: 0 straight ahead, positive upward, in [-pi, pi).
  static double getGuidanceAngleInSideView(const AxisPoint& direction);
  /// @}

  /// @name Directions from guidance angles
  /// @{

  /// The direction of a given length from two of its projections. Angles that do not belong to one
  /// real direction give infinities or not-a-number components.
  static AxisPoint getGuidanceVectorFromFrontAndTopViewAngles(double front, double top,
                                                              double length);
  static AxisPoint getGuidanceVectorFromTopAndSideViewAngles(double top, double side,
                                                             double length);
  static AxisPoint getGuidanceVectorFromFrontAndSideViewAngles(double front, double side,
                                                               double length);
  /// @}

 private:
  static bool angleIsZero(double angle);
  static bool angleIsZeroOrMultipleOfPi(double angle);
  static bool angleIsPlusOrMinusPi(double angle);
  static bool angleIsPlusOrMinusHalfPi(double angle);
  static bool angleInThirdOrFourthQuadrant(double angle);
  static bool angleInSecondOrThirdQuadrant(double angle);
};

/// Lengths and angles of vectors handed over as consecutive doubles (east, north, height).
///
/// Conventions: those of Utilities.
/// Failure: none; a vector too short for a direction has the angle 0.
/// Cost: constant.
/// @snippet snippets/Values.cpp RawPointHelper
class CALCULATIONS_EXPORT RawPointHelper {
 public:
  /// Length of a vector of the plane.
  static double length2D(double a, double b);
  /// Length of a vector in space.
  static double length(const double* components);
  /// Azimuth in [0, 2 pi); exactly 0 when both plan components are below 1 mm in magnitude.
  static double azimuthAngle(const double* components);
  /// Angle above the horizontal in [-pi, pi); exactly 0 when the horizontal length and the
  /// height are both below 1 mm.
  static double elevationAngle(const double* components);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
