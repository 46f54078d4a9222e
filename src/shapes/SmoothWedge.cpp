// SPDX-License-Identifier: BSL-1.0
// With the joint T, the direction t1 into it and t2 out of it, a point P lies in the wedge when
//
//   (P - T).t1 > 0  and  (P - T2).t2 < 0,
//
// ahead of the end of the one segment and behind the start T2 of the other. T2 is T but for a gap,
// which enters as (T - T2).t2.

#include "shapes/SmoothWedge.h"

#include "shapes/ShapeTolerances.h"

#include <cmath>

namespace Ruv {

namespace {

/// A break below this (rad) opens less than kFootTolerance up to 100 km beside the axis.
constexpr double kRoundingBreak = 1e-12;

/// An element of length zero between them may leave a gap as wide as a printing error.
bool touch(const CHoralSegment& before, const CHoralSegment& after) {
  return before.isEvaluable() && after.isEvaluable() &&
         before.stationingEnd == after.stationingStart &&
         (after.start - before.end).length() <= kPrintingError;
}

double breakBetween(const CDirection& into, const CDirection& outOf) {
  return std::abs(bearingOf(turnedFrom(into, Point2D(outOf.x, outOf.y))));
}

}  // namespace

/// A point with the lateral distance q beside a curve of curvature k has its foot there only on the
/// near side of the centre, where k q < 1. Beyond both centres smooth segments have no feet, nor
/// has their joint.
bool CSmoothWedge::holds(const Point2D& p) const {
  const Point2D ray = p - tip;
  if (!(forwardComponent(ray, into) > 0.0 && forwardComponent(ray, outOf) + ahead < 0.0)) {
    return false;
  }
  const double lateral = rightComponent(ray, into);
  return curvatureInto * lateral < 1.0 || curvatureOutOf * lateral < 1.0;
}

double CSmoothWedge::offsetOf(const Point2D& p) const {
  const Point2D ray = p - tip;
  return std::copysign(ray.length(), rightComponent(ray, into));
}

std::optional<CSmoothWedge> smoothWedgeBetween(const CHoralSegment& before,
                                               const CHoralSegment& after) {
  if (!touch(before, after)) return std::nullopt;
  const CCurvePoint end = before.path.end();
  const CCurvePoint start = after.path.at(0.0);
  const double turning = breakBetween(end.tangent, start.tangent);
  const double gap = (start.position - end.position).length();
  const bool isRounding = turning < kRoundingBreak && gap <= kFootTolerance;
  if (isRounding || !(turning < kSmoothBreak)) return std::nullopt;
  return CSmoothWedge{end.position,  end.tangent,
                      start.tangent, forwardComponent(end.position - start.position, start.tangent),
                      end.curvature, start.curvature};
}

}  // namespace Ruv
