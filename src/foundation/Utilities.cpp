// SPDX-License-Identifier: BSL-1.0
// The conventions that everything else rests on: azimuths clockwise from north, zenith angles
// downwards from straight up, rotations anticlockwise as seen from the tip of their axis. Formulas
// and their order of operations are fixed, because stored results of callers are compared with what
// comes out here.

#include <Calculations/Utilities.h>

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Angles this close count as equal in the tests that choose a special case (rad). An arc of this
/// angle is 0.01 um long at 100 m.
constexpr double kAngleTolerance = 1e-10;

/// From this magnitude on whole turns are removed by a remainder before they are counted off one
/// by one: at most 159155 turns are left to count. Below it the digits are those of counting.
constexpr double kLargestCountedAngle = 1e6;

/// A plan or vertical extent below this (m) gives a vector no direction, as coordinates of a survey
/// are good to about a millimetre.
constexpr double kSmallestDirectedLength = 0.001;

/// Squared components (m2) down to minus this are rounding noise of a zero component.
constexpr double kNegativeSquareNoise = 1e-10;

double withCountableTurns(double angle) {
  return std::abs(angle) < kLargestCountedAngle ? angle : std::fmod(angle, kTwoPi);
}

double square(double v) { return v * v; }

double dot(const ENHPoint& a, const ENHPoint& b) {
  return a.east * b.east + a.north * b.north + a.height * b.height;
}

/// Parallel vectors come out an ulp beyond +-1, where acos has no value. The order of the arguments
/// lets not-a-number through. Near 0 and pi the arc cosine tells angles no finer than 1.5e-8 rad;
/// it is kept because callers have results of it.
double acosOfRoundedCosine(double cosine) {
  return std::acos(std::max(std::min(cosine, 1.0), -1.0));
}

/// The component of a square. One that is negative beyond rounding gives not-a-number, as its
/// angles contradict each other.
double rootOfSquare(double squared) {
  if (squared < 0.0 && std::abs(squared) < kNegativeSquareNoise) squared = std::abs(squared);
  return std::sqrt(squared);
}

double negatedIf(bool negative, double value) { return negative ? -value : value; }

/// The rotations work on right-handed axes: along, to the left and up. Offsets are positive to the
/// right, hence the sign.
ENHPoint asENHPoint(const AxisPoint& a) { return ENHPoint(a.stationing, -a.offset, a.height); }

AxisPoint asAxisPoint(const ENHPoint& p) { return AxisPoint(p.east, -p.north, p.height); }

/// Puts the axis direction along +east and its left side along +north. With azimuth a and slope b
/// the first rotation, by a - pi/2, takes (sin a, cos a) to (1, 0), and the second, by b, lays (cos
/// b, 0, sin b) down onto +east: a positive turn about north leads from up to east.
ENHPoint turnToAxis(const ENHPoint& diff, double azimuth, double longSlope) {
  const ENHPoint level = Utilities::rotateAroundHeightZaxis(diff, azimuth - kHalfPi);
  return Utilities::rotateAroundNorthYaxis(level, longSlope);
}

/// The inverse of turnToAxis: both rotations back, in the opposite order, as rotations about
/// different axes do not commute.
ENHPoint turnFromAxis(const ENHPoint& p, double azimuth, double longSlope) {
  const ENHPoint level = Utilities::rotateAroundNorthYaxis(p, -longSlope);
  return Utilities::rotateAroundHeightZaxis(level, -(azimuth - kHalfPi));
}

}  // namespace

void Utilities::angleAsZeroToTwoPi(double& angle) {
  angle = withCountableTurns(angle);
  while (angle < 0.0) {
    angle += kTwoPi;
  }
  // Second, because a tiny negative angle has just been rounded up to a full turn.
  while (angle >= kTwoPi) {
    angle -= kTwoPi;
  }
}

void Utilities::angleAsMinusPiToPi(double& angle) {
  angle = withCountableTurns(angle);
  while (angle < -kPi) {
    angle += kTwoPi;
  }
  while (angle >= kPi) {
    angle -= kTwoPi;
  }
}

double Utilities::getAngleAsZeroToTwoPi(double angle) {
  angleAsZeroToTwoPi(angle);
  return angle;
}

double Utilities::getangleAsMinusPiToPi(double angle) {
  angleAsMinusPiToPi(angle);
  return angle;
}

double Utilities::gon2rad(double gon) { return (kPi / 200.0) * gon; }

double Utilities::rad2gon(double rad) { return (200.0 / kPi) * rad; }

double Utilities::deg2rad(double deg) { return (kPi / 180.0) * deg; }

double Utilities::rad2deg(double rad) { return (180.0 / kPi) * rad; }

