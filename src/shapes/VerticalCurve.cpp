// SPDX-License-Identifier: BSL-1.0
// Curves of the profile over the stationing s, developed from a point (s0, h0) with the grade g0.
//
//   a, a0          grade angles at s and s0, with tan a = g
//   k              curvature 1 / R, positive for a sag
//   d              s - s0
//
//   line           h = h0 + d g0,                length d sqrt(1 + g0^2)
//   parabola       g = g0 + k d, h = h0 + d (g0 + g) / 2,
//                  length (F(g) - F(g0)) / k with F(g) = (asinh g + g sqrt(1 + g^2)) / 2
//   circle         sin a = sin a0 + k d, h = h0 + d (sin a + sin a0) / (cos a + cos a0),
//                  length (a - a0) / k
//
// The height of the circle is R (cos a0 - cos a), written so that nothing cancels for large radii.
// Tangent lengths of roundings between the grades g1 and g2: R |g2 - g1| / 2 in plan for a
// parabola; R tan(|a2 - a1| / 2) = R |sin a2 - sin a1| / (cos a1 + cos a2) along the slope for a
// circle.

#include "shapes/VerticalCurve.h"

#include "foundation/MathConstants.h"
#include "shapes/ShapeTolerances.h"

#include <Calculations/ShapeElements.h>

#include <algorithm>
#include <cmath>

namespace Ruv {

namespace {

/// Length in space of a parabola of radius 1 from its vertex to a grade.
double unitParabolaLength(double grade) {
  return (std::asinh(grade) + grade * std::sqrt(1.0 + grade * grade)) / 2.0;
}

/// Grade at which unitParabolaLength reaches a value. The function grows at least as fast as the
/// grade, so Newton's method cannot leave its convex side.
double gradeAtUnitParabolaLength(double length) {
  constexpr int kMostSteps = 50;
  constexpr double kAccuracy = 1e-16;
  double grade = length;
  for (int step = 0; step < kMostSteps; ++step) {
    const double correction = (unitParabolaLength(grade) - length) / std::sqrt(1.0 + grade * grade);
    grade -= correction;
    if (!(std::abs(correction) > kAccuracy * std::max(1.0, std::abs(grade)))) break;
  }
  return grade;
}

/// Rise over run. The order of the stationings does not matter, that of the points does.
double gradeBetween(const CVeralPoint& from, const CVeralPoint& to) {
  return (to.height - from.height) / std::abs(to.stationing - from.stationing);
}

/// Whether something can be divided by the difference of the stationings.
bool areApart(const CVeralPoint& a, const CVeralPoint& b) {
  return std::abs(b.stationing - a.stationing) >= kSmallestDivisor;
}

}  // namespace

CVerticalCurve CVerticalCurve::line(double stationing, double height, double grade) {
  CVerticalCurve curve;
  if (!(std::isfinite(stationing) && std::isfinite(height) && std::isfinite(grade))) return curve;
  curve.m_kind = Kind::Line;
  curve.m_stationing = stationing;
  curve.m_height = height;
  curve.m_grade = grade;
  return curve;
}

CVerticalCurve CVerticalCurve::circle(double stationing, double height, double grade,
                                      double curvature) {
  CVerticalCurve curve = line(stationing, height, grade);
  if (curve.m_kind == Kind::Undefined) return curve;
  curve.m_kind = Kind::Circle;
  curve.m_cosine = cosineOfGrade(grade);
  curve.m_sine = grade * curve.m_cosine;
  curve.m_curvature = curvature;
  return curve;
}

CVerticalCurve CVerticalCurve::parabola(double stationing, double height, double grade,
                                        double curvature) {
  CVerticalCurve curve = line(stationing, height, grade);
  if (curve.m_kind == Kind::Undefined) return curve;
  curve.m_kind = Kind::Parabola;
  curve.m_curvature = curvature;
  return curve;
}

double CVerticalCurve::lengthBetween(double from, double to) const {
  switch (m_kind) {
    case Kind::Line:
      return (to - from) * std::sqrt(1.0 + m_grade * m_grade);
    case Kind::Circle:
      return (std::asin(sineAt(to)) - std::asin(sineAt(from))) / m_curvature;
    case Kind::Parabola:
      return (unitParabolaLength(gradeAt(to)) - unitParabolaLength(gradeAt(from))) / m_curvature;
    default:
      return from == to ? 0.0 : kNotANumber;
  }
}

double CVerticalCurve::stationingBeyond(double from, double to, double length) const {
  double stationing = kNotANumber;
  switch (m_kind) {
    case Kind::Line:
      stationing = from + length * cosineOfGrade(m_grade);
      break;
    case Kind::Circle: {
      const double sine = std::sin(std::asin(sineAt(from)) + length * m_curvature);
      stationing = from + (sine - sineAt(from)) / m_curvature;
      break;
    }
    case Kind::Parabola: {
      const double reached = unitParabolaLength(gradeAt(from)) + length * m_curvature;
      stationing = from + (gradeAtUnitParabolaLength(reached) - gradeAt(from)) / m_curvature;
      break;
    }
    default:
      break;
  }
  return std::max(from, std::min(stationing, to));
}

bool hasRoundingType(const CVeralPoint& point) {
  return point.typeId == CShapeType::VerticalArc || point.typeId == CShapeType::VerticalParabola ||
         point.typeId == CShapeType::VerticalParabolaVariant;
}

CVerticalCurve lineBetween(const CVeralPoint& from, const CVeralPoint& to) {
  if (!areApart(from, to)) return {};
  return CVerticalCurve::line(from.stationing, from.height, gradeBetween(from, to));
}

CRoundingResult roundingOf(const CVeralPoint& before, const CVeralPoint& point,
                           const CVeralPoint& after) {
  CRoundingResult result;
  if (!areApart(before, point) || !areApart(point, after)) return result;
  const double gradeIn = gradeBetween(before, point);
  const double gradeOut = gradeBetween(point, after);
  const double radius = std::abs(point.roundingValue);
  if (!std::isfinite(gradeIn) || !std::isfinite(gradeOut) || !std::isfinite(radius)) return result;
  result.isComputable = true;
  if (gradeIn == gradeOut || radius < kSmallestDivisor) return result;

  const double curvature = (gradeOut > gradeIn ? 1.0 : -1.0) / radius;
  CRounding rounding;
  if (point.typeId == CShapeType::VerticalArc) {
    // The tangents are equally long on the slope, not in plan.
    const double cosineIn = cosineOfGrade(gradeIn);
    const double cosineOut = cosineOfGrade(gradeOut);
    const double tangent =
        radius * std::abs(gradeOut * cosineOut - gradeIn * cosineIn) / (cosineIn + cosineOut);
    rounding.from = point.stationing - tangent * cosineIn;
    rounding.to = point.stationing + tangent * cosineOut;
    rounding.curve = CVerticalCurve::circle(
        rounding.from, point.height - tangent * cosineIn * gradeIn, gradeIn, curvature);
  } else {
    const double tangent = radius * std::abs(gradeOut - gradeIn) / 2.0;
    rounding.from = point.stationing - tangent;
    rounding.to = point.stationing + tangent;
    rounding.curve = CVerticalCurve::parabola(rounding.from, point.height - tangent * gradeIn,
                                              gradeIn, curvature);
  }
  result.rounding = rounding;
  return result;
}

}  // namespace Ruv
