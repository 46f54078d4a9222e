// SPDX-License-Identifier: BSL-1.0
// Whatever is added to a path is rounded to the grid at once, and all later questions are answered
// from the grid. Only the last point is also kept as it was given, as an arc that continues from it
// must start on its own circle.

#include <Calculations/Paths.h>

#include "foundation/MakeRoom.h"
#include "profiles/paths/Clipping.h"
#include "profiles/paths/GridUnits.h"
#include "profiles/paths/Offsetting.h"
#include "profiles/paths/PathImpl.h"
#include "profiles/paths/RingCleaning.h"
#include "shapes/ChainSegment.h"
#include "shapes/LineCrossing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// Length (m) of the pieces of an arc, and the most pieces it gets. A piece of s = 1 cm strays by
/// s^2 / (8 R) from its arc, 2.5 um for 5 m, which is below the grid. Arcs longer than 1 m get
/// longer pieces: those of a half circle of 5 m stray by 0.6 mm.
constexpr double kArcPiece = 0.01;
constexpr double kMostArcPieces = 100.0;

/// A chord may exceed the diameter by this (m), one step of the grid, and still be a half circle.
constexpr double kHalfCircleSlack = 1e-4;

/// The arc as a segment. A chord that rounding to the grid has made longer than the diameter would
/// have no arc, so the radius grows to half the chord.
CChainSegment arcBetween(const Point2D& start, const Point2D& end, double radius) {
  const double chord = (end - start).length();
  const double excess = chord - 2.0 * std::abs(radius);
  const bool isHalfCircle = excess > 0.0 && excess <= kHalfCircleSlack;
  return CChainSegment::between(start, end,
                                isHalfCircle ? std::copysign(chord / 2.0, radius) : radius);
}

/// 0 for an arc shorter than one piece or without length. Such an arc becomes its chord.
int numPieces(double arcLength) {
  if (!(arcLength >= kArcPiece)) return 0;
  return static_cast<int>(std::min(std::trunc(arcLength / kArcPiece), kMostArcPieces));
}

}  // namespace

PathSegment::PathSegment(double x, double y) : PathSegment(x, y, 0.0) {}
PathSegment::PathSegment(double x, double y, double radius) : m_point(x, y), m_radius(radius) {}
PathSegment::PathSegment(const PathSegment& other) = default;
PathSegment& PathSegment::operator=(const PathSegment& other) = default;
PathSegment::~PathSegment() = default;

Point2D PathSegment::point() const { return m_point; }

double PathSegment::radius() const { return m_radius; }

bool PathSegment::isArc() const { return m_radius != 0.0; }

void PathImpl::append(const Point2D& p) {
  appendOnGrid(points, p);
  lastExactPoint = p;
}

void PathImpl::appendArc(const Point2D& end, double radius) {
  appendArcTo(points, lastExactPoint, end, radius);
  lastExactPoint = end;
}

void appendArcTo(ClipperLib::Path& points, const Point2D& start, const Point2D& end,
                 double radius) {
  const CChainSegment arc = arcBetween(start, end, radius);
  const int pieces = numPieces(arc.length);
  makeRoomFor(static_cast<std::size_t>(pieces) + 1, points);
  // The points begin with the start, which is so stored twice, and stop short of the end, which is
  // appended as it is.
  for (int i = 0; i < pieces; ++i) {
    appendOnGrid(points, arc.at(i * (arc.length / pieces)).position);
  }
  appendOnGrid(points, end);
}

void PathImpl::set(ClipperLib::Path clipped) {
  points = std::move(clipped);
  // There is no more exact point than that of the grid after clipping.
  if (!points.empty()) lastExactPoint = fromGrid(points.back());
}

Path PathImpl::pathOf(ClipperLib::Path points) {
  Path path;
  path.m_impl->set(std::move(points));
  return path;
}

Path::Path() : m_impl(new PathImpl) {}
Path::Path(const Path& other) : m_impl(new PathImpl(*other.m_impl)) {}
Path::~Path() = default;

