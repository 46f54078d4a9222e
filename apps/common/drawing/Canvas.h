// SPDX-License-Identifier: BSL-1.0
/// @file
/// A page to draw on. What is drawn becomes a picture.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_CANVAS_H
#define CALCULATIONS_APPS_COMMON_DRAWING_CANVAS_H

#include "common/drawing/Picture.h"
#include "common/drawing/TextLayout.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Drawing {

/// Draws on a page in millimetres.
class Canvas {
 public:
  Canvas(double width, double height);
  /// To go on drawing.
  explicit Canvas(Picture picture) : m_picture(std::move(picture)) {}

  void line(const Point& from, const Point& to, const Pen& pen);
  void polyline(const std::vector<Point>& points, const Pen& pen);
  void polygon(const std::vector<Point>& points, const Colour& fill);
  /// Lines and arcs, which stay arcs in files that know them.
  void path(Path path, const Pen& pen);
  void area(Path path, const Colour& fill);
  /// Parallel lines inside a polygon, in step with those of other polygons.
  /// @param angle of the lines, clockwise on the page (rad)
  void hatch(const std::vector<Point>& points, double spacing, double angle, const Pen& pen);
  void rectangle(const Box& box, const Pen& pen);
  void fill(const Box& box, const Colour& colour);
  /// A ring filled with a colour.
  void circle(const Point& centre, double radius, const Pen& pen, const Colour& inside);
  /// @param rotation of the first semi-axis, clockwise on the page (rad)
  void ellipse(const Point& centre, double semiAxisA, double semiAxisB, double rotation,
               const Pen& pen);
  void raster(const Box& box, Raster raster);
  /// Shown as printable() makes it.
  void text(const Point& at, const std::string& words, const TextStyle& style);

  double textWidth(const std::string& words, const TextStyle& style);
  /// The rectangle that text() would cover.
  Outline textOutline(const Point& at, const std::string& words, const TextStyle& style);

  /// Runs a drawing of which only what lies in the box is seen. Must not be called by it.
  void clipped(const Box& box, const std::function<void()>& draw);

  const Picture& picture() const { return m_picture; }

 private:
  Picture m_picture;
  TextLayouts m_texts;
};

/// A sheet of paper and what is drawn on it.
struct Sheet {
  double width = 420.0;  ///< mm; A3 by default
  double height = 297.0;
  std::function<void(Canvas&)> draw;
};

/// Runs the drawing.
Picture pictureOf(const Sheet& sheet);

}  // namespace Drawing

#endif
