// SPDX-License-Identifier: BSL-1.0
#include "support/ExactAxis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Benchmarks {

namespace {

struct QuadratureNode {
  double place = 0.0;  // in [-1, 1]
  double weight = 0.0;
};

/// With so many nodes the error for half a radian of turning is below 1e-30 of the length.
constexpr int kNodes = 10;

/// A node is the root of the Legendre polynomial next to the starting value, found by Newton's
/// method. Source: Press et al., Numerical Recipes, section 4.5.
QuadratureNode quadratureNode(int index) {
  constexpr int kMostSteps = 20;
  const long double halfTurn = std::acos(-1.0L);
  long double x = std::cos(halfTurn * (index + 0.75L) / (kNodes + 0.5L));
  long double slope = 0.0L;
  for (int step = 0; step < kMostSteps; ++step) {
    long double value = 1.0L;
    long double before = 0.0L;
    for (int degree = 1; degree <= kNodes; ++degree) {
      const long double twoBefore = std::exchange(before, value);
      value = ((2 * degree - 1) * x * before - (degree - 1) * twoBefore) / degree;
    }
    slope = kNodes * (x * value - before) / (x * x - 1.0L);
    x -= value / slope;
  }
  const long double weight = 2.0L / ((1.0L - x * x) * slope * slope);
  return {static_cast<double>(x), static_cast<double>(weight)};
}

const std::array<QuadratureNode, kNodes>& quadrature() {
  static const std::array<QuadratureNode, kNodes> kRule = [] {
    std::array<QuadratureNode, kNodes> rule;
    for (int i = 0; i < kNodes; ++i) {
      rule[static_cast<std::size_t>(i)] = quadratureNode(i);
    }
    return rule;
  }();
  return kRule;
}

double curvatureOf(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

double turningOf(const PlanElement& element, double length) {
  const double start = curvatureOf(element.radiusStart);
  const double change = curvatureOf(element.radiusEnd) - start;
  return (start + change * length / (2.0 * element.length)) * length;
}

}  // namespace

ExactAxis::ExactAxis(const ExactPlace& start, std::vector<PlanElement> plan,
                     std::vector<GradePoint> profile, double roundingRadius)
    : m_plan(std::move(plan)), m_profile(std::move(profile)), m_roundingRadius(roundingRadius) {
  m_joints.reserve(m_plan.size() + 1);
  m_joints.push_back(start);
  for (std::size_t i = 0; i < m_plan.size(); ++i) {
    m_joints.push_back(placeOn(i, m_plan[i].length));
  }
  for (std::size_t i = 1; i + 1 < m_profile.size(); ++i) {
    m_roundings.push_back(roundingOf(i));
  }
}

double ExactAxis::length() const {
  return m_plan.back().stationing + m_plan.back().length - startStationing();
}

ExactPlace ExactAxis::at(double stationing) const {
  const auto beyond = std::upper_bound(
      m_plan.begin() + 1, m_plan.end(), stationing,
      [](double value, const PlanElement& element) { return value < element.stationing; });
  const auto element = static_cast<std::size_t>(beyond - m_plan.begin()) - 1;
  return placeOn(element, stationing - m_plan[element].stationing);
}

/// Doubles are enough inside an element, whose coordinates stay below some hundred metres.
ExactPlace ExactAxis::placeOn(std::size_t element, double lengthFromStart) const {
  double right = 0.0;
  double forward = 0.0;
  for (const QuadratureNode& node : quadrature()) {
    const double turning = turningOf(m_plan[element], lengthFromStart * (1.0 + node.place) / 2.0);
    right += node.weight * std::sin(turning);
    forward += node.weight * std::cos(turning);
  }
  right *= lengthFromStart / 2.0;
  forward *= lengthFromStart / 2.0;
  const ExactPlace& start = m_joints[element];
  const auto azimuth = static_cast<double>(start.azimuth);
  const double sine = std::sin(azimuth);
  const double cosine = std::cos(azimuth);
  return {start.east + (right * cosine + forward * sine),
          start.north + (forward * cosine - right * sine),
          start.azimuth + turningOf(m_plan[element], lengthFromStart)};
}

long double ExactAxis::gradeBefore(std::size_t point) const {
  const GradePoint& from = m_profile[point - 1];
  const GradePoint& to = m_profile[point];
  return (static_cast<long double>(to.height) - from.height) / (to.stationing - from.stationing);
}

ExactAxis::Rounding ExactAxis::roundingOf(std::size_t point) const {
  const long double into = std::atan(gradeBefore(point));
  const long double outOf = std::atan(gradeBefore(point + 1));
  const long double tangent = m_roundingRadius * std::tan(std::abs(outOf - into) / 2.0L);
  const GradePoint& corner = m_profile[point];
  Rounding rounding;
  rounding.from = corner.stationing - tangent * std::cos(into);
  rounding.to = corner.stationing + tangent * std::cos(outOf);
  rounding.upwards = outOf > into ? 1.0L : -1.0L;
  const long double toCentre = rounding.upwards * m_roundingRadius;
  rounding.centreStationing = rounding.from - toCentre * std::sin(into);
  rounding.centreHeight = corner.height - tangent * std::sin(into) + toCentre * std::cos(into);
  return rounding;
}

long double ExactAxis::heightAt(double stationing) const {
  const auto beyond = std::upper_bound(
      m_profile.begin() + 1, m_profile.end() - 1, stationing,
      [](double value, const GradePoint& point) { return value < point.stationing; });
  const auto next = static_cast<std::size_t>(beyond - m_profile.begin());
  // The roundings at the ends of this interval: m_roundings begins with that of point 1.
  for (std::size_t point = std::max<std::size_t>(next - 1, 1); point <= next; ++point) {
    if (point > m_roundings.size()) break;
    const Rounding& rounding = m_roundings[point - 1];
    if (stationing < rounding.from || stationing > rounding.to) continue;
    const long double ahead = stationing - rounding.centreStationing;
    const long double radius = m_roundingRadius;
    return rounding.centreHeight -
           rounding.upwards * std::sqrt((radius - ahead) * (radius + ahead));
  }
  const GradePoint& from = m_profile[next - 1];
  return from.height + (stationing - from.stationing) * gradeBefore(next);
}

}  // namespace Benchmarks
