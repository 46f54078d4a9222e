// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/Geometry.h"

#include <algorithm>
#include <cmath>

namespace Drawing {

namespace {

double dot(const Point& a, const Point& b) { return a.x * b.x + a.y * b.y; }

/// True when a line square to one of the sides of a passes between the two rectangles.
bool separatedBySideOf(const Outline& a, const Outline& b) {
  for (std::size_t i = 0; i < 2; ++i) {
    const Point side = a.at(i + 1) - a.at(i);
    const auto along = [&side](const Point& p, const Point& q) {
      return dot(p, side) < dot(q, side);
    };
    const auto [lowA, highA] = std::minmax_element(a.begin(), a.end(), along);
    const auto [lowB, highB] = std::minmax_element(b.begin(), b.end(), along);
    if (dot(*highA, side) <= dot(*lowB, side) || dot(*highB, side) <= dot(*lowA, side)) return true;
  }
  return false;
}

}  // namespace

Point operator+(const Point& a, const Point& b) { return {a.x + b.x, a.y + b.y}; }

Point operator-(const Point& a, const Point& b) { return {a.x - b.x, a.y - b.y}; }

Point operator*(const Point& a, double factor) { return {a.x * factor, a.y * factor}; }

double length(const Point& vector) { return std::hypot(vector.x, vector.y); }

Point unit(const Point& vector) {
  const double size = length(vector);
  return size > 0.0 ? vector * (1.0 / size) : Point{1.0, 0.0};
}

Point rightOf(const Point& vector) { return {-vector.y, vector.x}; }

bool Box::contains(const Point& point) const {
  return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
}

Box Box::inset(double margin) const {
  return {left + margin, top + margin, right - margin, bottom - margin};
}

Outline outlineOfLine(const Point& from, const Point& to, double width) {
  const Point side = rightOf(unit(to - from)) * (width / 2.0);
  return {from - side, to - side, to + side, from + side};
}

Outline outlineOfBox(const Box& box) {
  return {Point{box.left, box.top}, Point{box.right, box.top}, Point{box.right, box.bottom},
          Point{box.left, box.bottom}};
}

Outline grown(const Outline& outline, double margin) {
  const Point along = unit(outline[1] - outline[0]) * margin;
  const Point down = rightOf(along);
  return {outline[0] - along - down, outline[1] + along - down, outline[2] + along + down,
          outline[3] - along + down};
}

bool overlap(const Outline& a, const Outline& b) {
  return !separatedBySideOf(a, b) && !separatedBySideOf(b, a);
}

WorldMapping::WorldMapping(const Point& world, const Point& page, const Point& pageOfX,
                           const Point& pageOfY)
    : m_world(world), m_page(page), m_pageOfX(pageOfX), m_pageOfY(pageOfY) {}

WorldMapping WorldMapping::map(const Point& world, const Point& page, double millimetresPerUnit,
                               double bearingToTheRight) {
  const double along = std::sin(bearingToTheRight) * millimetresPerUnit;
  const double across = std::cos(bearingToTheRight) * millimetresPerUnit;
  return {world, page, {along, across}, {across, -along}};
}

WorldMapping WorldMapping::diagram(const Point& world, const Point& page, double millimetresPerX,
                                   double millimetresPerY) {
  return {world, page, {millimetresPerX, 0.0}, {0.0, -millimetresPerY}};
}

Point WorldMapping::toPage(const Point& world) const {
  const Point difference = world - m_world;
  return m_page + m_pageOfX * difference.x + m_pageOfY * difference.y;
}

Point WorldMapping::toWorld(const Point& page) const {
  const Point difference = page - m_page;
  const double determinant = m_pageOfX.x * m_pageOfY.y - m_pageOfX.y * m_pageOfY.x;
  return m_world + Point{(difference.x * m_pageOfY.y - difference.y * m_pageOfY.x) / determinant,
                         (difference.y * m_pageOfX.x - difference.x * m_pageOfX.y) / determinant};
}

double niceStep(double smallest) {
  const double power = std::pow(10.0, std::floor(std::log10(smallest)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= smallest) return factor * power;
  }
  return 10.0 * power;
}

std::vector<double> multiplesWithin(double lowest, double highest, double step) {
  constexpr double kMostMultiples = 10000.0;
  std::vector<double> multiples;
  const double first = std::ceil(lowest / step);
  const double steps = (highest - lowest) / step;
  const int count = steps >= 0.0 && steps <= kMostMultiples ? static_cast<int>(steps) : -1;
  for (int i = 0; i <= count; ++i) {
    if ((first + i) * step <= highest) multiples.push_back((first + i) * step);
  }
  return multiples;
}

}  // namespace Drawing
