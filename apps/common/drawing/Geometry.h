// SPDX-License-Identifier: BSL-1.0
/// @file
/// Points and boxes of a drawing, and the mapping from the world onto the page.
///
/// The page is measured in millimetres from its upper left corner, x to the right, y down. The
/// world has x (east, stationing) to the right and y (north, height) up.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_GEOMETRY_H
#define CALCULATIONS_APPS_COMMON_DRAWING_GEOMETRY_H

#include <array>
#include <vector>

namespace Drawing {

constexpr double kFullTurn = 6.283185307179586;  // radians
constexpr double kDegreesPerRadian = 57.29577951308232;

struct Point {
  double x = 0.0;
  double y = 0.0;
};

Point operator+(const Point& a, const Point& b);
Point operator-(const Point& a, const Point& b);
Point operator*(const Point& a, double factor);
double length(const Point& vector);
/// In the direction of the vector with length 1; to the right for a zero vector.
Point unit(const Point& vector);
/// The vector turned by a quarter turn: to the right of it on the page.
Point rightOf(const Point& vector);

/// A box of the page.
struct Box {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;

  double width() const { return right - left; }
  double height() const { return bottom - top; }
  Point centre() const { return {(left + right) / 2.0, (top + bottom) / 2.0}; }
  bool contains(const Point& point) const;
  /// Smaller by a margin on every side.
  Box inset(double margin) const;
};

/// A rectangle in any position, its corners in turn.
using Outline = std::array<Point, 4>;

/// The rectangle of a width about a line.
Outline outlineOfLine(const Point& from, const Point& to, double width);
Outline outlineOfBox(const Box& box);
/// Larger by a margin on every side.
Outline grown(const Outline& outline, double margin);
bool overlap(const Outline& a, const Outline& b);

/// Maps world coordinates onto the page and back.
class WorldMapping {
 public:
  /// A map: one scale, turned so that a bearing (radians, clockwise from the world's y) runs to
  /// the right on the page.
  static WorldMapping map(const Point& world, const Point& page, double millimetresPerUnit,
                          double bearingToTheRight);
  /// A diagram: each axis with its own scale.
  static WorldMapping diagram(const Point& world, const Point& page, double millimetresPerX,
                              double millimetresPerY);

  Point toPage(const Point& world) const;
  Point toWorld(const Point& page) const;

 private:
  WorldMapping(const Point& world, const Point& page, const Point& pageOfX, const Point& pageOfY);

  Point m_world;
  Point m_page;
  Point m_pageOfX;  // what a world unit along x is on the page
  Point m_pageOfY;
};

/// The smallest of 1, 2 and 5 times a power of ten that is not below a positive number.
double niceStep(double smallest);

/// Multiples of the step from lowest to highest. None when there would be more than 10 000.
std::vector<double> multiplesWithin(double lowest, double highest, double step);

}  // namespace Drawing

#endif
