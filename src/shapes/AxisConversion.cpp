// SPDX-License-Identifier: BSL-1.0
// Axis coordinates to grid coordinates and back.
//
//   s, o, h        stationing, offset to the right, height
//   C(s), t, n     place of the axis in plan, its tangent and the normal to the right
//   H(s), g        height of the axis and its grade, a ratio; cos = 1 / sqrt(1 + g^2)
//   q              transverse slope in percent, positive when the right side is lower
//
// The transverse slope turns the section about the axis, by the angle whose tangent is q / 100. In
// the vertical plane the point then lies at C + o n and H + h, in the perpendicular one, whose
// upward direction is (-g t, 1) cos, at C + o n - h g cos t and H + h cos.
//
// The tunnel meter is T(s) = T0 + L(s) - L(s0), with L the length of the profile in space, s0 the
// stationing and T0 the tunnel meter of the point that ties both.

#include "shapes/AxisConversion.h"

#include "shapes/PerpendicularFoot.h"
#include "shapes/ShapeTolerances.h"
#include "shapes/VerticalCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ruv {

using Calculations::AxisPoint;
using Calculations::ENHPoint;

namespace {

/// Grades and transverse slopes in percent are rises per this length.
constexpr double kPercentBase = 100.0;

/// Slopes from this on (percent) are plumb in doubles; their squares may overflow.
constexpr double kPlumbSlopePercent = 1e150;

/// A tunnel meter outside the axis by no more than this (m) and its own rounding is at its end.
constexpr double kTunnelMeterTolerance = 1e-9;
constexpr double kTunnelMeterUlps = 4.0;

/// A place in the plane square to the axis: to the right and upwards.
struct CSectionPoint {
  double right = 0.0;
  double up = 0.0;
};

/// Turns the section about the axis: from the frame in which the transverse slope is level to the
/// horizontal one. A positive slope lowers the right side.
CSectionPoint rolled(const CSectionPoint& p, double slopePercent) {
  if (std::abs(slopePercent) >= kPlumbSlopePercent) {
    const double sine = std::copysign(1.0, slopePercent);
    return {p.up * sine, -p.right * sine};
  }
  const double hypotenuse = std::sqrt(slopePercent * slopePercent + kPercentBase * kPercentBase);
  const double cosine = kPercentBase / hypotenuse;
  const double sine = slopePercent / hypotenuse;
  return {p.right * cosine + p.up * sine, p.up * cosine - p.right * sine};
}

/// The inverse of rolled.
CSectionPoint rolledBack(const CSectionPoint& p, double slopePercent) {
  return rolled(p, -slopePercent);
}

double transSlopeAt(const CAxisGeometry& axis, double stationing,
                    const CConversionOptions& options) {
  switch (options.transSlopeMode) {
    case CTransSlopeMode::OfAxis:
      return axis.transSlopes.at(stationing);
    case CTransSlopeMode::Given:
      return options.givenTransSlope;
    default:
      return 0.0;
  }
}

/// A stationing that is not a number is out of range.
bool isInRange(const CAxisGeometry& axis, double stationing) {
  return axis.isComplete && stationing >= axis.minimumStationing &&
         stationing <= axis.maximumStationing;
}

/// Forgives a stationing that rounding has put just outside the range.
std::optional<double> forcedIntoRange(const CAxisGeometry& axis, double stationing) {
  const double forced =
      std::max(axis.minimumStationing, std::min(stationing, axis.maximumStationing));
  if (!isInRange(axis, forced) || !(std::abs(forced - stationing) <= kFootTolerance)) {
    return std::nullopt;
  }
  return forced;
}

/// Nothing outside the axis.
std::optional<CHeightAndGrade> heightAndGradeAt(const CAxisGeometry& axis, double stationing) {
  if (!isInRange(axis, stationing)) return std::nullopt;
  return axis.veral.at(stationing);
}

/// A place beside the axis, by its components along the tangent in plan, to the right and upwards.
ENHPoint laidOff(const CCurvePoint& plan, double axisHeight, double forward, double right,
                 double up) {
  const Point2D normal = rightNormal(plan.tangent);
  return {plan.position.x + (right * normal.x + forward * plan.tangent.x),
          plan.position.y + (right * normal.y + forward * plan.tangent.y), axisHeight + up};
}

ENHPoint gridPointOf(const CSectionPoint& section, const CCurvePoint& plan,
                     const CHeightAndGrade& profile, const CConversionOptions& options) {
  if (options.plane == CProfilePlane::Perpendicular) {
    const double cosine = cosineOfGrade(profile.grade);
    return laidOff(plan, profile.height, -section.up * profile.grade * cosine, section.right,
                   section.up * cosine);
  }
  const double up =
      options.heightAlongPlumbLine ? section.up : section.up / cosineOfGrade(profile.grade);
  return laidOff(plan, profile.height, 0.0, section.right, up);
}

/// What a list of points keeps from one to the next.
struct CAxisTrail {
  CBoxTree::Neighbourhood boxes;  // in space
  CFootTrail plan;
  std::size_t pieceOfProfile = 0;
};

/// A foot on the axis and the point's place in the section there.
struct CSectionFoot {
  double stationing = 0.0;
  CSectionPoint section;
};

/// @param trail that of a list, or nothing for a point alone; so below
template <class... Trail>
std::optional<CSectionFoot> footInVerticalPlane(const CAxisGeometry& axis, const ENHPoint& point,
                                                const CConversionOptions& options,
                                                Trail&... trail) {
  const auto foot = axis.horal.project(Point2D(point.east, point.north), trail.plan...);
  if (!foot) return std::nullopt;
  const auto stationing = forcedIntoRange(axis, foot->stationing);
  if (!stationing) return std::nullopt;
  const auto profile = axis.veral.at(*stationing, trail.pieceOfProfile...);
  if (!profile) return std::nullopt;
  double up = point.height - profile->height;
  if (!options.heightAlongPlumbLine) up *= cosineOfGrade(profile->grade);
  return CSectionFoot{*stationing, {foot->offset, up}};
}

template <class... Trail>
std::optional<CSectionFoot> footInPerpendicularPlane(const CAxisGeometry& axis,
                                                     const ENHPoint& point, Trail&... trail) {
  const auto foot = perpendicularFoot(axis, point, trail.boxes...);
  if (!foot) return std::nullopt;
  return CSectionFoot{foot->stationing, {foot->offset, foot->height}};
}

template <class... Trail>
std::optional<AxisPoint> axisPointOf(const CAxisGeometry& axis, const ENHPoint& point,
                                     const CConversionOptions& options, Trail&... trail) {
  if (!axis.isComplete) return std::nullopt;
  const auto foot = options.plane == CProfilePlane::Perpendicular
                        ? footInPerpendicularPlane(axis, point, trail...)
                        : footInVerticalPlane(axis, point, options, trail...);
  if (!foot) return std::nullopt;
  CSectionPoint section = foot->section;
  const double slope = transSlopeAt(axis, foot->stationing, options);
  if (std::abs(slope) > kNegligibleTransSlopePercent) section = rolledBack(section, slope);
  return AxisPoint(foot->stationing, section.right, section.up);
}

}  // namespace

