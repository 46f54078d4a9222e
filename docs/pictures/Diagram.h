// SPDX-License-Identifier: BSL-1.0
/// @file
/// A sketch in a frame of its own, with the marks that show signs and angles.

#ifndef CALCULATIONS_DOCS_PICTURES_DIAGRAM_H
#define CALCULATIONS_DOCS_PICTURES_DIAGRAM_H

#include "common/drawing/Canvas.h"

#include <string>
#include <vector>

namespace ConventionPictures {

using Drawing::Align;
using Drawing::Colour;
using Drawing::Pen;
using Drawing::Point;

constexpr Colour kInk{0.13, 0.15, 0.18};
constexpr Colour kGrey{0.55, 0.58, 0.62};
constexpr Colour kBlue{0.05, 0.35, 0.70};
constexpr Colour kOrange{0.85, 0.37, 0.00};

/// Pens by what they draw.
Pen subject();  ///< the axis, the profile, the vector
Pen helper();   ///< extensions and references
Pen mark();     ///< what is positive
Pen second();   ///< what is set against the mark

/// x runs to the right, y up, bearings clockwise from y.
class Diagram {
 public:
  /// @param origin where (0, 0) stands on the page
  Diagram(Drawing::Canvas& canvas, const Point& origin, double millimetresPerUnit)
      : m_canvas(&canvas), m_origin(origin), m_scale(millimetresPerUnit) {}

  void title(const std::string& words) const;
  void line(const Point& from, const Point& to, const Pen& pen) const;
  void curve(const std::vector<Point>& points, const Pen& pen) const;
  void area(const std::vector<Point>& points, const Colour& fill) const;
  void arrow(const Point& from, const Point& to, const Pen& pen) const;
  /// A turn about a centre with its arrow head at the end; anticlockwise when the end is less.
  void turn(const Point& centre, double radius, double fromBearing, double toBearing,
            const Pen& pen) const;
  void dot(const Point& at, const Colour& colour) const;
  /// The part of the words that stands at the point: their start, middle or end.
  void label(const Point& at, const std::string& words, const Colour& colour,
             Align horizontal = Align::Middle) const;

 private:
  Point page(const Point& p) const;
  std::vector<Point> page(const std::vector<Point>& points) const;
  void arrowHead(const Point& tip, const Point& direction, const Pen& pen) const;

  Drawing::Canvas* m_canvas;
  Point m_origin;
  double m_scale;
};

/// The point at a distance and bearing from another.
Point polar(const Point& from, double bearing, double distance);

/// Points of an arc about a centre, anticlockwise when the end is less.
std::vector<Point> arc(const Point& centre, double radius, double fromBearing, double toBearing);

}  // namespace ConventionPictures

#endif
