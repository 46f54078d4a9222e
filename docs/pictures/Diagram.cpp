// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"

#include <algorithm>
#include <cmath>

namespace ConventionPictures {

namespace {

constexpr double kTextSize = 3.4;
constexpr double kHeadLength = 2.4;
constexpr double kHeadWidth = 1.5;

}  // namespace

Pen subject() { return {kInk, 0.7, {}}; }
Pen helper() { return {kGrey, 0.25, {1.6, 1.1}}; }
Pen mark() { return {kBlue, 0.4, {}}; }
Pen second() { return {kOrange, 0.4, {}}; }

Point polar(const Point& from, double bearing, double distance) {
  return from + Point{std::sin(bearing), std::cos(bearing)} * distance;
}

std::vector<Point> arc(const Point& centre, double radius, double fromBearing, double toBearing) {
  constexpr int kPieces = 60;
  std::vector<Point> points;
  for (int i = 0; i <= kPieces; ++i) {
    const double bearing = fromBearing + (toBearing - fromBearing) * i / kPieces;
    points.push_back(polar(centre, bearing, radius));
  }
  return points;
}

Point Diagram::page(const Point& p) const { return m_origin + Point{p.x, -p.y} * m_scale; }

void Diagram::title(const std::string& words) const {
  Drawing::TextStyle style;
  style.size = kTextSize + 0.4;
  style.colour = kInk;
  style.bold = true;
  style.horizontal = Align::Middle;
  m_canvas->text({m_origin.x, 7.0}, words, style);
}

void Diagram::line(const Point& from, const Point& to, const Pen& pen) const {
  m_canvas->line(page(from), page(to), pen);
}

std::vector<Point> Diagram::page(const std::vector<Point>& points) const {
  std::vector<Point> onPage;
  onPage.reserve(points.size());
  for (const Point& point : points) {
    onPage.push_back(page(point));
  }
  return onPage;
}

void Diagram::curve(const std::vector<Point>& points, const Pen& pen) const {
  m_canvas->polyline(page(points), pen);
}

void Diagram::area(const std::vector<Point>& points, const Colour& fill) const {
  m_canvas->polygon(page(points), fill);
}

void Diagram::arrow(const Point& from, const Point& to, const Pen& pen) const {
  const Point direction = Drawing::unit(page(to) - page(from));
  m_canvas->line(page(from), page(to) - direction * (0.8 * kHeadLength), pen);
  arrowHead(page(to), direction, pen);
}

void Diagram::turn(const Point& centre, double radius, double fromBearing, double toBearing,
                   const Pen& pen) const {
  const double sense = toBearing < fromBearing ? -1.0 : 1.0;
  // The head is straight and the arc is not: it starts where the arc would leave it.
  const double headTurn = 0.9 * kHeadLength / std::max(radius * m_scale, kHeadLength);
  const double base = toBearing - sense * headTurn;
  curve(arc(centre, radius, fromBearing, base), pen);
  const Point tip = page(polar(centre, toBearing, radius));
  arrowHead(tip, Drawing::unit(tip - page(polar(centre, base, radius))), pen);
}

void Diagram::arrowHead(const Point& tip, const Point& direction, const Pen& pen) const {
  const Point base = tip - direction * kHeadLength;
  const Point aside = Drawing::rightOf(direction) * (kHeadWidth / 2.0);
  m_canvas->polygon({tip, base + aside, base - aside}, pen.colour);
}

void Diagram::dot(const Point& at, const Colour& colour) const {
  m_canvas->circle(page(at), 0.9, {colour, 0.2, {}}, colour);
}

void Diagram::label(const Point& at, const std::string& words, const Colour& colour,
                    Align horizontal) const {
  Drawing::TextStyle style;
  style.size = kTextSize;
  style.colour = colour;
  style.horizontal = horizontal;
  style.halo = true;
  m_canvas->text(page(at), words, style);
}

}  // namespace ConventionPictures
