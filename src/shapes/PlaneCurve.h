// SPDX-License-Identifier: BSL-1.0
/// @file
/// Straights, circular arcs and clothoids in their own frame.

#ifndef CALCULATIONS_SHAPES_PLANE_CURVE_H
#define CALCULATIONS_SHAPES_PLANE_CURVE_H

#include "shapes/CurvePoint.h"

#include <cmath>
#include <cstdint>

namespace Ruv {

struct CForwardDistance;

/// No clothoid of an alignment turns more than some sixteen full circles (rad); the time of an
/// evaluation grows with the turning.
constexpr double kLargestCurveTurning = 100.0;

/// A curve that starts at the origin in direction +y and whose curvature changes linearly:
/// curvature(l) = k0 + (k1 - k0) l / L, heading(l) = k0 l + (k1 - k0) l^2 / (2 L).
///
/// The linear law covers radii of opposite sign and nearly equal radii, for which no piece of one
/// clothoid of a given parameter can be told. Positions are exact to 1e-11 m for elements of
/// several kilometres, whatever the radius.
///
/// A curve may drift: its places are then those of the linear law plus drift * l, while headings
/// and curvatures stay those of the law. So a curve meets an end point that it misses by a
/// printing error, and keeps its azimuths. Feet are counted square to those azimuths, hence the
/// foot of a point laid off square to the curve is the place it was laid off from.
/// Source: Bertolazzi and Frego, G1 fitting with clothoids (2015), for the three evaluations.
class CPlaneCurve {
 public:
  /// Constructs a curve that is not defined.
  CPlaneCurve() = default;

  static CPlaneCurve straight(double length);
  /// @param radius not zero
  static CPlaneCurve arc(double radius, double length);
  /// A radius up to kZeroLength stands for an infinite one. Equal radii give a straight or an arc,
  /// which may go round more than once, as a clothoid of nearly equal radii does.
  static CPlaneCurve clothoid(double radiusStart, double radiusEnd, double length);
  /// The same curve with a drift: right of the start direction and along it, in metres for each
  /// metre of the curve.
  CPlaneCurve drifting(const Point2D& drift) const;

  double length() const { return m_length; }
  const Point2D& drift() const { return m_drift; }

  /// False for a curve that cannot be evaluated: an arc of radius 0 or of more than a full circle,
  /// a clothoid that would turn more than kLargestCurveTurning at its sharper curvature, or data
  /// that are not finite. A negative length is defined and runs backwards.
  bool isDefined() const { return m_isDefined; }

  CCurvePoint at(double l) const;
  /// Signed radius, that of an arc as it was given; 0 where there is no curvature.
  double radiusAt(double l) const;
  /// at(length()), computed once.
  const CCurvePoint& end() const { return m_end; }

  /// Nearest foot of p, the first of equally near ones. An arc or clothoid has a foot only on the
  /// near side of its centre of curvature. An end that is missed by no more than kFootTolerance is
  /// reported before a foot that is farther away. Constant time but for clothoids of several turns.
  CCurveFoot footOf(const Point2D& p) const;

 private:
  enum class Kind : std::uint8_t {
    Straight,
    Arc,
    Spiral,  // a clothoid near enough to its origin for the series
    Clothoid
  };

  /// The curve as a piece of the unit-free spiral: the frame in which the series is evaluated.
  struct SpiralFrame {
    double startLength = 0.0;  // from the spiral's origin, negative before it
    Point2D startPoint;
    CDirection toCurve;  // turns the spiral's frame into the curve's
  };

  static CPlaneCurve windings(double radius, double length);
  void prepare();
  bool turnsTooMuch() const;
  bool placeOnSpiral();
  double curvatureAt(double l) const;
  double placeOfInflection() const;
  double headingAt(double l) const;
  void carryOff(Point2D& position, double l) const {
    if (m_drifts) position = position + m_drift * l;
  }
  /// +1 when the curvature grows to the right.
  double spiralSide() const { return std::copysign(1.0, m_curvatureChange); }
  Point2D spiralPoint(double lengthFromOrigin) const;
  CCurvePoint pointOnSpiral(double l) const;
  Point2D positionByQuadrature(double l) const;

  bool isSearchedAtOnce() const;
  CCurveFoot footBySearch(const Point2D& p) const;
  template <class PointAt>
  CCurveFoot footAmong(const PointAt& pointAt, const Point2D& p) const;
  CCurveFoot unlessAnEndIsNearer(const CCurveFoot& found, const Point2D& p,
                                 const CForwardDistance& start, const CForwardDistance& end) const;

  // In the order in which questions ask for them: see CHoralSegment.
  Kind m_kind = Kind::Straight;
  bool m_isDefined = false;
  bool m_drifts = false;
  bool m_isSearchedAtOnce = false;  // has no inflection and turns little
  double m_length = 0.0;
  double m_curvatureStart = 0.0;
  double m_curvatureChange = 0.0;  // over the whole length
  double m_shape = 0.0;            // the radius of an arc; 1 / (2 A^2) of a spiral
  SpiralFrame m_spiral;
  CCurvePoint m_end;
  Point2D m_drift;
};

}  // namespace Ruv

#endif
