// SPDX-License-Identifier: BSL-1.0
/// @file
/// Point and vector value types.
///
/// Plain values, two or three doubles in the order listed, nothing else, copied freely. Lengths are
/// metres, angles radians. Every default constructor gives zeros.

#ifndef CALCULATIONS_POINTS_H
#define CALCULATIONS_POINTS_H

#include <Calculations/Export.h>

#include <cmath>
#include <limits>

namespace Ruv {
namespace Calculations {

/// A point or vector of a plane.
///
/// Conventions: metres; in a profile plane x is to the right and y up.
/// Failure: none; dividing by zero gives infinities or not-a-number.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
struct Point2D {
  double x = 0.0;  ///< to the right, or as told where it is returned
  double y = 0.0;  ///< up

  Point2D() = default;
  /// Takes its coordinates.
  Point2D(double xValue, double yValue) : x(xValue), y(yValue) {}

  /// @name Arithmetic
  /// @{

  /// All of them work component by component.
  Point2D operator-(const Point2D& q) const { return Point2D(x - q.x, y - q.y); }
  Point2D operator+(const Point2D& q) const { return Point2D(x + q.x, y + q.y); }
  Point2D operator*(double s) const { return Point2D(x * s, y * s); }
  Point2D operator/(double s) const { return Point2D(x / s, y / s); }
  /// @}

  /// Length of the vector.
  double length() const { return std::sqrt(x * x + y * y); }
};

class ENHPoint;
class XYZPoint;

/// Names and stores the three components of the point type T. Specialised for each type that
/// derives from PointBase, so that the components are public members with their own names.
///
/// Conventions: those of T.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
template <class T>
struct PointComponents;

/// The components of an ENHPoint.
///
/// Conventions: those of ENHPoint.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
template <>
struct PointComponents<ENHPoint> {
  double east;    ///< coordinate to the east
  double north;   ///< coordinate to the north
  double height;  ///< coordinate upwards

 protected:
  /// @name For PointBase
  /// @{

  /// The components are east, north and height, in this order.
  PointComponents(double c0, double c1, double c2) : east(c0), north(c1), height(c2) {}
  double component0() const { return east; }
  double component1() const { return north; }
  double component2() const { return height; }
  /// @}
};

/// The components of an XYZPoint.
///
/// Conventions: those of XYZPoint.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
template <>
struct PointComponents<XYZPoint> {
  double x;  ///< first coordinate
  double y;  ///< second coordinate
  double z;  ///< third coordinate

 protected:
  /// @name For PointBase
  /// @{

  /// The components are x, y and z, in this order.
  PointComponents(double c0, double c1, double c2) : x(c0), y(c1), z(c2) {}
  double component0() const { return x; }
  double component1() const { return y; }
  double component2() const { return z; }
  /// @}
};

/// Vector arithmetic of the three-component types. T is the deriving type itself.
///
/// Conventions: those of T.
/// Failure: none; dividing by zero gives infinities or not-a-number.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
template <class T>
class PointBase : public PointComponents<T> {
 public:
  PointBase() : PointComponents<T>(0.0, 0.0, 0.0) {}
  /// Takes the components in the order of T.
  PointBase(double c0, double c1, double c2) : PointComponents<T>(c0, c1, c2) {}

  /// The sum of two.
  T operator+(const T& q) const { return T(c0() + q.c0(), c1() + q.c1(), c2() + q.c2()); }
  /// The difference of two.
  T operator-(const T& q) const { return T(c0() - q.c0(), c1() - q.c1(), c2() - q.c2()); }
  /// A multiple of it.
  T operator*(double s) const { return T(c0() * s, c1() * s, c2() * s); }
  /// Divides each component.
  T operator/(double s) const { return T(c0() / s, c1() / s, c2() / s); }
  /// The opposite vector.
  T operator-() const { return T(-c0(), -c1(), -c2()); }

  /// Adds in place.
  T& operator+=(const T& q) { return assign(*this + q); }
  /// Subtracts in place.
  T& operator-=(const T& q) { return assign(*this - q); }
  /// Multiplies in place.
  T& operator*=(double s) { return assign(*this * s); }
  /// Divides in place.
  T& operator/=(double s) { return assign(*this / s); }

  /// True only if all three components are exactly equal; there is no tolerance.
  bool operator==(const T& q) const { return c0() == q.c0() && c1() == q.c1() && c2() == q.c2(); }
  /// True if any component differs.
  bool operator!=(const T& q) const { return !(*this == q); }

