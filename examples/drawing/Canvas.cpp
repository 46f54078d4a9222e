#include "drawing/Canvas.h"

#include <boost/locale/utf.hpp>

#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace Drawing {

namespace {

constexpr double kPointsPerMillimetre = 72.0 / 25.4;
constexpr double kFullTurn = 6.283185307179586;
constexpr Colour kWhite{1.0, 1.0, 1.0};

/// Of the font size, for the usual sans-serif fonts.
constexpr double kCapitalHeight = 0.73;
constexpr double kDescent = 0.22;
constexpr double kHaloWidth = 0.35;

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct ContextDeleter {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;
using Context = std::unique_ptr<cairo_t, ContextDeleter>;

/// Cairo refuses a whole picture for one byte that is not UTF-8, as a file in another encoding
/// has.
std::string asUtf8(const std::string& words) {
  namespace utf = boost::locale::utf;
  std::string valid;
  for (auto place = words.begin(); place != words.end();) {
    const auto start = place;
    const utf::code_point letter = utf::utf_traits<char>::decode(place, words.end());
    if (letter == utf::illegal || letter == utf::incomplete) {
      valid += '?';
      place = start + 1;
    } else {
      valid.append(start, place);
    }
  }
  return valid;
}

/// From the given point to the left end of the base line, before turning.
Point baseLineShift(double width, const TextStyle& style) {
  Point shift;
  if (style.horizontal == Align::Middle) shift.x = -width / 2.0;
  if (style.horizontal == Align::End) shift.x = -width;
  if (style.vertical == Align::Middle) shift.y = kCapitalHeight * style.size / 2.0;
  if (style.vertical == Align::Start) shift.y = kCapitalHeight * style.size;
  return shift;
}

Point turned(const Point& p, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return {c * p.x - s * p.y, s * p.x + c * p.y};
}

cairo_status_t drawOn(cairo_surface_t* surface, const Sheet& sheet, double unitsPerMillimetre) {
  const Context context(cairo_create(surface));
  cairo_scale(context.get(), unitsPerMillimetre, unitsPerMillimetre);
  Canvas canvas(context.get());
  canvas.fill({0.0, 0.0, sheet.width, sheet.height}, kWhite);
  sheet.draw(canvas);
  return cairo_status(context.get());
}

cairo_status_t saveSvg(const Sheet& sheet, const std::string& path) {
  const Surface surface(cairo_svg_surface_create(path.c_str(), sheet.width * kPointsPerMillimetre,
                                                 sheet.height * kPointsPerMillimetre));
  const cairo_status_t drawn = drawOn(surface.get(), sheet, kPointsPerMillimetre);
  cairo_surface_finish(surface.get());
  const cairo_status_t written = cairo_surface_status(surface.get());
  return written != CAIRO_STATUS_SUCCESS ? written : drawn;
}

cairo_status_t savePng(const Sheet& sheet, const std::string& path, double pixelsPerMillimetre) {
  const auto pixels = [pixelsPerMillimetre](double millimetres) {
    return static_cast<int>(std::lround(millimetres * pixelsPerMillimetre));
  };
  const Surface surface(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(sheet.width), pixels(sheet.height)));
  const cairo_status_t drawn = drawOn(surface.get(), sheet, pixelsPerMillimetre);
  const cairo_status_t written = cairo_surface_write_to_png(surface.get(), path.c_str());
  return written != CAIRO_STATUS_SUCCESS ? written : drawn;
}

}  // namespace

void Canvas::setColour(const Colour& colour) {
  cairo_set_source_rgb(m_surface, colour.red, colour.green, colour.blue);
}

void Canvas::stroke(const Pen& pen) {
  setColour(pen.colour);
  cairo_set_line_width(m_surface, pen.width);
  cairo_set_line_join(m_surface, CAIRO_LINE_JOIN_ROUND);
  cairo_set_dash(m_surface, pen.dashes.data(), static_cast<int>(pen.dashes.size()), 0.0);
  cairo_stroke(m_surface);
}

