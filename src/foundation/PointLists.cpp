// SPDX-License-Identifier: BSL-1.0
#include <Calculations/PointLists.h>

namespace Ruv {
namespace Calculations {

Polyline::Polyline() = default;

Polyline::Polyline(const std::vector<Point2D>& points) : m_points(points) {}

Polyline::Polyline(const Polyline& other) = default;

/// Copies before it changes anything, so that the line stays as it is when memory runs out.
Polyline& Polyline::operator=(const Polyline& other) {
  std::vector<Point2D> copies = other.m_points;
  m_points.swap(copies);
  return *this;
}

Polyline::~Polyline() = default;

std::vector<Point2D> Polyline::points() const { return m_points; }

Polygon::Polygon() = default;

Polygon::Polygon(const std::vector<Point2D>& points) : m_points(points) {}

Polygon::Polygon(const Polygon& other) = default;

/// As that of lines.
Polygon& Polygon::operator=(const Polygon& other) {
  std::vector<Point2D> copies = other.m_points;
  m_points.swap(copies);
  return *this;
}

Polygon::~Polygon() = default;

std::vector<Point2D> Polygon::points() const { return m_points; }

}  // namespace Calculations
}  // namespace Ruv
