// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/CairoRenderer.h"

#include "common/drawing/TextLayout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace Drawing {

namespace {

struct ContextDeleter {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};

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

/// Its ends are then joined like its other corners.
bool isClosed(const Path& path) {
  const Point& start = path.front().to;
  const Point& end = path.back().to;
  return path.size() > 2 && start.x == end.x && start.y == end.y;
}

/// Paints the shapes of a picture one by one.
class Painter {
 public:
  explicit Painter(cairo_t* context) : m_context(context) {}

  void operator()(const PathShape& shape) {
    cairo_new_path(m_context);
    for (const PathStep& step : shape.path) {
      append(step);
    }
    if (isClosed(shape.path)) cairo_close_path(m_context);
    paintPath(shape.pen, shape.inside);
  }

  void operator()(const EllipseShape& shape) {
    cairo_new_path(m_context);
    cairo_save(m_context);  // the pen must not be squeezed with the circle
    cairo_translate(m_context, shape.centre.x, shape.centre.y);
    cairo_rotate(m_context, shape.rotation);
    cairo_scale(m_context, shape.semiAxisA, shape.semiAxisB);
    cairo_arc(m_context, 0.0, 0.0, 1.0, 0.0, kFullTurn);
    cairo_restore(m_context);
    cairo_close_path(m_context);
    paintPath(shape.pen, shape.inside);
  }

  void operator()(const TextShape& shape) {
    cairo_save(m_context);
    cairo_translate(m_context, shape.start.x, shape.start.y);
    cairo_rotate(m_context, shape.style.angle);
    if (shape.style.halo) {
      cairo_new_path(m_context);
      m_texts.appendOutline(m_context, shape.words, shape.style);
      paintPath(Pen{kWhite, kHaloWidth * shape.style.size, {}}, {});
    }
    setColour(shape.style.colour);
    m_texts.show(m_context, shape.words, shape.style);
    cairo_restore(m_context);
  }

  void operator()(const RasterShape& shape) {
    const Surface image = imageOf(shape.raster);
    cairo_save(m_context);
    cairo_translate(m_context, shape.box.left, shape.box.top);
    cairo_scale(m_context, shape.box.width() / cairo_image_surface_get_width(image.get()),
                shape.box.height() / cairo_image_surface_get_height(image.get()));
    cairo_set_source_surface(m_context, image.get(), 0.0, 0.0);
    cairo_pattern_set_filter(cairo_get_source(m_context), CAIRO_FILTER_NEAREST);
    cairo_paint(m_context);
    cairo_restore(m_context);
  }

  void operator()(const ClipStart& clip) {
    cairo_save(m_context);
    cairo_new_path(m_context);
    cairo_rectangle(m_context, clip.box.left, clip.box.top, clip.box.width(), clip.box.height());
    cairo_clip(m_context);
  }

  void operator()(const ClipEnd& /*clip*/) { cairo_restore(m_context); }

 private:
  void append(const PathStep& step) {
    const Point& to = step.to;
    if (step.kind == PathStep::Kind::Move) {
      cairo_move_to(m_context, to.x, to.y);
    } else if (step.kind == PathStep::Kind::Line || !appendArc(step)) {
      cairo_line_to(m_context, to.x, to.y);
    }
  }

  /// @return false for an arc without length or curvature
  bool appendArc(const PathStep& step) {
    Point from;
    cairo_get_current_point(m_context, &from.x, &from.y);
    const double half = length(step.to - from) / 2.0;
    if (!(half > 0.0)) return false;
    const double radius = std::max(step.radius, half);
    const Point toCentre = rightOf(unit(step.to - from)) * std::sqrt(radius * radius - half * half);
    const Point middle = (from + step.to) * 0.5;
    const Point centre = step.isClockwise ? middle + toCentre : middle - toCentre;
    const double start = std::atan2(from.y - centre.y, from.x - centre.x);
    const double end = std::atan2(step.to.y - centre.y, step.to.x - centre.x);
    if (step.isClockwise) {
      cairo_arc(m_context, centre.x, centre.y, radius, start, end);
    } else {
      cairo_arc_negative(m_context, centre.x, centre.y, radius, start, end);
    }
    return true;
  }

  void setColour(const Colour& colour) {
    cairo_set_source_rgb(m_context, colour.red, colour.green, colour.blue);
  }

  void paintPath(const std::optional<Pen>& pen, const std::optional<Colour>& inside) {
    if (inside) {
      setColour(*inside);
      cairo_fill_preserve(m_context);
    }
    if (pen) {
      setColour(pen->colour);
      cairo_set_line_width(m_context, pen->width);
      cairo_set_line_join(m_context, CAIRO_LINE_JOIN_ROUND);
      cairo_set_dash(m_context, pen->dashes.data(), static_cast<int>(pen->dashes.size()), 0.0);
      cairo_stroke_preserve(m_context);
    }
    cairo_new_path(m_context);
  }

  cairo_t* m_context;
  TextLayouts m_texts;
};

}  // namespace

void paint(const Picture& picture, cairo_surface_t* surface, double unitsPerMillimetre) {
  const std::unique_ptr<cairo_t, ContextDeleter> context(cairo_create(surface));
  // All of the surface: the page may end inside its last row and column of pixels.
  cairo_set_source_rgb(context.get(), kWhite.red, kWhite.green, kWhite.blue);
  cairo_paint(context.get());
  cairo_scale(context.get(), unitsPerMillimetre, unitsPerMillimetre);
  Painter painter(context.get());
  for (const Shape& shape : picture.shapes) {
    std::visit(painter, shape);
  }
  const cairo_status_t status = cairo_status(context.get());
  if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

}  // namespace Drawing
