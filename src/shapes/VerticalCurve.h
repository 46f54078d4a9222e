// SPDX-License-Identifier: BSL-1.0
/// @file
/// Grade lines and roundings of a vertical alignment.

#ifndef CALCULATIONS_SHAPES_VERTICAL_CURVE_H
#define CALCULATIONS_SHAPES_VERTICAL_CURVE_H

#include "shapes/ShapeTolerances.h"

#include <cmath>
#include <cstdint>
#include <optional>

namespace Ruv {

/// What an alignment stores of a point of intersection.
struct CVeralPoint {
  std::int32_t typeId = 0;
  double stationing = 0.0;
  double height = 0.0;
  double roundingValue = 0.0;
};

/// Length in plan of one metre along a line of this grade (ratio).
inline double cosineOfGrade(double grade) { return 1.0 / std::sqrt(1.0 + grade * grade); }

/// Cosine of the angle with a given sine. The product keeps the digits of steep angles.
inline double cosineOfSine(double sine) { return std::sqrt((1.0 - sine) * (1.0 + sine)); }

/// Height and grade at one stationing.
struct CHeightAndGrade {
  double height = 0.0;
  double grade = 0.0;        ///< ratio, positive rising
  double gradeChange = 0.0;  ///< derivative of the grade by the stationing (1/m)
};

/// A line, circle or parabola over the stationing.
///
/// Heights are developed from one point of the curve, so nothing cancels, whatever the radius or
/// the stationing. Sources: circle through a tangent point by its sines, h = h0 + (s - s0)
/// (sin + sin0) / (cos + cos0); arc lengths in closed form by asin and asinh.
class CVerticalCurve {
 public:
  /// Height undefined everywhere: stands where an evaluation fails.
  CVerticalCurve() = default;

  static CVerticalCurve line(double stationing, double height, double grade);
  /// @param curvature signed 1/R, positive for a sag
  static CVerticalCurve circle(double stationing, double height, double grade, double curvature);
  static CVerticalCurve parabola(double stationing, double height, double grade, double curvature);

  std::optional<CHeightAndGrade> at(double stationing) const;

  /// Length of the curve in space between two stationings; not-a-number where it is undefined.
  double lengthBetween(double from, double to) const;
  /// The stationing in [from, to] that lies a length in space beyond from. Inverse of
  /// lengthBetween.
  double stationingBeyond(double from, double to, double length) const;

 private:
  enum class Kind { Undefined, Line, Circle, Parabola };

  double gradeAt(double stationing) const;
  double sineAt(double stationing) const;

  Kind m_kind = Kind::Undefined;
  double m_stationing = 0.0;
  double m_height = 0.0;
  double m_grade = 0.0;
  double m_sine = 0.0;  // of the grade angle, for a circle
  double m_cosine = 1.0;
  double m_curvature = 0.0;  // signed
};

inline double CVerticalCurve::sineAt(double stationing) const {
  return m_sine + (stationing - m_stationing) * m_curvature;
}

inline double CVerticalCurve::gradeAt(double stationing) const {
  return m_grade + (stationing - m_stationing) * m_curvature;
}

/// Inline, as most callers need the height alone.
inline std::optional<CHeightAndGrade> CVerticalCurve::at(double stationing) const {
  const double ahead = stationing - m_stationing;
  switch (m_kind) {
    case Kind::Line:
      return CHeightAndGrade{m_height + ahead * m_grade, m_grade, 0.0};
    case Kind::Parabola: {
      const double grade = gradeAt(stationing);
      return CHeightAndGrade{m_height + ahead * (m_grade + grade) / 2.0, grade, m_curvature};
    }
    case Kind::Circle: {
      const double sine = sineAt(stationing);
      const double cosine = cosineOfSine(sine);
      if (!(cosine >= kSmallestDivisor)) return std::nullopt;
      return CHeightAndGrade{m_height + ahead * (sine + m_sine) / (cosine + m_cosine),
                             sine / cosine, m_curvature / (cosine * cosine * cosine)};
    }
    default:
      return std::nullopt;
  }
}

/// A rounding of a point of intersection between its two tangent points.
struct CRounding {
  double from = 0.0;
  double to = 0.0;
  CVerticalCurve curve;
};

bool hasRoundingType(const CVeralPoint& point);

/// The line from one point to the next. Undefined when their stationings coincide.
CVerticalCurve lineBetween(const CVeralPoint& from, const CVeralPoint& to);

/// Outcome of computing a rounding. A failure is not the same as no rounding: it ends the
/// evaluation.
struct CRoundingResult {
  bool isComputable = false;
  std::optional<CRounding> rounding;  ///< none when the grades are equal or the radius is zero
};

/// The rounding of a point between its neighbours. The sign of the rounding value is of no
/// account: the grades decide on which side the curve lies.
CRoundingResult roundingOf(const CVeralPoint& before, const CVeralPoint& point,
                           const CVeralPoint& after);

}  // namespace Ruv

#endif