void Canvas::line(const Point& from, const Point& to, const Pen& pen) { polyline({from, to}, pen); }

void Canvas::polyline(const std::vector<Point>& points, const Pen& pen) {
  cairo_new_path(m_surface);
  for (const Point& point : points) {
    cairo_line_to(m_surface, point.x, point.y);
  }
  stroke(pen);
}

void Canvas::polygon(const std::vector<Point>& points, const Colour& fill) {
  cairo_new_path(m_surface);
  for (const Point& point : points) {
    cairo_line_to(m_surface, point.x, point.y);
  }
  setColour(fill);
  cairo_fill(m_surface);
}

void Canvas::rectangle(const Box& box, const Pen& pen) {
  cairo_new_path(m_surface);
  cairo_rectangle(m_surface, box.left, box.top, box.width(), box.height());
  stroke(pen);
}

void Canvas::fill(const Box& box, const Colour& colour) {
  cairo_new_path(m_surface);
  cairo_rectangle(m_surface, box.left, box.top, box.width(), box.height());
  setColour(colour);
  cairo_fill(m_surface);
}

void Canvas::circle(const Point& centre, double radius, const Pen& pen, const Colour& inside) {
  cairo_new_path(m_surface);
  cairo_arc(m_surface, centre.x, centre.y, radius, 0.0, kFullTurn);
  setColour(inside);
  cairo_fill_preserve(m_surface);
  stroke(pen);
}

void Canvas::selectFont(const TextStyle& style) {
  cairo_select_font_face(m_surface, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                         style.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(m_surface, style.size);
  // Without this letters stand on whole pixels, and the two files differ.
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_set_font_options(m_surface, options);
  cairo_font_options_destroy(options);
}

double Canvas::textWidth(const std::string& words, const TextStyle& style) {
  selectFont(style);
  cairo_text_extents_t extents{};
  cairo_text_extents(m_surface, asUtf8(words).c_str(), &extents);
  return extents.x_advance;
}

void Canvas::text(const Point& at, const std::string& words, const TextStyle& style) {
  const Point shift = baseLineShift(textWidth(words, style), style);
  const std::string valid = asUtf8(words);
  cairo_save(m_surface);
  cairo_translate(m_surface, at.x, at.y);
  cairo_rotate(m_surface, style.angle);
  if (style.halo) {
    cairo_new_path(m_surface);
    cairo_move_to(m_surface, shift.x, shift.y);
    cairo_text_path(m_surface, valid.c_str());
    stroke({kWhite, kHaloWidth * style.size, {}});
  }
  setColour(style.colour);
  cairo_move_to(m_surface, shift.x, shift.y);
  cairo_show_text(m_surface, valid.c_str());
  cairo_restore(m_surface);
}

Outline Canvas::textOutline(const Point& at, const std::string& words, const TextStyle& style) {
  const double width = textWidth(words, style);
  const Point start = baseLineShift(width, style);
  const double top = start.y - kCapitalHeight * style.size;
  const double bottom = start.y + kDescent * style.size;
  Outline outline = outlineOfBox({start.x, top, start.x + width, bottom});
  for (Point& corner : outline) {
    corner = at + turned(corner, style.angle);
  }
  return outline;
}

void Canvas::clipped(const Box& box, const std::function<void()>& draw) {
  cairo_save(m_surface);
  cairo_new_path(m_surface);
  cairo_rectangle(m_surface, box.left, box.top, box.width(), box.height());
  cairo_clip(m_surface);
  draw();
  cairo_restore(m_surface);
}

std::string saveSheet(const Sheet& sheet, const std::string& path, double pixelsPerMillimetre) {
  const std::string svg = path + ".svg";
  const std::string png = path + ".png";
  cairo_status_t status = saveSvg(sheet, svg);
  if (status != CAIRO_STATUS_SUCCESS) return svg + ": " + cairo_status_to_string(status);
  status = savePng(sheet, png, pixelsPerMillimetre);
  if (status != CAIRO_STATUS_SUCCESS) return png + ": " + cairo_status_to_string(status);
  return {};
}

}  // namespace Drawing
