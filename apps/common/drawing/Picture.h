// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a sheet shows, recorded once. Files of every kind are made from it, so that the work of
/// drawing (above all finding places for labels) is done once and all files show the same.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_PICTURE_H
#define CALCULATIONS_APPS_COMMON_DRAWING_PICTURE_H

#include "common/drawing/Geometry.h"

#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace Drawing {

/// Components from 0 to 1.
struct Colour {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
};
constexpr Colour kWhite{1.0, 1.0, 1.0};

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
constexpr double kHaloWidth = 0.35;  ///< of a line around the letters, by the size of the text

/// Cells of one size, row by row from the upper left corner. One without a colour stays as it is.
struct Raster {
  int columns = 0;
  std::vector<std::optional<Colour>> cells;
};

/// A piece of a path, from where the one before ended.
struct PathStep {
  enum class Kind { Move, Line, Arc };

  Kind kind = Kind::Line;
  Point to;
  double radius = 0.0;  ///< of an arc, which is never more than a half circle
  bool isClockwise = false;
};

using Path = std::vector<PathStep>;

/// @name Shapes of a picture
/// One without a pen has no line, one without a colour inside is not filled.
/// @{
struct PathShape {
  Path path;
  std::optional<Pen> pen;
  std::optional<Colour> inside;
};

struct EllipseShape {
  Point centre;
  double semiAxisA = 0.0;
  double semiAxisB = 0.0;
  double rotation = 0.0;  ///< of the first semi-axis, clockwise on the page (rad)
  Pen pen;
  std::optional<Colour> inside;
};

struct TextShape {
  std::string words;  ///< printable UTF-8
  Point start;        ///< the left end of the base line
  double width = 0.0;
  TextStyle style;
};

struct RasterShape {
  Box box;
  Raster raster;
};

/// Of what comes until the end only the part inside the box is seen. Clips do not nest.
struct ClipStart {
  Box box;
};
struct ClipEnd {};
/// @}

using Shape = std::variant<PathShape, EllipseShape, TextShape, RasterShape, ClipStart, ClipEnd>;

struct Picture {
  double width = 0.0;  ///< mm
  double height = 0.0;
  std::vector<Shape> shapes;         ///< in the order in which they cover each other
  std::set<std::string> unreadable;  ///< texts with letters that no installed font has
};

}  // namespace Drawing

#endif