  /// Length of the vector in space.
  double length() const { return std::sqrt(c0() * c0() + c1() * c1() + c2() * c2()); }

  /// The marker of a missing point: all components positive infinity.
  static T infinity() {
    const double inf = std::numeric_limits<double>::infinity();
    return T(inf, inf, inf);
  }

 private:
  double c0() const { return this->component0(); }
  double c1() const { return this->component1(); }
  double c2() const { return this->component2(); }

  T& assign(const T& value) {
    T& self = static_cast<T&>(*this);
    self = value;
    return self;
  }
};

/// A global position, or the difference of two positions.
///
/// Units: metres and radians.
/// Failure: none; a vector too short for a direction has the angle 0.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
class CALCULATIONS_EXPORT ENHPoint : public PointBase<ENHPoint> {
 public:
  ENHPoint() = default;
  // Both sides of a comparison are then of one type. C++20 also reads it from right to left and
  // would find it ambiguous.
  using PointBase<ENHPoint>::operator==;
  /// Takes its coordinates.
  ENHPoint(double eastValue, double northValue, double heightValue)
      : PointBase<ENHPoint>(eastValue, northValue, heightValue) {}

  /// Length of the vector's projection on the horizontal plane.
  double lengthOfEastNorthProjection() const;

  /// Azimuth of the vector, clockwise from north, in [0, 2 pi). Exactly 0 when the east and north
  /// components are both below 1 mm in magnitude: such a vector has no direction in plan.
  double azimuthAngle() const;

  /// Angle of the vector above the horizontal plane, in [-pi, pi). Exactly 0 for vectors below
  /// 1 mm horizontally and vertically.
  double elevationAngle() const;
};

/// A point in a local Cartesian system.
///
/// Units: metres.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Values.cpp Points
class XYZPoint : public PointBase<XYZPoint> {
 public:
  XYZPoint() = default;
  using PointBase<XYZPoint>::operator==;  // as for ENHPoint
  /// Takes its coordinates.
  XYZPoint(double xValue, double yValue, double zValue)
      : PointBase<XYZPoint>(xValue, yValue, zValue) {}
};

/// A position relative to an axis, or a direction as (forward, right, up) in the same slots.
///
/// Conventions: metres; pictures in docs/conventions.md.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Axes.cpp AxisCalculator
class AxisPoint {
 public:
  double stationing = 0.0;  ///< along the axis
  double offset = 0.0;      ///< horizontal, positive to the right looking forward
  double height = 0.0;      ///< above the axis

  AxisPoint() = default;
  /// Takes the values in the order of the members.
  AxisPoint(double stationingValue, double offsetValue, double heightValue)
      : stationing(stationingValue), offset(offsetValue), height(heightValue) {}
};

/// A total-station measurement.
///
/// Units: metres and radians.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Values.cpp Utilities
class PolarPoint {
 public:
  double horizontalAngle = 0.0;  ///< clockwise, 0 at the instrument's zero direction
  double verticalAngle = 0.0;    ///< zenith angle: 0 straight up, pi/2 horizontal
  double slopeDistance = 0.0;    ///< in space

  PolarPoint() = default;
  /// Takes the values in the order of the members.
  PolarPoint(double horizontalAngleValue, double verticalAngleValue, double slopeDistanceValue)
      : horizontalAngle(horizontalAngleValue),
        verticalAngle(verticalAngleValue),
        slopeDistance(slopeDistanceValue) {}
};

/// Components of a point or direction relative to a guidance vector or an axis.
///
/// Units: metres.
/// Failure: none; a zero vector has no normalized one.
/// Cost: constant.
/// @snippet snippets/Guidance.cpp GuidanceCalculator
struct CALCULATIONS_EXPORT GuidanceOffsets {
  double forward = 0.0;     ///< along the vector
  double horizontal = 0.0;  ///< to the right
  double vertical = 0.0;    ///< upward

  GuidanceOffsets() = default;
  /// Takes the values in the order of the members.
  GuidanceOffsets(double forwardValue, double horizontalValue, double verticalValue)
      : forward(forwardValue), horizontal(horizontalValue), vertical(verticalValue) {}

  /// Length of the vector in space.
  double length() const;

  /// The components divided by length(). A zero vector gives not-a-number components.
  GuidanceOffsets normalized() const;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