// Slopes in percent are 100 tan of the angle. The transverse slope changes its sign on the way, as
// its percentage grows clockwise looking forward and its angle anticlockwise.
double Utilities::anglePercentToRad(double percent) { return std::atan(percent / 100.0); }

double Utilities::longSlopePercentToRad(double percent) { return anglePercentToRad(percent); }

double Utilities::angleRadToPercent(double rad) { return std::tan(rad) * 100.0; }

double Utilities::longSlopeRadToPercent(double rad) { return angleRadToPercent(rad); }

double Utilities::transSlopePercentClockwiseToRadAntiClockwise(double percent) {
  return -std::atan(percent / 100.0);
}

double Utilities::transSlopeRadAntiClockwiseToPercentClockwise(double rad) {
  return std::tan(rad) * (-100.0);
}

void Utilities::forceInRange(double& value, double lowest, double highest) {
  if (value < lowest) value = lowest;
  if (value > highest) value = highest;
}

void Utilities::forceInRange(int& value, int lowest, int highest) {
  if (value < lowest) value = lowest;
  if (value > highest) value = highest;
}

double Utilities::distance3dBetween(const ENHPoint& a, const ENHPoint& b) {
  // Subtracted before it is squared: the square of a northing of 5000 km is stored in steps of
  // 0.004 m2.
  return std::sqrt(square(b.east - a.east) + square(b.north - a.north) +
                   square(b.height - a.height));
}

double Utilities::heightDiffBetween(const ENHPoint& a, const ENHPoint& b) {
  return b.height - a.height;
}

double Utilities::angle3dBetween(const ENHPoint& vertex, const ENHPoint& p, const ENHPoint& q) {
  const double lengths = distance3dBetween(p, vertex) * distance3dBetween(q, vertex);
  return acosOfRoundedCosine(dot(p - vertex, q - vertex) / lengths);
}

double Utilities::angle3dBetween(const ENHPoint& a, const ENHPoint& b) {
  const ENHPoint zero;
  const double lengths = distance3dBetween(a, zero) * distance3dBetween(b, zero);
  return acosOfRoundedCosine(dot(a, b) / lengths);
}

double Utilities::horAngleBetween(const ENHPoint& a, const ENHPoint& b) {
  return getAngleAsZeroToTwoPi(std::atan2(b.east - a.east, b.north - a.north));
}

ENHPoint Utilities::averageCordinates(const std::vector<ENHPoint>& points) {
  ENHPoint sum;
  for (const ENHPoint& p : points) {
    sum += p;
  }
  return sum / static_cast<double>(points.size());
}

// The right-handed rotations about the three axes: anticlockwise as seen from the axis's tip.

ENHPoint Utilities::rotateAroundEastXaxis(const ENHPoint& p, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return ENHPoint(p.east, p.north * c - p.height * s, p.height * c + p.north * s);
}

ENHPoint Utilities::rotateAroundNorthYaxis(const ENHPoint& p, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return ENHPoint(p.east * c + p.height * s, p.north, p.height * c - p.east * s);
}

ENHPoint Utilities::rotateAroundHeightZaxis(const ENHPoint& p, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return ENHPoint(p.east * c - p.north * s, p.east * s + p.north * c, p.height);
}

// Horizontal angles count clockwise from north, vertical angles from the zenith. Angles beyond a
// half turn, as read in the second face, come out right by themselves. With the horizontal angle h,
// the vertical angle v and the slope distance d: east = d sin v sin h, north = d sin v cos h,
// height = d cos v.
ENHPoint Utilities::convertToLocalCoordinates(const PolarPoint& measurement) {
  const double d = measurement.slopeDistance;
  const double horizontal = d * std::sin(measurement.verticalAngle);
  return ENHPoint(horizontal * std::sin(measurement.horizontalAngle),
                  horizontal * std::cos(measurement.horizontalAngle),
                  d * std::cos(measurement.verticalAngle));
}

PolarPoint Utilities::convertToPolarMeasurement(const ENHPoint& v) {
  return PolarPoint(getAngleAsZeroToTwoPi(std::atan2(v.east, v.north)),
                    getAngleAsZeroToTwoPi(std::atan2(v.lengthOfEastNorthProjection(), v.height)),
                    v.length());
}

PolarPoint Utilities::convertToPolarMeasurement(const ENHPoint& from, const ENHPoint& to) {
  return convertToPolarMeasurement(to - from);
}

// E = E0 + k (e cos o + n sin o), N = N0 + k (n cos o - e sin o) and H = H0 + k h with the
// orientation o and the scale k. The local north, (0, 1), so has the azimuth o.
ENHPoint Utilities::transformLocalToGlobal(const ENHPoint& local, const ENHPoint& origin,
                                           double orientation, double scale) {
  const double c = std::cos(orientation);
  const double s = std::sin(orientation);
  return ENHPoint((local.east * c + local.north * s) * scale + origin.east,
                  (local.north * c - local.east * s) * scale + origin.north,
                  local.height * scale + origin.height);
}

