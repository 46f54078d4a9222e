// SPDX-License-Identifier: BSL-1.0
// Three ways to evaluate the same law, curvature k(l) = k0 + (k1 - k0) l / L and heading
// h(l) = k0 l + (k1 - k0) l^2 / (2 L), whose place is the integral of (sin h, cos h):
//
//   straights and arcs       in closed form;
//   clothoids near the       as a piece of the spiral with the parameter A^2 = L / |k1 - k0|. The
//   origin of their spiral   curve begins on it at the length s0 = +-k0 A^2, with the tangent angle
//                            s0^2 / (2 A^2), and its places are differences of the series;
//   all other clothoids      by Gauss-Legendre quadrature. Nearly equal radii belong here: s0 is so
//                            large that the difference of the series would leave no digits.
//
// Feet on arcs are in closed form, those on clothoids the roots of the forward distance
// f(l) = (p - place).tangent with f' = k (p - place to the right) - 1 (FootSearch).

#include "shapes/PlaneCurve.h"

#include "foundation/MathConstants.h"
#include "shapes/FootSearch.h"
#include "shapes/ShapeTolerances.h"
#include "shapes/SpiralSeries.h"
#include "shapes/StraightAndArc.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Ruv {

namespace {

/// Gauss-Legendre quadrature with 10 points on [-1, 1]: positive half of the symmetric nodes.
/// Source: Abramowitz and Stegun, table 25.4.
struct CQuadratureNode {
  double place;
  double weight;
};
constexpr std::array<CQuadratureNode, 5> kQuadrature = {
    {{0.14887433898163122, 0.29552422471475287},
     {0.43339539412924719, 0.26926671930999636},
     {0.67940956829902441, 0.21908636251598204},
     {0.86506336668898451, 0.14945134915058059},
     {0.97390652851717172, 0.06667134430868814}}};

/// Curvatures below this (1/m) are those of a straight: an arc of 1000 km with such a radius, 1e15
/// m, departs from its tangent by half a millimetre.
constexpr double kNoCurvature = 1e-15;

double curvatureOfRadius(double radius) {
  return std::abs(radius) <= kZeroLength ? 0.0 : 1.0 / radius;
}

bool hasFinitePlace(const CCurvePoint& point) {
  return Ruv::isFinite(point.position) && std::isfinite(point.heading);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// How far outside the foot lies when the curve is continued: one Newton step from its end.
double lengthToFoot(const CForwardDistance& forward) {
  return forward.slope < 0.0 ? std::abs(forward.value / forward.slope) : kInfinity;
}

}  // namespace

CPlaneCurve CPlaneCurve::straight(double length) {
  CPlaneCurve curve;
  curve.m_kind = Kind::Straight;
  curve.m_length = length;
  curve.prepare();
  return curve;
}

/// More than one round is no arc of an alignment: its later rounds repeat the places of the first.
CPlaneCurve CPlaneCurve::arc(double radius, double length) {
  return length <= kTwoPi * std::abs(radius) ? windings(radius, length) : CPlaneCurve();
}

/// An arc that may go round more than once.
CPlaneCurve CPlaneCurve::windings(double radius, double length) {
  CPlaneCurve curve;
  if (!std::isfinite(radius) || radius == 0.0) return curve;
  curve.m_kind = Kind::Arc;
  curve.m_length = length;
  curve.m_shape = radius;
  curve.m_curvatureStart = 1.0 / radius;
  curve.prepare();
  return curve;
}

CPlaneCurve CPlaneCurve::clothoid(double radiusStart, double radiusEnd, double length) {
  const double curvatureStart = curvatureOfRadius(radiusStart);
  const double curvatureEnd = curvatureOfRadius(radiusEnd);
  if (curvatureStart == curvatureEnd) {
    return curvatureStart == 0.0 ? straight(length) : windings(radiusStart, length);
  }
  CPlaneCurve curve;
  curve.m_kind = Kind::Clothoid;
  curve.m_length = length;
  curve.m_curvatureStart = curvatureStart;
  curve.m_curvatureChange = curvatureEnd - curvatureStart;
  curve.prepare();
  return curve;
}

CPlaneCurve CPlaneCurve::drifting(const Point2D& drift) const {
  CPlaneCurve curve = *this;
  curve.m_drifts = true;
  curve.m_drift = drift;
  curve.m_end.position = m_end.position + drift * m_length;
  return curve;
}

/// A clothoid turns by (k0 + k1) L / 2 in all; the sharper one of both curvatures bounds it and,
/// unlike the mean, also the turning of S-curves on the way. A turning that is not a number is too
/// much as well.
bool CPlaneCurve::turnsTooMuch() const {
  const double sharpest =
      std::max(std::abs(m_curvatureStart), std::abs(m_curvatureStart + m_curvatureChange));
  return !(sharpest * std::abs(m_length) <= kLargestCurveTurning);
}

void CPlaneCurve::prepare() {
  const bool isOneRound = m_kind == Kind::Arc && m_length <= kTwoPi * std::abs(m_shape);
  if (!isOneRound && turnsTooMuch()) return;
  if (m_kind == Kind::Clothoid && placeOnSpiral()) m_kind = Kind::Spiral;
  m_end = at(m_length);
  m_isDefined = hasFinitePlace(m_end);
  m_isSearchedAtOnce = isSearchedAtOnce();
}

/// Nearly all curves of alignments: what footAmong would work out for every point.
bool CPlaneCurve::isSearchedAtOnce() const {
  const double inflection = placeOfInflection();
  const double sharpest = std::max(std::abs(curvatureAt(0.0)), std::abs(curvatureAt(m_length)));
  const bool hasInflection = inflection > 0.0 && inflection < m_length;
  return m_isDefined && !hasInflection && numSearchedPieces(sharpest * m_length) == 1;
}

/// Finds the curve on the spiral of its own parameter A^2 = L / |k1 - k0|. Refuses when it lies
/// too far out for the series: nearly equal radii lie very far out.
bool CPlaneCurve::placeOnSpiral() {
  const double square = m_length / std::abs(m_curvatureChange);
  SpiralFrame frame;
  const double halfInverseSquare = 1.0 / (2.0 * square);
  frame.startLength = spiralSide() * m_curvatureStart * square;
  const double farthest =
      std::max(std::abs(frame.startLength), std::abs(frame.startLength + m_length));
  if (!(m_length > 0.0 && farthest * farthest * halfInverseSquare <= kLargestSeriesAngle)) {
    return false;
  }
  const double startAngle = frame.startLength * frame.startLength * halfInverseSquare;
  frame.toCurve = directionOfBearing(-spiralSide() * startAngle);
  m_shape = halfInverseSquare;
  m_spiral = frame;
  m_spiral.startPoint = spiralPoint(frame.startLength);
  return true;
}

double CPlaneCurve::curvatureAt(double l) const {
  return m_curvatureStart + m_curvatureChange * (l / m_length);
}

/// The place where the curvature changes its sign; before the curve where it never does.
double CPlaneCurve::placeOfInflection() const {
  if (m_curvatureChange == 0.0) return -1.0;
  return -m_curvatureStart * m_length / m_curvatureChange;
}

/// The integral of the curvature from the start.
double CPlaneCurve::headingAt(double l) const {
  return (m_curvatureStart + m_curvatureChange * (l / m_length) / 2.0) * l;
}

/// The spiral is odd: places before its origin are those after it, turned by half a turn.
Point2D CPlaneCurve::spiralPoint(double lengthFromOrigin) const {
  const double angle = lengthFromOrigin * lengthFromOrigin * m_shape;
  const CSpiralFactors factors = spiralFactors(angle);
  return {spiralSide() * lengthFromOrigin * factors.across, lengthFromOrigin * factors.along};
}

/// Integrates the direction in panels of at most 1 rad: 1e-13 of the length. Ten points integrate
/// polynomials up to the degree 19 without error.
Point2D CPlaneCurve::positionByQuadrature(double l) const {
  const double sharpest = std::max(std::abs(m_curvatureStart), std::abs(curvatureAt(l)));
  const int panels = std::max(1, static_cast<int>(std::ceil(sharpest * std::abs(l))));
  const double half = l / panels / 2.0;
  Point2D sum;
  for (int panel = 0; panel < panels; ++panel) {
    const double middle = half * (2 * panel + 1);
    for (const CQuadratureNode& node : kQuadrature) {
      const CDirection before = directionOfBearing(headingAt(middle - half * node.place));
      const CDirection after = directionOfBearing(headingAt(middle + half * node.place));
      sum.x += node.weight * (before.x + after.x);
      sum.y += node.weight * (before.y + after.y);
    }
  }
  return sum * half;
}

/// Inline, as a search evaluates hardly anything else.
inline CCurvePoint CPlaneCurve::pointOnSpiral(double l) const {
  CCurvePoint point;
  point.curvature = curvatureAt(l);
  point.heading = headingAt(l);
  point.tangent = directionOfBearing(point.heading);
  point.position =
      turnedTo(m_spiral.toCurve, spiralPoint(m_spiral.startLength + l) - m_spiral.startPoint);
  carryOff(point.position, l);
  return point;
}

CCurvePoint CPlaneCurve::at(double l) const {
  if (m_kind == Kind::Spiral) return pointOnSpiral(l);
  if (m_kind == Kind::Arc) {
    CCurvePoint point = pointOnArc(m_shape, l);
    carryOff(point.position, l);
    return point;
  }
  CCurvePoint point;
  if (m_kind == Kind::Straight) {
    point.position = Point2D(0.0, l);
    carryOff(point.position, l);
    return point;
  }
  point.curvature = curvatureAt(l);
  point.heading = headingAt(l);
  point.tangent = directionOfBearing(point.heading);
  point.position = positionByQuadrature(l);
  carryOff(point.position, l);
  return point;
}

double CPlaneCurve::radiusAt(double l) const {
  // The reciprocal of a reciprocal may be an ulp off: 49 would read 49.000000000000007.
  if (m_kind == Kind::Arc) return m_shape;
  const double curvature = m_kind == Kind::Straight ? 0.0 : curvatureAt(l);
  return std::abs(curvature) < kNoCurvature ? 0.0 : 1.0 / curvature;
}

CCurveFoot CPlaneCurve::footOf(const Point2D& p) const {
  switch (m_kind) {
    case Kind::Straight:
      return m_drifts ? footOnDriftingStraight(m_length, m_drift, p) : footOnStraight(m_length, p);
    case Kind::Arc:
      if (m_drifts) return footBySearch(p);
      // What goes round again has its first foot on the first round.
      return footOnArc(m_shape, std::min(m_length, kTwoPi * std::abs(m_shape)), p);
    default:
      return footBySearch(p);
  }
}

CCurveFoot CPlaneCurve::footBySearch(const Point2D& p) const {
  if (m_kind == Kind::Spiral) return footAmong([&](double l) { return pointOnSpiral(l); }, p);
  return footAmong([&](double l) { return at(l); }, p);
}

template <class PointAt>
CCurveFoot CPlaneCurve::footAmong(const PointAt& pointAt, const Point2D& p) const {
  // The lateral of the place looked at last: after a root is found, that of the root.
  double lateral = 0.0;
  const auto forwardFrom = [&](const CCurvePoint& point) {
    const Point2D ray = p - point.position;
    lateral = rightComponent(ray, point.tangent);
    // The slope leaves the drift out, which is too small to cost more than one further step.
    return CForwardDistance{forwardComponent(ray, point.tangent), point.curvature * lateral - 1.0};
  };
  const auto forwardAt = [&](double l) { return forwardFrom(pointAt(l)); };

  CCurveFoot best;
  const auto keepNearest = [&](double l) {
    if (best.report == CFootReport::OnCurve && !(std::abs(lateral) < std::abs(best.lateral)))
      return;
    best = {CFootReport::OnCurve, l, lateral, 0.0};
  };

  CCurvePoint startPoint;
  startPoint.curvature = m_curvatureStart;
  const CSearchNode start{0.0, forwardFrom(startPoint)};
  const CSearchNode end{m_length, forwardFrom(m_end)};
  if (m_isSearchedAtOnce) {
    if (start.forward.value >= 0.0 && end.forward.value <= 0.0) {
      const double l = footBetween(forwardAt, start, end);
      return {CFootReport::OnCurve, l, lateral, 0.0};  // and no end is missed
    }
    findFeet(forwardAt, start, end, keepNearest);
    return unlessAnEndIsNearer(best, p, start.forward, end.forward);
  }
  const auto nodeAt = [&](double place) {
    return place == m_length ? end : CSearchNode{place, forwardAt(place)};
  };
  CSearchNode from = start;
  const auto searchTo = [&](double to) {
    const double sharpest = std::max(std::abs(curvatureAt(from.place)), std::abs(curvatureAt(to)));
    from = findFeetUpTo(to, sharpest, from, forwardAt, nodeAt, keepNearest);
  };
  const double inflection = placeOfInflection();
  if (inflection > 0.0 && inflection < m_length) searchTo(inflection);
  searchTo(m_length);
  return unlessAnEndIsNearer(best, p, start.forward, end.forward);
}

/// A foot that was found, or the end that the point lies outside of: the nearer one of two.
CCurveFoot CPlaneCurve::unlessAnEndIsNearer(const CCurveFoot& found, const Point2D& p,
                                            const CForwardDistance& start,
                                            const CForwardDistance& end) const {
  const bool isBefore = start.value < 0.0;
  const bool isBeyond = end.value > 0.0;
  const double before = isBefore ? lengthToFoot(start) : kInfinity;
  const double beyond = isBeyond ? lengthToFoot(end) : kInfinity;
  // An end that only rounding makes the foot miss counts even if the other one is nearer.
  const bool touchesEnd = std::min(before, beyond) <= kFootTolerance;
  const bool isFound = found.report == CFootReport::OnCurve;
  if (isFound && !touchesEnd) return found;
  const double fromStart = p.length();
  const double fromEnd = (p - m_end.position).length();
  const bool isNearerStart = touchesEnd ? before <= beyond : fromStart <= fromEnd;
  // A curve of several turns may have a foot far away from an end that the point lies beside.
  const double fromNearer = isNearerStart ? fromStart : fromEnd;
  if (isFound && !(fromNearer + kFootPreference < std::abs(found.lateral))) return found;
  if (isBefore && (!isBeyond || isNearerStart)) return footBeforeStart(before);
  if (isBeyond) return footBeyondEnd(m_length, beyond);
  return found;
}

}  // namespace Ruv
