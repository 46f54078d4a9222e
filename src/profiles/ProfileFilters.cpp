#include "profiles/ProfileFilters.h"

#include "profiles/ProfileReach.h"

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
  return areSet() && !m_allowedArea.pointWithin(p);
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

void ProfileFilters::update() {
  m_allowedArea = Pathes(allowedRectangle());
  if (m_angles.empty()) return;
  Pathes wedges;
  for (const AngleFilter& filter : m_angles) {
    wedges.addPath(wedgeOf(filter));
  }
  m_allowedArea = Pathes::without(m_allowedArea, wedges);
}

}  // namespace Calculations
}  // namespace Ruv
