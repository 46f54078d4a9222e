// SPDX-License-Identifier: BSL-1.0
// What follows each operation of the clipper, and why in this order: outlines that share edges are
// united, as the clipper may lead one along an edge twice; holes are cut open, as callers see
// outlines only; and points that the grid has pushed onto each other are cleaned away last.

#include "profiles/paths/Clipping.h"

#include "profiles/paths/CanonicalOutlines.h"
#include "profiles/paths/LineSimplification.h"
#include "profiles/paths/Offsetting.h"
#include "profiles/paths/RingCutting.h"
#include "profiles/paths/Union.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
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

/// The clipper turns outlines anticlockwise and holes clockwise.
bool hasHole(const ClipperLib::Paths& paths) {
  return std::any_of(paths.begin(), paths.end(),
                     [](const ClipperLib::Path& path) { return !ClipperLib::Orientation(path); });
}

ClipperLib::Paths withoutHoles(ClipperLib::Paths paths) {
  if (hasHole(paths)) return cutAtHoles(paths);
  return paths;
}

/// Cleaning may turn a sliver inside out. Then nothing is left of it, as of those that it removes.
void clean(ClipperLib::Paths& pieces) {
  for (ClipperLib::Path& piece : pieces) {
    const bool wasOutline = ClipperLib::Orientation(piece);
    cleanRing(piece);
    if (ClipperLib::Orientation(piece) != wasOutline) piece.clear();
  }
}

ClipperLib::Paths combined(ClipperLib::ClipType operation, const PathViews& a, const PathViews& b) {
  const ClipperLib::Paths subject = canonicalOutlines(a, Sense::Free);
  const ClipperLib::Paths clip = canonicalOutlines(b, Sense::Free);
  FailsafeClipper clipper;
  clipper.add(viewsOf(subject), ClipperLib::ptSubject, true);
  clipper.add(viewsOf(clip), ClipperLib::ptClip, true);
  ClipperLib::Paths solution = clipper.outlines(operation, ClipperLib::pftEvenOdd);
  // Two outlines of one argument may share edges, which then show in the result; a single outline
  // has no other to share with. A negative area tells that an outline was turned the wrong way
  // round.
  const bool canShareEdges = a.size() > 1 || b.size() > 1;
  const bool isInsideOut = signedArea(solution) < 0.0;
  if (canShareEdges || isInsideOut) solution = united(std::move(solution));
  solution = withoutHoles(std::move(solution));
  clean(solution);
  return solution;
}

/// Bands as the clipper grows them, with their holes. The lines are simplified first, because each
/// of their points becomes two corners of the band or more.
ClipperLib::Paths grownLines(const PathViews& lines, ClipperLib::cInt distance) {
  ClipperLib::Paths simple;
  simple.reserve(lines.size());
  for (const ClipperLib::Path* line : lines) {
    simple.push_back(simplified(*line, kCleaningDistanceUnits));
  }
  return offsetBy(distance, viewsOf(simple), ClipperLib::etOpenButt);
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

ClipperLib::Paths intersectionOf(const PathViews& a, const PathViews& b) {
  return canonicalPieces(rawIntersectionOf(a, b));
}

ClipperLib::Paths differenceOf(const PathViews& a, const PathViews& b) {
  return canonicalPieces(rawDifferenceOf(a, b));
}

ClipperLib::Paths rawIntersectionOf(const PathViews& a, const PathViews& b) {
  return combined(ClipperLib::ctIntersection, a, b);
}

ClipperLib::Paths rawDifferenceOf(const PathViews& a, const PathViews& b) {
  return combined(ClipperLib::ctDifference, a, b);
}

ClipperLib::Paths bandsAround(const PathViews& lines, ClipperLib::cInt distance) {
  return simplePieces(grownLines(lines, distance));
}

ClipperLib::Paths bandsWithHoles(const PathViews& lines, ClipperLib::cInt distance) {
  return simplified(grownLines(lines, distance), kCleaningDistanceUnits);
}

ClipperLib::Paths simplePieces(ClipperLib::Paths bands) {
  return canonicalPieces(simplified(withoutHoles(std::move(bands)), kCleaningDistanceUnits));
}

ClipperLib::Paths offsetOutlines(const PathViews& outlines, ClipperLib::cInt distance) {
  const ClipperLib::Paths canonical = canonicalOutlines(outlines, Sense::Kept);
  return offsetBy(distance, viewsOf(canonical), ClipperLib::etClosedPolygon);
}

}  // namespace Calculations
}  // namespace Ruv
