// SPDX-License-Identifier: BSL-1.0
// Four limits make a rectangle of what is allowed, angles take wedges out of it. A wedge is the
// triangle of its centre and two points 1000 m away. All is derived when a filter is set, as a
// filter is set once and asked for every point and every area.

#include "profiles/ProfileFilters.h"

#include "profiles/ProfileReach.h"
#include "profiles/paths/PointPlace.h"
#include "profiles/paths/Ring.h"
#include "shapes/PlaneGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {
namespace Calculations {

ProfileFilters::Set::Set(Limits limitsSet, Angles anglesSet)
    : limits(std::move(limitsSet)),
      angles(std::move(anglesSet)),
      rectangle(rectangleOf(limits)),
      wedges(wedgesWithin(rectangle, angles)),
      allowedArea(without(rectangle, wedges)) {}

void ProfileFilters::set(Limits limits, Angles angles) {
  if (limits.empty() && angles.empty()) {
    reset();
  } else {
    m_set = std::make_unique<const Set>(std::move(limits), std::move(angles));
  }
}

void ProfileFilters::set(LineFilter kind, double limit) {
  Limits limits = areSet() ? m_set->limits : Limits();
  if (std::isnan(limit)) {
    limits.erase(kind);
  } else {
    limits[kind] = limit;
  }
  set(std::move(limits), areSet() ? m_set->angles : Angles());
}

void ProfileFilters::addAngles(double startAngle, double endAngle, const Point2D& centre) {
  // A corner that is not a number would be taken to the origin of the grid.
  if (!std::isfinite(startAngle) || !std::isfinite(endAngle) || !isFinite(centre)) return;
  Angles angles = areSet() ? m_set->angles : Angles();
  angles.push_back({startAngle, endAngle, centre});
  set(areSet() ? m_set->limits : Limits(), std::move(angles));
}

/// A point on the border of the rectangle is excluded, and so is one on that of a wedge.
bool ProfileFilters::excludes(const Point2D& p) const {
  if (!areSet()) return false;
  const std::vector<Path>& wedges = m_set->wedges.paths();
  return !m_set->rectangle.pointWithin(p) ||
         std::any_of(wedges.begin(), wedges.end(),
                     [&](const Path& wedge) { return isInsideOrOn(wedge, p); });
}

/// Limits that cross change sides. The ring is turned the right way round again, so what lies
/// between them is allowed.
Path ProfileFilters::rectangleOf(const Limits& limits) {
  const auto limitOf = [&](LineFilter kind, double unset) {
    const auto found = limits.find(kind);
    return found == limits.end() ? unset : found->second;
  };
  const double top = limitOf(LineFilter::ExcludeAbove, kReach);
  const double bottom = limitOf(LineFilter::ExcludeBelow, -kReach);
  const double left = limitOf(LineFilter::ExcludeLeftOf, -kReach);
  const double right = limitOf(LineFilter::ExcludeRightOf, kReach);
  return ringThrough({{Point2D(left, bottom)},
                      {Point2D(left, top)},
                      {Point2D(right, top)},
                      {Point2D(right, bottom)}},
                     true);
}

/// The corners lie at C + 1000 m (sin b, cos b) for the centre C and a bearing b, clockwise from
/// up. The wedge is a triangle, not a sector: its outer side is a chord, and of a span beyond half
/// a turn it takes the smaller side.
Path ProfileFilters::wedgeOf(const AngleFilter& filter) {
  const auto corner = [&](double bearing) {
    return filter.centre + Point2D(std::sin(bearing), std::cos(bearing)) * kReach;
  };
  return ringThrough({{filter.centre}, {corner(filter.startAngle)}, {corner(filter.endAngle)}},
                     true);
}

/// Cut to the rectangle, because the allowed area is told by the even-odd rule: what of a wedge
/// lies outside the rectangle is inside one outline, and so would be allowed. By the same rule what
/// two wedges share is no wedge.
Pathes ProfileFilters::wedgesWithin(const Path& rectangle, const Angles& angles) {
  Pathes wedges;
  for (const AngleFilter& filter : angles) {
    wedges.addPath(wedgeOf(filter));
  }
  return Pathes::within(wedges, Pathes(rectangle));
}

/// The wedges are not subtracted: that would cut the rectangle in two where a wedge lies within it,
/// and points on the cut, the middle of the invert under an excluded crown, would be on the border.
Pathes ProfileFilters::without(const Path& rectangle, const Pathes& wedges) {
  Pathes allowed(rectangle);
  allowed.addPaths(wedges);
  return allowed;
}

}  // namespace Calculations
}  // namespace Ruv
