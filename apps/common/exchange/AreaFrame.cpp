// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/AreaFrame.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Exchange {

namespace {

using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileDefinition;

constexpr double kGridStep = 1e-4;

double upToGrid(double coordinate) { return std::ceil(coordinate / kGridStep) * kGridStep; }

/// How far a corner lies from the line between its neighbours. The library drops corners nearer
/// than 0.1415 mm, and chords of this size lie 0.05 mm inside and outside their arc.
constexpr double kCornerHeight = 3e-4;
constexpr double kMostPieces = 1e5;

/// The distance from the centre at which n - 1 corners between the ends of an arc of radius 1 make
/// its sector and their polygon equal: (n - 2) sin(t) q^2 + 2 sin(t) q = n t, of an angle t each.
double cornerDistance(double pieces, double angle) {
  const double sine = std::sin(angle);
  const double area = pieces * angle;
  if (pieces < 3.0) return area / (2.0 * sine);
  const double inner = pieces - 2.0;
  return (std::sqrt(sine * sine + inner * sine * area) - sine) / (inner * sine);
}

/// The corners of an arc of at most a half circle, without its ends.
/// @param radius positive for one traversed clockwise
std::vector<Point2D> cornersOf(const Point2D& start, const Point2D& end, double radius) {
  const Point2D chord = end - start;
  const double half = chord.length() / 2.0;
  if (!(half > 0.0)) return {};
  const double size = std::max(std::abs(radius), half);
  const double turn = 2.0 * std::asin(half / size);
  const double pieces =
      std::min(std::ceil(turn * size / std::sqrt(2.0 * size * kCornerHeight)), kMostPieces);
  const double side = std::copysign(1.0, radius);
  // The centre lies to the right of the way when it is clockwise.
  const Point2D right = Point2D(chord.y, -chord.x) / (2.0 * half);
  const Point2D centre =
      (start + end) / 2.0 + right * (side * std::sqrt(size * size - half * half));
  const Point2D arm = (start - centre) * cornerDistance(pieces, turn / pieces);
  std::vector<Point2D> corners;
  for (double i = 1.0; i < pieces; ++i) {
    const double angle = -side * turn * i / pieces;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    corners.push_back(centre + Point2D(c * arm.x - s * arm.y, s * arm.x + c * arm.y));
  }
  return corners;
}

double onGrid(double coordinate) { return std::round(coordinate / kGridStep) * kGridStep; }

/// Of the closed polygon, positive counterclockwise.
double areaOf(const std::vector<Point2D>& corners) {
  double area = 0.0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point2D a = corners[i] - corners.front();
    const Point2D b = corners[(i + 1) % corners.size()] - corners.front();
    area += (a.x * b.y - b.x * a.y) / 2.0;
  }
  return area;
}

/// Puts the corners on the grid. Rounding changes the area by some 1 cm2; a few corners then move
/// by one more step each, where that brings it nearer to what it was.
std::vector<Point2D> cornersOnGrid(const std::vector<Point2D>& corners) {
  std::vector<Point2D> placed;
  placed.reserve(corners.size());
  for (const Point2D& corner : corners) {
    placed.emplace_back(onGrid(corner.x), onGrid(corner.y));
  }
  double missing = areaOf(corners) - areaOf(placed);
  for (std::size_t i = 0; i < placed.size(); ++i) {
    const Point2D across =
        placed[(i + 1) % placed.size()] - placed[(i + placed.size() - 1) % placed.size()];
    for (const Point2D& step : {Point2D(kGridStep, 0.0), Point2D(-kGridStep, 0.0),
                                Point2D(0.0, kGridStep), Point2D(0.0, -kGridStep)}) {
      const double gain = (step.x * across.y - step.y * across.x) / 2.0;
      if (!(std::abs(missing - gain) < std::abs(missing))) continue;
      placed[i] = placed[i] + step;
      missing -= gain;
      break;
    }
  }
  return placed;
}

}  // namespace

AreaFrame::AreaFrame(const DesignProfile& design, const std::vector<Point2D>& points, double reach)
    : m_design(design) {
  Point2D lowest = design.lowerLeft();
  for (const Point2D& point : points) {
    lowest = {std::min(lowest.x, point.x), std::min(lowest.y, point.y)};
  }
  const Point2D corner = design.lowerLeft();
  const Point2D wish = corner - lowest + Point2D(reach, reach);
  m_way = Point2D(upToGrid(wish.x), upToGrid(wish.y)) - corner;
}

DesignProfile::Definition AreaFrame::design() const {
  const ThProfileDefinition& given = *m_design.definition();
  std::vector<Point2D> corners;
  for (unsigned i = 0; i < given.getNumSegments(); ++i) {
    const Point2D start = moved(given.getSegmentStartAt(i));
    const double radius = given.getSegmentRadiusAt(i);
    corners.push_back(start);
    if (radius == 0.0) continue;
    const std::vector<Point2D> inner = cornersOf(start, moved(given.getSegmentEndAt(i)), radius);
    corners.insert(corners.end(), inner.begin(), inner.end());
  }
  corners = cornersOnGrid(corners);
  const auto definition = boost::make_shared<ThProfileDefinition>();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point2D& end = corners[(i + 1) % corners.size()];
    definition->addSegmentStraight(corners[i].x, corners[i].y, end.x, end.y);
  }
  return definition;
}

}  // namespace Exchange
