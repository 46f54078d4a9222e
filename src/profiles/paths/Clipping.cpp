// SPDX-License-Identifier: BSL-1.0
// What follows each operation of the clipper, and why in this order: outlines that share edges are
// united, as the clipper may lead one along an edge twice; holes are cut open, as callers see
// outlines only; and points that the grid has pushed onto each other are cleaned away last.

#include "profiles/paths/Clipping.h"

#include "profiles/paths/CanonicalOutlines.h"
#include "profiles/paths/LineSimplification.h"
#include "profiles/paths/Offsetting.h"
#include "profiles/paths/RingCleaning.h"
#include "profiles/paths/RingCutting.h"
#include "profiles/paths/Union.h"

#include <algorithm>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

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
