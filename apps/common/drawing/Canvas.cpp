#include "common/drawing/Canvas.h"

#include <boost/locale/utf.hpp>

#include <cairo-svg.h>
#include <cairo.h>
#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <string_view>

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

cairo_status_t append(void* text, const unsigned char* bytes, unsigned int count) {
  static_cast<std::string*>(text)->append(bytes, bytes + count);
  return CAIRO_STATUS_SUCCESS;
}

/// Cuts the decimals of all numbers in a text.
void appendWithFewDecimals(std::string& result, std::string_view text) {
  constexpr std::size_t kDecimals = 3;  // of a point or a millimetre; cairo writes six
  std::size_t start = 0;
  for (std::size_t point = text.find('.'); point < text.size(); point = text.find('.', start)) {
    const std::size_t end = std::min(text.find_first_not_of("0123456789", point + 1), text.size());
    result.append(text, start, std::min(end, point + 1 + kDecimals) - start);
    start = end;
  }
  result.append(text, start);
}

/// A third smaller. Matrices stay as they are, since they multiply what they are applied to.
std::string withFewDecimals(std::string_view svg) {
  std::string result;
  result.reserve(svg.size());
  std::size_t start = 0;
  for (std::size_t matrix = svg.find("matrix("); matrix < svg.size();
       matrix = svg.find("matrix(", start)) {
    appendWithFewDecimals(result, svg.substr(start, matrix - start));
    start = std::min(svg.find(')', matrix), svg.size());
    result.append(svg, matrix, start - matrix);
  }
  appendWithFewDecimals(result, svg.substr(start));
  return result;
}

std::vector<png_byte> rgbBytesOf(cairo_surface_t* image) {
  const auto columns = static_cast<std::size_t>(cairo_image_surface_get_width(image));
  const auto rows = static_cast<std::size_t>(cairo_image_surface_get_height(image));
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image));
  const unsigned char* data = cairo_image_surface_get_data(image);
  std::vector<png_byte> bytes;
  bytes.reserve(3 * columns * rows);
  for (std::size_t i = 0; i < columns * rows; ++i) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, data + i / columns * stride + i % columns * sizeof pixel, sizeof pixel);
    for (const unsigned shift : {16U, 8U, 0U}) {
      bytes.push_back(static_cast<png_byte>(pixel >> shift & 0xFFU));
    }
  }
  return bytes;
}

/// Without the filters that cairo's own writer tries: on line drawings they cost three quarters of
/// the time and save nothing.
/// @return why it could not be written; empty on success
std::string writePng(cairo_surface_t* image, const std::string& path) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  png.width = static_cast<png_uint_32>(cairo_image_surface_get_width(image));
  png.height = static_cast<png_uint_32>(cairo_image_surface_get_height(image));
  png.format = PNG_FORMAT_RGB;
  png.flags = PNG_IMAGE_FLAG_FAST;
  const std::vector<png_byte> bytes = rgbBytesOf(image);
  if (png_image_write_to_file(&png, path.c_str(), 0, bytes.data(), 0, nullptr) != 0) return {};
  return path + ": " + static_cast<const char*>(png.message);
}

std::uint32_t pixelOf(const std::optional<Colour>& colour) {
  if (!colour) return 0;
  std::uint32_t pixel = 0xFF;  // opaque
  for (const double component : {colour->red, colour->green, colour->blue}) {
    const double level = std::clamp(255.0 * component, 0.0, 255.0);
    pixel = pixel << 8U | static_cast<std::uint32_t>(std::lround(level));
  }
  return pixel;
}

Surface imageOf(const Raster& raster) {
  const int rows = static_cast<int>(raster.cells.size()) / raster.columns;
  Surface image(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, raster.columns, rows));
  if (cairo_surface_status(image.get()) != CAIRO_STATUS_SUCCESS) return image;
  unsigned char* bytes = cairo_image_surface_get_data(image.get());
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image.get()));
  const auto columns = static_cast<std::size_t>(raster.columns);
  for (std::size_t i = 0; i < columns * static_cast<std::size_t>(rows); ++i) {
    const std::uint32_t pixel = pixelOf(raster.cells[i]);
    std::memcpy(bytes + i / columns * stride + i % columns * sizeof pixel, &pixel, sizeof pixel);
  }
  cairo_surface_mark_dirty(image.get());
  return image;
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

void Canvas::hatch(const std::vector<Point>& points, double spacing, double angle, const Pen& pen) {
  if (points.empty()) return;
  const Point along{std::cos(angle), std::sin(angle)};
  const Point across = rightOf(along);
  double reach = 0.0;  // from the first point
  for (const Point& point : points) {
    reach = std::max(reach, length(point - points.front()));
  }
  cairo_save(m_surface);
  cairo_new_path(m_surface);
  for (const Point& point : points) {
    cairo_line_to(m_surface, point.x, point.y);
  }
  cairo_clip(m_surface);
  const double middle = across.x * points.front().x + across.y * points.front().y;
  const double onLine = along.x * points.front().x + along.y * points.front().y;
  for (const double distance : multiplesWithin(middle - reach, middle + reach, spacing)) {
    const Point foot = across * distance + along * onLine;
    line(foot - along * reach, foot + along * reach, pen);
  }
  cairo_restore(m_surface);
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

void Canvas::raster(const Box& box, const Raster& raster) {
  if (raster.columns <= 0 || raster.cells.empty()) return;
  const Surface image = imageOf(raster);
  cairo_save(m_surface);
  cairo_translate(m_surface, box.left, box.top);
  cairo_scale(m_surface, box.width() / cairo_image_surface_get_width(image.get()),
              box.height() / cairo_image_surface_get_height(image.get()));
  cairo_set_source_surface(m_surface, image.get(), 0.0, 0.0);
  cairo_pattern_set_filter(cairo_get_source(m_surface), CAIRO_FILTER_NEAREST);
  cairo_paint(m_surface);
  cairo_restore(m_surface);
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
  const std::string svg = svgOf(sheet);
  if (svg.empty()) return path + ".svg: cannot be drawn";
  std::ofstream file(path + ".svg", std::ios::binary);
  file << svg;
  file.close();
  if (!file) return path + ".svg: cannot be written";
  return savePng(sheet, path + ".png", pixelsPerMillimetre);
}

std::string savePng(const Sheet& sheet, const std::string& path, double pixelsPerMillimetre) {
  const auto pixels = [pixelsPerMillimetre](double millimetres) {
    return static_cast<int>(std::lround(millimetres * pixelsPerMillimetre));
  };
  const Surface surface(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(sheet.width), pixels(sheet.height)));
  const cairo_status_t status = drawOn(surface.get(), sheet, pixelsPerMillimetre);
  if (status != CAIRO_STATUS_SUCCESS) return path + ": " + cairo_status_to_string(status);
  cairo_surface_flush(surface.get());
  return writePng(surface.get(), path);
}

std::string svgOf(const Sheet& sheet) {
  std::string text;
  const Surface surface(cairo_svg_surface_create_for_stream(
      append, &text, sheet.width * kPointsPerMillimetre, sheet.height * kPointsPerMillimetre));
  const cairo_status_t drawn = drawOn(surface.get(), sheet, kPointsPerMillimetre);
  cairo_surface_finish(surface.get());
  return drawn == CAIRO_STATUS_SUCCESS ? withFewDecimals(text) : std::string();
}

}  // namespace Drawing
