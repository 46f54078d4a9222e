// SPDX-License-Identifier: BSL-1.0
// The steps are those of CleanPolygon of Clipper 6 (Angus Johnson 2010-2017), in its order.
// Coordinates are doubles from the start, which they fit exactly, instead of being converted in
// each comparison.

#include "profiles/paths/RingCleaning.h"

#include <Calculations/Points.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

using ClipperLib::IntPoint;

constexpr double kCleaningSquare = kCleaningDistanceUnits * kCleaningDistanceUnits;

/// Coordinates up to this have differences that a double holds exactly.
constexpr ClipperLib::cInt kExactInDoubles = ClipperLib::cInt{1} << 52;

bool isExactInDoubles(const IntPoint& p) {
  const auto isExact = [](ClipperLib::cInt c) {
    return c >= -kExactInDoubles && c <= kExactInDoubles;
  };
  return isExact(p.X) && isExact(p.Y);
}

bool areClose(const Point2D& a, const Point2D& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  return dx * dx + dy * dy <= kCleaningSquare;
}

/// The line is v.y x + v.x y = C with v = (b.x - a.x, a.y - b.y). The operations are those of the
/// clipper in its order, so that they are rounded alike.
bool isCloseToLine(const Point2D& p, const Point2D& a, const Point2D& b) {
  const Point2D v(b.x - a.x, a.y - b.y);
  const double ofLine = v.y * a.x + v.x * a.y;
  const double off = v.y * p.x + v.x * p.y - ofLine;
  return off * off / (v.y * v.y + v.x * v.x) < kCleaningSquare;
}

/// Of three points the one between the others, along the axis on which the first two lie farther
/// apart, is close to their line. So spikes count as well.
bool areNearlyInLine(const Point2D& a, const Point2D& b, const Point2D& c) {
  const bool isLevel = std::abs(a.x - b.x) > std::abs(a.y - b.y);
  const double ofA = isLevel ? a.x : a.y;
  const double ofB = isLevel ? b.x : b.y;
  const double ofC = isLevel ? c.x : c.y;
  if ((ofA > ofB) == (ofA < ofC)) return isCloseToLine(a, b, c);
  return (ofB > ofA) == (ofB < ofC) ? isCloseToLine(b, a, c) : isCloseToLine(c, a, b);
}

/// A point of a ring between those of its neighbours that are left.
struct RingPoint {
  Point2D place;
  RingPoint* before = nullptr;
  RingPoint* after = nullptr;
  bool isSettled = false;

  /// @return the point before, which has to be looked at again
  RingPoint* leaveOut() const {
    before->after = after;
    after->before = before;
    before->isSettled = false;
    return before;
  }
};

std::vector<RingPoint> linked(const ClipperLib::Path& ring) {
  std::vector<RingPoint> points(ring.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i].place = {static_cast<double>(ring[i].X), static_cast<double>(ring[i].Y)};
    points[i].before = &points[i > 0 ? i - 1 : points.size() - 1];
    points[i].after = &points[i + 1 < points.size() ? i + 1 : 0];
  }
  return points;
}

}  // namespace

void cleanRing(ClipperLib::Path& ring) {
  if (ring.empty()) return;
  if (!std::all_of(ring.begin(), ring.end(), isExactInDoubles)) {
    ClipperLib::CleanPolygon(ring, kCleaningDistanceUnits);
    return;
  }
  std::vector<RingPoint> points = linked(ring);
  std::size_t count = ring.size();
  RingPoint* at = points.data();
  while (!at->isSettled && at->after != at->before) {
    const Point2D& before = at->before->place;
    const Point2D& after = at->after->place;
    const bool repeatsBefore = areClose(at->place, before);
    const bool isSpike = !repeatsBefore && areClose(before, after);
    if (repeatsBefore || isSpike || areNearlyInLine(before, at->place, after)) {
      if (isSpike) at->after->leaveOut();
      count -= isSpike ? 2 : 1;
      at = at->leaveOut();
    } else {
      at->isSettled = true;
      at = at->after;
    }
  }
  ring.resize(count < 3 ? 0 : count);
  for (IntPoint& p : ring) {
    p.X = static_cast<ClipperLib::cInt>(at->place.x);
    p.Y = static_cast<ClipperLib::cInt>(at->place.y);
    at = at->after;
  }
}

}  // namespace Calculations
}  // namespace Ruv