/// Copies before it changes anything, so that the path stays as it is when memory runs out.
Path& Path::operator=(const Path& other) {
  *m_impl = PathImpl(*other.m_impl);
  return *this;
}

void Path::addSegment(const PathSegment& segment) {
  if (!isFinite(segment.point())) return;
  if (m_impl->points.empty() || !segment.isArc()) {
    m_impl->append(segment.point());
  } else {
    m_impl->appendArc(segment.point(), segment.radius());
  }
}

void closeRing(ClipperLib::Path& points, bool clean) {
  // Anticlockwise, because then areas are positive. The first point is repeated last, because
  // cleaning takes a path for a ring anyway and would take a repeat for superfluous.
  if (points.size() < 2) return;
  if (!ClipperLib::Orientation(points)) ClipperLib::ReversePath(points);
  if (clean) cleanRing(points);
  if (points.size() >= 2 && points.front() != points.back()) points.push_back(points.front());
}

void Path::close(bool clean) {
  if (m_impl->points.size() < 2) return;
  ClipperLib::Path ring = m_impl->points;  // so that the path stays as it is when memory runs out
  closeRing(ring, clean);
  m_impl->set(std::move(ring));
}

double Path::area() const { return squareMetresOf(ClipperLib::Area(m_impl->points)); }

double Path::lineLength() const {
  const ClipperLib::Path& points = m_impl->points;
  double length = 0.0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    length += (fromGrid(points[i]) - fromGrid(points[i - 1])).length();
  }
  return length;
}

unsigned int Path::numDiscretePathPoints() const {
  return static_cast<unsigned int>(m_impl->points.size());
}

Point2D Path::discretePathPointAt(unsigned int index) const {
  if (index >= m_impl->points.size()) return Point2D();
  return fromGrid(m_impl->points[index]);
}

bool Path::pointWithin(const Point2D& p) const {
  // The clipper says 1 inside, 0 outside and -1 on the outline.
  return isFinite(p) && ClipperLib::PointInPolygon(onGrid(p), m_impl->points) == 1;
}

bool Path::firstIntersectionWithLine(const Point2D& a, const Point2D& b, Point2D& hit) const {
  const std::size_t count = numDiscretePathPoints();
  if (count < 2) return false;
  // The line is not limited to the stretch between a and b.
  const CLine line(a, b);
  for (std::size_t i = 0; i < count; ++i) {
    const Point2D start = discretePathPointAt(static_cast<unsigned int>(i));
    const Point2D end = discretePathPointAt(static_cast<unsigned int>((i + 1) % count));
    if (const auto crossing = crossingOf(line, start, end)) {
      hit = *crossing;
      return true;
    }
  }
  return false;
}

double Path::borderWithinOtherPathes(const Pathes& other) const {
  // Closed, as the outline is meant, but not cleaned: its length would change.
  Path closed(*this);
  closed.close(false);
  return Pathes::linesWithin(Pathes(closed), other, false).linesLength();
}

Pathes Path::within(const Path& a, const Path& b) {
  return clippedBy([&] { return intersectionOf(viewOf(a), viewOf(b)); });
}

Pathes Path::without(const Path& a, const Path& b) {
  return clippedBy([&] { return differenceOf(viewOf(a), viewOf(b)); });
}

Pathes Path::expand(const Path& a, double d) {
  return clippedBy([&] { return offsetOutlines(viewOf(a), offsetUnits(d)); });
}

Pathes Path::expandLine(const Path& a, double d) {
  return clippedBy([&] { return bandsAround(viewOf(a), offsetUnits(d)); });
}

Pathes Path::linesWithin(const Path& a, const Path& b) {
  return Pathes::linesWithin(Pathes(a), Pathes(b), true);
}

/// A view of one: the clipper reads the points where they are.
PathViews viewOf(const Path& path) { return {&PathImpl::pointsOf(path)}; }

}  // namespace Calculations
}  // namespace Ruv
