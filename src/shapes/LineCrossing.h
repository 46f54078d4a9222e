// SPDX-License-Identifier: BSL-1.0
/// @file
/// Crossings of an infinite line with straight edges.

#ifndef CALCULATIONS_SHAPES_LINE_CROSSING_H
#define CALCULATIONS_SHAPES_LINE_CROSSING_H

#include "shapes/PlaneGeometry.h"

#include <optional>

namespace Ruv {

/// The line through two points, with places along it from the first and distances to its right.
class CLine {
 public:
  CLine(const Point2D& a, const Point2D& b)
      : m_start(a), m_length((b - a).length()), m_direction(unit(b - a, m_length)) {}

  /// False when the points coincide or are not finite.
  bool hasDirection() const { return m_length > 0.0 && std::isfinite(m_length); }
  double length() const { return m_length; }
  double placeOf(const Point2D& p) const { return forwardComponent(p - m_start, m_direction); }
  double distanceOf(const Point2D& p) const { return rightComponent(p - m_start, m_direction); }
  Point2D pointAt(double place) const {
    return m_start + Point2D(m_direction.x * place, m_direction.y * place);
  }

 private:
  /// Without direction every distance and place is zero, and nothing is crossed.
  static CDirection unit(const Point2D& v, double length) {
    return length > 0.0 ? CDirection{v.x / length, v.y / length} : CDirection{0.0, 0.0};
  }

  Point2D m_start;
  double m_length;
  CDirection m_direction;
};

/// The crossing of an edge whose ends lie at the given distances from a line. An end on the line
/// counts; an edge that lies on it has no crossing. Compute each vertex's distance once and no
/// line through a vertex is lost between its two edges.
inline std::optional<Point2D> crossingOf(const Point2D& start, double distanceStart,
                                         const Point2D& end, double distanceEnd) {
  const bool isCrossed =
      (distanceStart <= 0.0 && distanceEnd >= 0.0) || (distanceStart >= 0.0 && distanceEnd <= 0.0);
  if (!isCrossed || distanceStart == distanceEnd) return std::nullopt;
  return start + (end - start) * (distanceStart / (distanceStart - distanceEnd));
}

inline std::optional<Point2D> crossingOf(const CLine& line, const Point2D& start,
                                         const Point2D& end) {
  return crossingOf(start, line.distanceOf(start), end, line.distanceOf(end));
}

}  // namespace Ruv

#endif
