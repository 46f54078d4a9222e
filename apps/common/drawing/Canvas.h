/// @file
/// A page to draw on, and the files it is saved to.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_CANVAS_H
#define CALCULATIONS_APPS_COMMON_DRAWING_CANVAS_H

#include "common/drawing/Geometry.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

using cairo_t = struct _cairo;  // NOLINT(bugprone-reserved-identifier): the name is cairo's

namespace Drawing {

/// Components from 0 to 1.
struct Colour {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
};

struct Pen {
  Colour colour;
  double width = 0.2;          ///< mm
  std::vector<double> dashes;  ///< lengths of strokes and gaps in turn (mm); empty for a full line
};

enum class Align { Start, Middle, End };

struct TextStyle {
  double size = 3.0;  ///< of the font (mm); capitals are about 0.73 of it
  Colour colour;
  bool bold = false;
  Align horizontal = Align::Start;  ///< which part of the text stands at the given point
  Align vertical = Align::Middle;   ///< Start: the top of the capitals; End: the base line
  double angle = 0.0;               ///< clockwise on the page (rad)
  bool halo = false;                ///< white behind the letters, to be read across lines
};

/// Cells of one size, row by row from the upper left corner. One without a colour stays as it is.
struct Raster {
  int columns = 0;
  std::vector<std::optional<Colour>> cells;
};

/// Draws on a page in millimetres.
class Canvas {
 public:
  /// Draws on a surface whose units are millimetres already. Does not own it.
  explicit Canvas(cairo_t* surface) : m_surface(surface) {}

  void line(const Point& from, const Point& to, const Pen& pen);
  void polyline(const std::vector<Point>& points, const Pen& pen);
  void polygon(const std::vector<Point>& points, const Colour& fill);
  /// Parallel lines inside a polygon, in step with those of other polygons.
  /// @param angle of the lines, clockwise on the page (rad)
  void hatch(const std::vector<Point>& points, double spacing, double angle, const Pen& pen);
  void rectangle(const Box& box, const Pen& pen);
  void fill(const Box& box, const Colour& colour);
  /// A ring filled with a colour.
  void circle(const Point& centre, double radius, const Pen& pen, const Colour& inside);
  void raster(const Box& box, const Raster& raster);
  /// UTF-8; bytes that are none are shown as '?'.
  void text(const Point& at, const std::string& words, const TextStyle& style);

  double textWidth(const std::string& words, const TextStyle& style);
  /// The rectangle that text() would cover.
  Outline textOutline(const Point& at, const std::string& words, const TextStyle& style);

  /// Runs a drawing of which only what lies in the box is seen.
  void clipped(const Box& box, const std::function<void()>& draw);

 private:
  void stroke(const Pen& pen);
  void setColour(const Colour& colour);
  void selectFont(const TextStyle& style);

  cairo_t* m_surface;
};

/// A sheet of paper and the picture on it.
struct Sheet {
  double width = 420.0;  ///< mm; A3 by default
  double height = 297.0;
  std::function<void(Canvas&)> draw;
};

/// Writes the picture as path + ".svg" and path + ".png".
/// @param pixelsPerMillimetre of the PNG
/// @return why it could not be written; empty on success
std::string saveSheet(const Sheet& sheet, const std::string& path, double pixelsPerMillimetre);

/// The PNG alone, at the path as it is given.
std::string savePng(const Sheet& sheet, const std::string& path, double pixelsPerMillimetre);

/// The picture as the text of an SVG file; empty when it cannot be drawn.
std::string svgOf(const Sheet& sheet);

}  // namespace Drawing

#endif