ENHPoint Utilities::transformLocalToGlobal(const PolarPoint& measurement, const ENHPoint& origin,
                                           double orientation, double scale) {
  return transformLocalToGlobal(convertToLocalCoordinates(measurement), origin, orientation, scale);
}

/// The inverse: e = (dE cos o - dN sin o) / k and n = (dE sin o + dN cos o) / k, where dE and dN
/// count from the origin. The signs differ in the code because the angle there is -o.
ENHPoint Utilities::transformGlobalToLocal(const ENHPoint& global, const ENHPoint& origin,
                                           double orientation, double scale) {
  const double c = std::cos(-orientation);
  const double s = std::sin(-orientation);
  const double k = 1.0 / scale;
  const ENHPoint diff = global - origin;
  return ENHPoint((c * diff.east + s * diff.north) * k, (c * diff.north - s * diff.east) * k,
                  diff.height * k);
}

double Utilities::calculateOrientationFromBacksight(const PolarPoint& measurement, double offset,
                                                    double bearing, bool reversed) {
  const bool isSecondFace = measurement.verticalAngle > kPi;
  // In the second face the circle reads half a turn more.
  const double direction = measurement.horizontalAngle + (isSecondFace ? kPi : 0.0);
  const double target = bearing + (reversed ? kPi : 0.0);
  double orientation = target - direction + offset;
  // A full turn in all: callers rely on the signature and on the result without the flag.
  if (reversed) orientation += kPi;
  return getAngleAsZeroToTwoPi(orientation);
}

AxisPoint Utilities::rotateENHdiffToAxisDirectionComponentsWithoutTransSlope(const ENHPoint& diff,
                                                                             double azimuth,
                                                                             double longSlope) {
  return asAxisPoint(turnToAxis(diff, azimuth, longSlope));
}

ENHPoint Utilities::rotateAxisDirectionComponentsToENHdiffWithoutTransSlope(
    const AxisPoint& components, double azimuth, double longSlope) {
  return turnFromAxis(asENHPoint(components), azimuth, longSlope);
}

AxisPoint Utilities::rotateENHdiffToAxisDirectionComponents(const ENHPoint& diff, double azimuth,
                                                            double longSlope,
                                                            double transSlopePercent) {
  // After turnToAxis the axis lies along +east, so a turn about east is the roll of the section.
  const double roll = transSlopePercentClockwiseToRadAntiClockwise(transSlopePercent);
  return asAxisPoint(rotateAroundEastXaxis(turnToAxis(diff, azimuth, longSlope), roll));
}

ENHPoint Utilities::rotateAxisDirectionComponentsToENHdiff(const AxisPoint& components,
                                                           double azimuth, double longSlope,
                                                           double transSlopePercent) {
  const double roll = transSlopePercentClockwiseToRadAntiClockwise(-transSlopePercent);
  return turnFromAxis(rotateAroundEastXaxis(asENHPoint(components), roll), azimuth, longSlope);
}

double Utilities::getGuidanceAngleInFrontView(const AxisPoint& direction) {
  return getAngleAsZeroToTwoPi(std::atan2(direction.offset, direction.height));
}

double Utilities::getGuidanceAngleInTopView(const AxisPoint& direction) {
  return getAngleAsZeroToTwoPi(std::atan2(direction.offset, direction.stationing));
}

double Utilities::getGuidanceAngleInSideView(const AxisPoint& direction) {
  return getangleAsMinusPiToPi(std::atan2(direction.height, direction.stationing));
}

// A direction (forward, right, up) of length L shows itself in three views by
//
//   tan front = right / up,  tan top = right / forward,  tan side = up / forward.
//
// Two of the angles and forward^2 + right^2 + up^2 = L^2 give the squares of the components; the
// quadrants of the angles give their signs.
//
//   front and top    right^2   = L^2 / (1 / tan^2 front + 1 + 1 / tan^2 top)
//   top and side     forward^2 = L^2 / (tan^2 top + 1 + tan^2 side)
//   front and side   up^2      = L^2 / (1 / tan^2 side + tan^2 front + 1)
//
// Straight ahead, straight back and level to a side a formula that divides by a tangent divides
// zero by zero, hence the special cases. The middle one has none, as it divides by no tangent.
AxisPoint Utilities::getGuidanceVectorFromFrontAndTopViewAngles(double front, double top,
                                                                double length) {
  if (angleIsZero(front) && angleIsZero(top)) return AxisPoint(length, 0.0, 0.0);
  if (angleIsZero(front) && angleIsPlusOrMinusPi(top)) return AxisPoint(-length, 0.0, 0.0);
  const double all = square(length);
  const double tanFront2 = square(std::tan(front));
  const double tanTop2 = square(std::tan(top));
  const double right2 = all / (1.0 / tanFront2 + 1.0 + 1.0 / tanTop2);
  const double forward2 = all - right2 - right2 / tanFront2;
  const double up2 = all - forward2 - right2;
  return AxisPoint(negatedIf(angleInThirdOrFourthQuadrant(top), rootOfSquare(forward2)),
                   negatedIf(angleInSecondOrThirdQuadrant(top), rootOfSquare(right2)),
                   negatedIf(angleInThirdOrFourthQuadrant(front), rootOfSquare(up2)));
}

