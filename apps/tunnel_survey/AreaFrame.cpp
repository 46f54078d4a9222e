#include "tunnel_survey/AreaFrame.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace TunnelSurvey {

namespace {

using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileDefinition;

constexpr double kGridStep = 1e-4;

double onGrid(double coordinate) { return std::ceil(coordinate / kGridStep) * kGridStep; }

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

}  // namespace

AreaFrame::AreaFrame(const Exchange::DesignProfile& design, const std::vector<Point2D>& points,
                     double reach)
    : m_design(design) {
  Point2D lowest = design.lowerLeft();
  for (const Point2D& point : points) {
    lowest = {std::min(lowest.x, point.x), std::min(lowest.y, point.y)};
  }
  const Point2D corner = design.lowerLeft();
  const Point2D wish = corner - lowest + Point2D(reach, reach);
  m_way = Point2D(onGrid(wish.x), onGrid(wish.y)) - corner;
}

Exchange::DesignProfile::Definition AreaFrame::design() const {
  const ThProfileDefinition& given = *m_design.definition();
  const auto definition = boost::make_shared<ThProfileDefinition>();
  const auto addStraight = [&definition](const Point2D& from, const Point2D& to) {
    definition->addSegmentStraight(from.x, from.y, to.x, to.y);
  };
  for (unsigned i = 0; i < given.getNumSegments(); ++i) {
    Point2D from = moved(given.getSegmentStartAt(i));
    const Point2D end = moved(given.getSegmentEndAt(i));
    const double radius = given.getSegmentRadiusAt(i);
    if (radius != 0.0) {
      for (const Point2D& corner : cornersOf(from, end, radius)) {
        addStraight(from, corner);
        from = corner;
      }
    }
    addStraight(from, end);
  }
  return definition;
}

}  // namespace TunnelSurvey
