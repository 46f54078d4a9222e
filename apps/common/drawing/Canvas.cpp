// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/Canvas.h"

#include "common/drawing/PrintableText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Drawing {

namespace {

/// Of the font size, for the usual sans-serif fonts.
constexpr double kCapitalHeight = 0.73;
constexpr double kDescent = 0.22;

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
  if (angle == 0.0) return p;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return {c * p.x - s * p.y, s * p.x + c * p.y};
}

Path pathThrough(const std::vector<Point>& points) {
  Path path;
  path.reserve(points.size());
  for (const Point& point : points) {
    path.push_back({path.empty() ? PathStep::Kind::Move : PathStep::Kind::Line, point});
  }
  return path;
}

Path pathAround(const Box& box) {
  const Outline corners = outlineOfBox(box);
  return pathThrough({corners[0], corners[1], corners[2], corners[3], corners[0]});
}

/// Where a line crosses the sides of a polygon: distances along it from the foot, ascending. An
/// even number, since the two ends of a side lie on the same or on different sides of the line.
std::vector<double> crossings(const Point& foot, const Point& along,
                              const std::vector<Point>& polygon) {
  const Point across = rightOf(along);
  const auto beside = [&](const Point& p) {
    return (p.x - foot.x) * across.x + (p.y - foot.y) * across.y;
  };
  const auto ahead = [&](const Point& p) {
    return (p.x - foot.x) * along.x + (p.y - foot.y) * along.y;
  };
  std::vector<double> places;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point& a = polygon[i];
    const Point& b = polygon[(i + 1) % polygon.size()];
    const double besideA = beside(a);
    const double besideB = beside(b);
    if ((besideA > 0.0) == (besideB > 0.0)) continue;
    places.push_back(ahead(a) + (ahead(b) - ahead(a)) * besideA / (besideA - besideB));
  }
  std::sort(places.begin(), places.end());
  return places;
}

}  // namespace

Canvas::Canvas(double width, double height) {
  m_picture.width = width;
  m_picture.height = height;
}

void Canvas::line(const Point& from, const Point& to, const Pen& pen) { polyline({from, to}, pen); }

void Canvas::polyline(const std::vector<Point>& points, const Pen& pen) {
  path(pathThrough(points), pen);
}

void Canvas::path(Path path, const Pen& pen) {
  if (!path.empty()) m_picture.shapes.emplace_back(PathShape{std::move(path), pen, {}});
}

void Canvas::area(Path path, const Colour& fill) {
  if (!path.empty()) m_picture.shapes.emplace_back(PathShape{std::move(path), {}, fill});
}

void Canvas::polygon(const std::vector<Point>& points, const Colour& fill) {
  area(pathThrough(points), fill);
}

void Canvas::hatch(const std::vector<Point>& points, double spacing, double angle, const Pen& pen) {
  if (points.empty()) return;
  const Point along{std::cos(angle), std::sin(angle)};
  const Point across = rightOf(along);
  const auto beside = [&across](const Point& p) { return across.x * p.x + across.y * p.y; };
  const auto less = [&beside](const Point& a, const Point& b) { return beside(a) < beside(b); };
  const auto [lowest, highest] = std::minmax_element(points.begin(), points.end(), less);
  Path lines;
  for (const double distance : multiplesWithin(beside(*lowest), beside(*highest), spacing)) {
    const Point foot = across * distance;
    const std::vector<double> places = crossings(foot, along, points);
    for (std::size_t i = 1; i < places.size(); i += 2) {
      lines.push_back({PathStep::Kind::Move, foot + along * places[i - 1]});
      lines.push_back({PathStep::Kind::Line, foot + along * places[i]});
    }
  }
  path(std::move(lines), pen);
}

void Canvas::rectangle(const Box& box, const Pen& pen) { path(pathAround(box), pen); }

void Canvas::fill(const Box& box, const Colour& colour) { area(pathAround(box), colour); }

void Canvas::circle(const Point& centre, double radius, const Pen& pen, const Colour& inside) {
  m_picture.shapes.emplace_back(EllipseShape{centre, radius, radius, 0.0, pen, inside});
}

void Canvas::ellipse(const Point& centre, double semiAxisA, double semiAxisB, double rotation,
                     const Pen& pen) {
  m_picture.shapes.emplace_back(EllipseShape{centre, semiAxisA, semiAxisB, rotation, pen, {}});
}

void Canvas::raster(const Box& box, Raster raster) {
  if (raster.columns <= 0 || raster.cells.empty()) return;
  m_picture.shapes.emplace_back(RasterShape{box, std::move(raster)});
}

double Canvas::textWidth(const std::string& words, const TextStyle& style) {
  return m_texts.extentOf(printable(words), style).width;
}

void Canvas::text(const Point& at, const std::string& words, const TextStyle& style) {
  const std::string shown = printable(words);
  if (shown.empty()) return;
  const TextLayouts::Extent& extent = m_texts.extentOf(shown, style);
  if (!extent.isReadable) m_picture.unreadable.insert(shown);
  const Point shift = baseLineShift(extent.width, style);
  m_picture.shapes.emplace_back(
      TextShape{shown, at + turned(shift, style.angle), extent.width, style});
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
  m_picture.shapes.emplace_back(ClipStart{box});
  draw();
  m_picture.shapes.emplace_back(ClipEnd{});
}

Picture pictureOf(const Sheet& sheet) {
  Canvas canvas(sheet.width, sheet.height);
  sheet.draw(canvas);
  return canvas.picture();
}

}  // namespace Drawing
