#include "profiles/paths/Clipping.h"

#include "profiles/paths/LineSimplification.h"
#include "profiles/paths/Union.h"

#include <Calculations/PathHelper.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// The clipping library's defaults, stated because outlines depend on them: the arc tolerance is
/// a quarter of a grid step.
constexpr double kMiterLimit = 2.0;
constexpr double kArcToleranceUnits = 0.25;

/// Up to this offset (100 m) corners are rounded with that tolerance. Beyond, the tolerance grows
/// with the square of the offset, so that a corner gets ever fewer points, from 4500 down to 220:
/// the corners of an outline become nearly the same circle, each of whose points the clipper then
/// compares with those of all the others.
constexpr double kLargestFineOffsetUnits = 1e6;
constexpr double kCoarsestArc = 1e-4;  // in relation to the offset

double arcToleranceOf(ClipperLib::cInt distance) {
  const double offset = std::abs(static_cast<double>(distance));
  const double coarseness = std::max(1.0, offset / kLargestFineOffsetUnits);
  return std::max(kArcToleranceUnits,
                  std::min(kArcToleranceUnits * coarseness * coarseness, kCoarsestArc * offset));
}

bool hasHole(const ClipperLib::Paths& paths) {
  return std::any_of(paths.begin(), paths.end(),
                     [](const ClipperLib::Path& path) { return !ClipperLib::Orientation(path); });
}

ClipperLib::Paths withoutHoles(ClipperLib::Paths paths) {
  if (hasHole(paths)) return PathHelper::convertRingToSimplePaths(paths);
  return paths;
}

/// Cleaning may turn a sliver inside out. Then nothing is left of it, as of those that it removes.
void clean(ClipperLib::Paths& pieces) {
  for (ClipperLib::Path& piece : pieces) {
    const bool wasOutline = ClipperLib::Orientation(piece);
    ClipperLib::CleanPolygon(piece, kCleaningDistanceUnits);
    if (ClipperLib::Orientation(piece) != wasOutline) piece.clear();
  }
}

ClipperLib::Paths combined(ClipperLib::ClipType operation, const PathViews& a, const PathViews& b) {
  ClipperLib::Clipper clipper;
  addPaths(clipper, a, ClipperLib::ptSubject, true);
  addPaths(clipper, b, ClipperLib::ptClip, true);
  ClipperLib::Paths solution;  // stays empty when the clipping fails
  clipper.Execute(operation, solution, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
  const bool canShareEdges = a.size() > 1 || b.size() > 1;
  const bool isInsideOut = signedArea(solution) < 0.0;
  if (canShareEdges || isInsideOut) solution = united(std::move(solution));
  solution = withoutHoles(std::move(solution));
  clean(solution);
  return solution;
}

/// Bands as the clipper grows them, with their holes.
ClipperLib::Paths grownLines(const PathViews& lines, ClipperLib::cInt distance) {
  ClipperLib::ClipperOffset offset(kMiterLimit, arcToleranceOf(distance));
  for (const ClipperLib::Path* line : lines) {
    offset.AddPath(simplified(*line, kCleaningDistanceUnits), ClipperLib::jtRound,
                   ClipperLib::etOpenButt);
  }
  ClipperLib::Paths solution;
  offset.Execute(solution, static_cast<double>(distance));
  return solution;
}

}  // namespace

void addPaths(ClipperLib::Clipper& clipper, const PathViews& paths, ClipperLib::PolyType role,
              bool areClosed) {
  for (const ClipperLib::Path* path : paths) {
    clipper.AddPath(*path, role, areClosed);
  }
}

ClipperLib::Paths intersectionOf(const PathViews& a, const PathViews& b) {
  return combined(ClipperLib::ctIntersection, a, b);
}

ClipperLib::Paths differenceOf(const PathViews& a, const PathViews& b) {
  return combined(ClipperLib::ctDifference, a, b);
}

ClipperLib::Paths bandsAround(const PathViews& lines, ClipperLib::cInt distance) {
  return simplePieces(grownLines(lines, distance));
}

ClipperLib::Paths bandsWithHoles(const PathViews& lines, ClipperLib::cInt distance) {
  return PathHelper::simplyfyLines(grownLines(lines, distance), kCleaningDistanceUnits);
}

ClipperLib::Paths simplePieces(ClipperLib::Paths bands) {
  return PathHelper::simplyfyLines(withoutHoles(std::move(bands)), kCleaningDistanceUnits);
}

ClipperLib::Paths offsetOutlines(const PathViews& outlines, ClipperLib::cInt distance) {
  ClipperLib::ClipperOffset offset(kMiterLimit, arcToleranceOf(distance));
  for (const ClipperLib::Path* outline : outlines) {
    offset.AddPath(*outline, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
  }
  ClipperLib::Paths solution;
  offset.Execute(solution, static_cast<double>(distance));
  return solution;
}

}  // namespace Calculations
}  // namespace Ruv
