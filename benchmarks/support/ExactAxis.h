// SPDX-License-Identifier: BSL-1.0
/// @file
/// An axis evaluated by other means than the library's, to check its results.

#ifndef CALCULATIONS_BENCHMARKS_EXACT_AXIS_H
#define CALCULATIONS_BENCHMARKS_EXACT_AXIS_H

#include <cstddef>
#include <vector>

namespace Benchmarks {

enum class PlanKind { Straight, Arc, Clothoid };

/// One element of the plan. A radius of 0 is infinite, a positive one curves to the right.
struct PlanElement {
  PlanKind kind = PlanKind::Straight;
  double stationing = 0.0;
  double length = 0.0;
  double radiusStart = 0.0;
  double radiusEnd = 0.0;
};

/// A point of intersection of two grades.
struct GradePoint {
  double stationing = 0.0;
  double height = 0.0;
};

/// Place and direction in plan. Wider than a double, so that the error of a comparison with
/// doubles is theirs alone.
struct ExactPlace {
  long double east = 0.0L;
  long double north = 0.0L;
  long double azimuth = 0.0L;  ///< counted on from the start without wrapping
};

/// Chain of plan elements and grades with circular roundings at all inner grade points.
///
/// Every plan element, straight, arc or clothoid, is the integral of its direction, summed by
/// Gauss-Legendre quadrature; the joints are chained in extended precision. Roundings are circles
/// about their centres. Good to 1e-11 m at 1000 km where long double has 64 bits of mantissa.
class ExactAxis {
 public:
  /// @param plan elements in order, without gaps, each turning less than half a radian
  /// @param roundingRadius of all inner grade points; neighbouring roundings must not overlap
  ExactAxis(const ExactPlace& start, std::vector<PlanElement> plan, std::vector<GradePoint> profile,
            double roundingRadius);

  const std::vector<PlanElement>& plan() const { return m_plan; }
  const std::vector<GradePoint>& profile() const { return m_profile; }
  /// Start of the element; its end for the index after the last one.
  const ExactPlace& joint(std::size_t index) const { return m_joints[index]; }

  double startStationing() const { return m_plan.front().stationing; }
  double length() const;

  ExactPlace at(double stationing) const;
  long double heightAt(double stationing) const;

 private:
  struct Rounding {
    long double from = 0.0L;
    long double to = 0.0L;
    long double centreStationing = 0.0L;
    long double centreHeight = 0.0L;
    long double upwards = 0.0L;  // from the curve to the centre: 1 in a sag, -1 on a crest
  };

  ExactPlace placeOn(std::size_t element, double lengthFromStart) const;
  Rounding roundingOf(std::size_t point) const;
  long double gradeBefore(std::size_t point) const;

  std::vector<PlanElement> m_plan;
  std::vector<GradePoint> m_profile;
  double m_roundingRadius;
  std::vector<ExactPlace> m_joints;
  std::vector<Rounding> m_roundings;  // of the inner points
};

}  // namespace Benchmarks

#endif
