// SPDX-License-Identifier: BSL-1.0
// The clipper (6.4) loses parts of lines that begin or end with a level edge, or counts them twice.
// Such lines, and the area with them, are therefore sheared until nothing is level, clipped, and
// sheared back, which changes neither what is inside nor the stored points. Closed lines are safe.
// It loses others where outlines of the area share edges, so these are united first.

#include "profiles/paths/LineClipping.h"

#include "profiles/paths/CanonicalOutlines.h"
#include "profiles/paths/GridUnits.h"
#include "profiles/paths/Union.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

using ClipperLib::cInt;

/// Leaves an edge level only if it fell by exactly one part in this before, which on the grid takes
/// a run of a multiple of 0.41 m: the larger the factor, the rarer such edges. This is the largest
/// power of two for which all coordinates stay within the range of the clipper.
constexpr cInt kShear = 4096;
static_assert((static_cast<double>(kShear) + 1.0) * kMostUnits <
                  static_cast<double>(ClipperLib::hiRange),
              "sheared coordinates must stay within the range of the clipper");

/// Points that repeat the first one make no edge. Among the others there is at least one.
template <class Iterator>
bool beginsLevel(Iterator begin, Iterator end) {
  const auto next =
      std::find_if(begin, end, [&](const ClipperLib::IntPoint& p) { return p != *begin; });
  return next->Y == begin->Y;
}

bool hasLevelEnd(const ClipperLib::Path* line) {
  if (line->empty() || line->front() == line->back()) return false;
  return beginsLevel(line->begin(), line->end()) || beginsLevel(line->rbegin(), line->rend());
}

bool isInRange(const ClipperLib::Path* path) {
  return std::all_of(path->begin(), path->end(), [](const ClipperLib::IntPoint& p) {
    return std::abs(static_cast<double>(p.X)) <= kMostUnits &&
           std::abs(static_cast<double>(p.Y)) <= kMostUnits;
  });
}

/// Only callers who hand over paths of the clipper's own can have some out of range.
bool areInRange(const PathViews& paths) {
  return std::all_of(paths.begin(), paths.end(), isInRange);
}

/// The nearest integer to value / divisor, halves upwards.
cInt roundedQuotient(cInt value, cInt divisor) {
  const cInt rest = value % divisor;
  return value / divisor + static_cast<cInt>(2 * rest >= divisor) -
         static_cast<cInt>(2 * rest < -divisor);
}

/// (x, y) becomes (x, 4096 y + x). A linear map carries straights to straights and keeps what lies
/// inside.
ClipperLib::Paths sheared(const PathViews& paths) {
  ClipperLib::Paths result = copied(paths);
  for (ClipperLib::Path& path : result) {
    for (ClipperLib::IntPoint& p : path) {
      p.Y = kShear * p.Y + p.X;
    }
  }
  return result;
}

/// Stored points come back as they were, as y' - x is a multiple of 4096 for them. Places where
/// lines were cut are rounded to the grid, as they are without shear.
void shearBack(ClipperLib::Paths& paths) {
  for (ClipperLib::Path& path : paths) {
    for (ClipperLib::IntPoint& p : path) {
      p.Y = roundedQuotient(p.Y - p.X, kShear);
    }
  }
}

ClipperLib::Paths clipped(const PathViews& lines, const PathViews& area) {
  FailsafeClipper clipper;
  clipper.add(lines, ClipperLib::ptSubject, false);
  clipper.add(area, ClipperLib::ptClip, true);
  ClipperLib::PolyTree tree;
  clipper.writeTo(tree, ClipperLib::ctIntersection);
  ClipperLib::Paths inside;
  ClipperLib::OpenPathsFromPolyTree(tree, inside);
  return inside;
}

ClipperLib::Paths clippedWithoutLevelEnds(const PathViews& lines, const PathViews& area) {
  // Sheared, y' = 4096 y + x: a level edge rises by what it runs. Only lines with a level end need
  // it, and only coordinates within the grid stay in the range of the clipper.
  const bool needShear =
      std::any_of(lines.begin(), lines.end(), hasLevelEnd) && areInRange(lines) && areInRange(area);
  if (!needShear) return clipped(lines, area);
  const ClipperLib::Paths shearedLines = sheared(lines);
  const ClipperLib::Paths shearedArea = sheared(area);
  ClipperLib::Paths inside = clipped(viewsOf(shearedLines), viewsOf(shearedArea));
  shearBack(inside);
  return inside;
}

}  // namespace

ClipperLib::Paths linesInside(const PathViews& lines, const PathViews& area) {
  ClipperLib::Paths outlines = canonicalOutlines(area, Sense::Free);
  if (area.size() > 1) outlines = united(std::move(outlines));
  return clippedWithoutLevelEnds(lines, viewsOf(outlines));
}

}  // namespace Calculations
}  // namespace Ruv