std::optional<ENHPoint> axisToGrid(const CAxisGeometry& axis, const AxisPoint& point,
                                   const CConversionOptions& options) {
  const auto profile = heightAndGradeAt(axis, point.stationing);
  if (!profile) return std::nullopt;
  const auto plan = axis.horal.placeAt(point.stationing);
  if (!plan) return std::nullopt;
  CSectionPoint section{point.offset, point.height};
  const double slope = transSlopeAt(axis, point.stationing, options);
  if (std::abs(slope) >= kNegligibleTransSlopePercent) section = rolled(section, slope);
  return gridPointOf(section, *plan, *profile, options);
}

std::optional<CAxisProperties> axisPropertiesAt(const CAxisGeometry& axis, double stationing) {
  const auto profile = heightAndGradeAt(axis, stationing);
  if (!profile) return std::nullopt;
  const auto plan = axis.horal.positionAt(stationing);
  if (!plan) return std::nullopt;
  return CAxisProperties{plan->azimuth, plan->radius, profile->grade * kPercentBase,
                         axis.transSlopes.at(stationing)};
}

std::optional<AxisPoint> gridToAxis(const CAxisGeometry& axis, const ENHPoint& point,
                                    const CConversionOptions& options) {
  return axisPointOf(axis, point, options);
}

std::size_t gridToAxis(const CAxisGeometry& axis, const ENHPoint* points, std::size_t count,
                       const CConversionOptions& options, AxisPoint* out, bool* found) {
  CAxisTrail trail;
  std::size_t numFound = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto result = axisPointOf(axis, points[i], options, trail);
    if (found != nullptr) found[i] = result.has_value();
    if (!result) continue;
    out[i] = *result;
    ++numFound;
  }
  return numFound;
}

std::optional<double> tunnelMeterAt(const CAxisGeometry& axis, const CStationingMapping& mapping,
                                    double stationing) {
  if (!axis.isComplete) return std::nullopt;
  const double value = mapping.value3dAtOrigin +
                       (axis.veral.lengthAt(stationing) - axis.veral.lengthAt(mapping.origin2d));
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<double> stationingAt(const CAxisGeometry& axis, const CStationingMapping& mapping,
                                   double tunnelMeter) {
  if (!axis.isComplete) return std::nullopt;
  // A rounding that cannot be computed ends the lengths, not those before it.
  const double last = std::min(axis.maximumStationing, axis.veral.lastStationingWithLength());
  const auto lowest = tunnelMeterAt(axis, mapping, axis.minimumStationing);
  const auto highest = tunnelMeterAt(axis, mapping, last);
  if (!lowest || !highest || axis.minimumStationing > last) return std::nullopt;
  const double tolerance = kTunnelMeterTolerance + kTunnelMeterUlps *
                                                       std::numeric_limits<double>::epsilon() *
                                                       std::abs(tunnelMeter);
  if (!(tunnelMeter >= *lowest - tolerance && tunnelMeter <= *highest + tolerance)) {
    return std::nullopt;
  }
  const double length =
      tunnelMeter - mapping.value3dAtOrigin + axis.veral.lengthAt(mapping.origin2d);
  const double stationing = axis.veral.stationingAtLength(length);
  if (!std::isfinite(stationing)) return std::nullopt;
  return std::max(axis.minimumStationing, std::min(stationing, last));
}

}  // namespace Ruv
