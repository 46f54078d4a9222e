#include "profiles/ProfileFilters.h"

#include "profiles/ProfileReach.h"
#include "profiles/paths/PointPlace.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace Ruv {
namespace Calculations {

namespace {

Path ringThrough(std::initializer_list<Point2D> corners) {
  Path ring;
  for (const Point2D& corner : corners) {
    ring.addSegment(PathSegment(corner.x, corner.y));
  }
  ring.close(true);
  return ring;
}

}  // namespace

void ProfileFilters::set(LineFilter kind, double limit) {
  m_limits[kind] = limit;
  update();
}

void ProfileFilters::addAngles(double startAngle, double endAngle, const Point2D& centre) {
  m_angles.push_back({startAngle, endAngle, centre});
  update();
}

void ProfileFilters::reset() { *this = ProfileFilters(); }

bool ProfileFilters::excludes(const Point2D& p) const {
  if (!areSet()) return false;
  const std::vector<Path>& wedges = m_wedges.paths();
  return !m_rectangle.pointWithin(p) ||
         std::any_of(wedges.begin(), wedges.end(),
                     [&](const Path& wedge) { return isInsideOrOn(wedge, p); });
}

double ProfileFilters::limitOf(LineFilter kind, double unset) const {
  const auto found = m_limits.find(kind);
  return found == m_limits.end() ? unset : found->second;
}

Path ProfileFilters::allowedRectangle() const {
  const double top = limitOf(LineFilter::ExcludeAbove, kReach);
  const double bottom = limitOf(LineFilter::ExcludeBelow, -kReach);
  const double left = limitOf(LineFilter::ExcludeLeftOf, -kReach);
  const double right = limitOf(LineFilter::ExcludeRightOf, kReach);
  return ringThrough(
      {Point2D(left, bottom), Point2D(left, top), Point2D(right, top), Point2D(right, bottom)});
}

/// A triangle, not a sector.
Path ProfileFilters::wedgeOf(const AngleFilter& filter) {
  const auto corner = [&](double bearing) {
    return filter.centre + Point2D(std::sin(bearing), std::cos(bearing)) * kReach;
  };
  return ringThrough({filter.centre, corner(filter.startAngle), corner(filter.endAngle)});
}

/// The wedges are not subtracted: that would cut the rectangle in two where a wedge lies within it,
/// and points on the cut, the middle of the invert under an excluded crown, would be on the border.
void ProfileFilters::update() {
  m_rectangle = allowedRectangle();
  m_wedges = Pathes();
  for (const AngleFilter& filter : m_angles) {
    m_wedges.addPath(wedgeOf(filter));
  }
  m_wedges = Pathes::within(m_wedges, Pathes(m_rectangle));
  m_allowedArea = Pathes(m_rectangle);
  m_allowedArea.addPaths(m_wedges);
}

}  // namespace Calculations
}  // namespace Ruv