AxisPoint Utilities::getGuidanceVectorFromTopAndSideViewAngles(double top, double side,
                                                               double length) {
  const double all = square(length);
  const double tanSide2 = square(std::tan(side));
  const double forward2 = all / (square(std::tan(top)) + 1.0 + tanSide2);
  const double right2 = (all - forward2) - forward2 * tanSide2;
  const double up2 = (all - forward2) - right2;
  return AxisPoint(negatedIf(angleInThirdOrFourthQuadrant(top), rootOfSquare(forward2)),
                   negatedIf(angleInSecondOrThirdQuadrant(top), rootOfSquare(right2)),
                   negatedIf(angleInSecondOrThirdQuadrant(side), rootOfSquare(up2)));
}

AxisPoint Utilities::getGuidanceVectorFromFrontAndSideViewAngles(double front, double side,
                                                                 double length) {
  if (angleIsZero(front) && angleIsZero(side)) return AxisPoint(length, 0.0, 0.0);
  if (angleIsPlusOrMinusHalfPi(front) && angleIsZero(side)) {
    return AxisPoint(0.0, negatedIf(angleInSecondOrThirdQuadrant(front), length), 0.0);
  }
  const double all = square(length);
  const double tanSide2 = square(std::tan(side));
  const double up2 = all / (1.0 / tanSide2 + (square(std::tan(front)) + 1.0));
  const double right2 = (all - up2) - up2 / tanSide2;
  const double forward2 = (all - up2) - right2;
  return AxisPoint(negatedIf(angleInThirdOrFourthQuadrant(side), rootOfSquare(forward2)),
                   negatedIf(angleInSecondOrThirdQuadrant(front), rootOfSquare(right2)),
                   negatedIf(angleInThirdOrFourthQuadrant(front), rootOfSquare(up2)));
}

bool Utilities::angleIsZero(double angle) { return std::abs(angle) < kAngleTolerance; }

bool Utilities::angleIsZeroOrMultipleOfPi(double angle) {
  // The angle is not normalised first: 2 pi and 3 pi do not count, whatever the name says. The next
  // two normalise, so 3 pi counts there.
  return angleIsZero(angle) || std::abs(std::abs(angle) - kPi) < kAngleTolerance;
}

bool Utilities::angleIsPlusOrMinusPi(double angle) {
  return std::abs(std::abs(getangleAsMinusPiToPi(angle)) - kPi) < kAngleTolerance;
}

bool Utilities::angleIsPlusOrMinusHalfPi(double angle) {
  return std::abs(std::abs(getangleAsMinusPiToPi(angle)) - kHalfPi) < kAngleTolerance;
}

// The two quadrant tests count quadrants in their own way: what they test is the sign of the
// cosine and of the sine.

bool Utilities::angleInThirdOrFourthQuadrant(double angle) {
  return std::abs(getangleAsMinusPiToPi(angle)) > kHalfPi;
}

bool Utilities::angleInSecondOrThirdQuadrant(double angle) {
  return getAngleAsZeroToTwoPi(angle) > kPi;
}

double RawPointHelper::length2D(double a, double b) { return std::sqrt(a * a + b * b); }

double RawPointHelper::length(const double* components) {
  return std::sqrt(components[0] * components[0] + components[1] * components[1] +
                   components[2] * components[2]);
}

double RawPointHelper::azimuthAngle(const double* components) {
  if (std::abs(components[0]) < kSmallestDirectedLength &&
      std::abs(components[1]) < kSmallestDirectedLength) {
    return 0.0;
  }
  return Utilities::getAngleAsZeroToTwoPi(std::atan2(components[0], components[1]));
}

double RawPointHelper::elevationAngle(const double* components) {
  const double horizontal = length2D(components[0], components[1]);
  if (std::abs(horizontal) < kSmallestDirectedLength &&
      std::abs(components[2]) < kSmallestDirectedLength) {
    return 0.0;
  }
  return Utilities::getangleAsMinusPiToPi(kHalfPi - std::atan2(horizontal, components[2]));
}

}  // namespace Calculations
}  // namespace Ruv
