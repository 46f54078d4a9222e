// SPDX-License-Identifier: BSL-1.0
/// @file
/// Transition curves evaluated in their own frame.

#ifndef CALCULATIONS_TRANSITION_CURVES_H
#define CALCULATIONS_TRANSITION_CURVES_H

#include <Calculations/Export.h>

#include <string>

namespace Ruv {

/// A curve whose curvature grows from zero at its origin.
///
/// Conventions: metres and radians. In every operation l is the arc length from the origin, and the
///   curve reaches the radius R after the length L. Results are written to out as
///   magnitudes: the caller applies the signs of l and of the curve's side.
/// Failure: operations return false; what out then holds is told by the derived class. An operation
///   that a derived class leaves out gives 0 and false.
/// Cost: that of the derived class.
/// @snippet snippets/Axes.cpp CClothoidCurve
class CALCULATIONS_EXPORT CTransitionCurve {
 public:
  CTransitionCurve();
  CTransitionCurve(const CTransitionCurve&);
  CTransitionCurve& operator=(const CTransitionCurve&);
  virtual ~CTransitionCurve();

  /// Reciprocal of the radius at l.
  virtual bool curvature(double l, double radius, double length, double& out) const;
  /// Change of direction since the origin (rad).
  virtual bool tangentAngle(double l, double radius, double length, double& out) const;
  /// Coordinate to the side of the tangent at the origin.
  virtual bool localY(double l, double radius, double length, double& out) const;
  /// Coordinate along the tangent at the origin.
  virtual bool localX(double l, double radius, double length, double& out) const;
  /// The curve kind's name.
  virtual const std::string& name() const = 0;
  /// Index of the last series term: 12 unless a derived class says otherwise.
  virtual int numberOfTerms() const;
};

/// The clothoid: curvature l / A^2 with A^2 = R L.
///
/// Conventions: those of CTransitionCurve.
/// Failure: the coordinates are power series of numberOfTerms() + 1 terms (at most 86, where the
///   factorials leave the range of double). They return true when the terms that do not exceed
///   their predecessor outnumber those that do. That is a sign of convergence, not of accuracy: at
///   a tangent angle of 5 rad it still holds while x is wrong by 4e-8 of the length unit. A
///   negative number of terms gives 0 and false.
/// Cost: linear in the number of terms.
/// Source: power series of the Fresnel integrals, Abramowitz and Stegun 7.3.11 and 7.3.13.
/// @snippet snippets/Axes.cpp CClothoidCurve
class CALCULATIONS_EXPORT CClothoidCurve : public CTransitionCurve {
 public:
  CClothoidCurve();
  CClothoidCurve(const CClothoidCurve&);
  CClothoidCurve& operator=(const CClothoidCurve&);
  ~CClothoidCurve() override;

  /// |l / (R L)|. A product R L of zero gives 0 and false.
  bool curvature(double l, double radius, double length, double& out) const override;
  /// l^2 / |2 R L|. A product R L of zero gives 0 and true.
  bool tangentAngle(double l, double radius, double length, double& out) const override;
  /// A product R L of zero gives 0 and true.
  bool localY(double l, double radius, double length, double& out) const override;
  /// A product R L of zero gives 0 and true.
  bool localX(double l, double radius, double length, double& out) const override;
  /// "clothoid"
  const std::string& name() const override;
};

}  // namespace Ruv

#endif
