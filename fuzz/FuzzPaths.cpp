// SPDX-License-Identifier: BSL-1.0
// Areas of outlines: what is inside and what is outside add up.

#include "FuzzOutlines.h"

#include "testing/Polygons.h"
#include "testing/Promises.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ruv::Calculations;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;
using TestSupport::distanceToEdge;

constexpr double kGrid = Promise::kClippingGrid;

Path line(Input& input, int most) {
  Path path;
  for (int left = input.count(most); left > 0 && input.isLeft(); --left) {
    const Point2D p = input.point(10.0);
    const bool isArc = input.count(3) == 0;
    path.addSegment(isArc ? PathSegment(p.x, p.y, input.number(-20.0, 20.0))
                          : PathSegment(p.x, p.y));
  }
  return path;
}

/// Simple outlines. Of others, where edges nearly coincide with edges, the clipper may lose pieces.
Path simpleOutline(Input& input) {
  const Point2D middle = input.point(5.0);
  Path path;
  for (const Point2D& corner : Fuzz::starCorners(input, 24)) {
    path.addSegment(PathSegment(middle.x + corner.x, middle.y + corner.y));
  }
  path.close(input.yes());
  return path;
}

/// Arcs, crossings, edges that lie on each other, lines that are no outlines.
Path outline(Input& input) {
  Path path = line(input, 20);
  if (input.count(5) != 0) path.close(input.yes());
  return path;
}

/// Crossings are rounded to the grid, which moves the edges that meet there by up to a step.
double areaTolerance(const Path& a, const Path& b) {
  return 4.0 * kGrid * (a.lineLength() + b.lineLength() + 1.0);
}

constexpr double kNear = 5.0 * kGrid;

bool isNearLine(const Path& line, const Point2D& p) {
  for (unsigned i = 1; i < line.numDiscretePathPoints(); ++i) {
    const Point2D start = line.discretePathPointAt(i - 1);
    if (distanceToEdge(p, start, line.discretePathPointAt(i)) < kNear) return true;
  }
  return false;
}

bool isNearOutline(const Path& path, const Point2D& p) {
  const unsigned count = path.numDiscretePathPoints();
  if (count == 0) return false;
  const Point2D last = path.discretePathPointAt(count - 1);
  return isNearLine(path, p) || distanceToEdge(p, last, path.discretePathPointAt(0)) < kNear;
}

bool isNearOutline(const Pathes& paths, const Point2D& p) {
  const auto& list = paths.paths();
  return std::any_of(list.begin(), list.end(),
                     [&](const Path& path) { return isNearOutline(path, p); });
}

void addUp(const Path& a, const Path& b) {
  const double tolerance = areaTolerance(a, b);
  const double common = Path::within(a, b).area();
  requireNear(Path::within(b, a).area(), common, tolerance, "the common area is common");
  requireNear(common + Path::without(a, b).area(), a.area(), tolerance,
              "parts add up to the whole");
}

void combine(const Path& a, const Path& b) {
  require(Path::within(a, b).area() >= 0.0, "a common area is not negative");
  require(Path::without(a, b).area() >= 0.0, "an area that is left is not negative");
}

/// Away from all outlines each point is inside what it should be inside.
void locate(Input& input, const Path& a, const Path& b) {
  const Pathes common = Path::within(a, b);
  const Pathes rest = Path::without(a, b);
  for (const Point2D& p : input.points(6, 10.0)) {
    if (isNearOutline(a, p) || isNearOutline(b, p)) continue;
    if (!isNearOutline(common, p)) {
      require(common.pointWithin(p) == (a.pointWithin(p) && b.pointWithin(p)),
              "a point is in the common area when it is in both");
    }
    if (!isNearOutline(rest, p)) {
      require(rest.pointWithin(p) == (a.pointWithin(p) && !b.pointWithin(p)),
              "a point is in the rest when it is in the first alone");
    }
  }
}

/// Crossings are rounded to the grid. Pieces of arcs may each cross an edge.
double lengthTolerance(const Path& a, const Path& b) {
  return 2.0 * kGrid * (4.0 + a.numDiscretePathPoints() + b.numDiscretePathPoints());
}

/// Away from the outline the parts hold what of the line is inside, and nothing else.
void locateParts(Input& input, const Path& cut, const Path& area, const Pathes& parts) {
  const unsigned step = cut.numDiscretePathPoints() / 16 + 1;
  for (unsigned i = step; i < cut.numDiscretePathPoints(); i += step) {
    const Point2D start = cut.discretePathPointAt(i - 1);
    const Point2D p = start + (cut.discretePathPointAt(i) - start) * input.number(0.0, 1.0);
    if (isNearOutline(area, p)) continue;
    const auto& list = parts.paths();
    require(
        std::any_of(list.begin(), list.end(),
                    [&](const Path& part) { return isNearLine(part, p); }) == area.pointWithin(p),
        "a point of a line is on one of its parts when it is inside");
  }
}

/// The clipper may lose parts, or count them twice, in an outline that crosses itself.
void cutLines(Input& input, const Path& cut, const Path& area, bool isSimple) {
  Path::linesWithin(cut, area);
  const Pathes parts = Pathes::linesWithin(cut, area, false);
  if (!isSimple || cut.lineLength() == 0.0) return;
  require(parts.linesLength() <= cut.lineLength() + lengthTolerance(cut, area),
          "the parts of a line are not longer than the line");
  locateParts(input, cut, area, parts);
}

void grow(Input& input, const Path& area, const Path& band, bool isSimple) {
  const double d = input.number(-1.0, 1.0);
  const Pathes grown = Path::expand(area, d);
  Path::expandLine(band, input.number(0.0, 1.0));
  if (!isSimple || d < 0.0) return;
  for (const Point2D& p : input.points(4, 10.0)) {
    if (!area.pointWithin(p) || isNearOutline(area, p) || isNearOutline(grown, p)) continue;
    require(grown.pointWithin(p), "a grown area holds what it held");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const bool areSimple = input.isTame() && input.yes();
  const Path a = areSimple ? simpleOutline(input) : outline(input);
  const Path b = areSimple ? simpleOutline(input) : outline(input);
  if (areSimple) addUp(a, b);
  if (areSimple) locate(input, a, b);
  if (input.isTame()) combine(a, b);
  const Path cut = line(input, 12);
  cutLines(input, cut, a, areSimple);
  grow(input, a, cut, areSimple);
  Point2D hit;
  const Point2D from = input.point(10.0);
  a.firstIntersectionWithLine(from, input.point(10.0), hit);
  a.borderWithinOtherPathes(Pathes(b));
  PathHelper::simplyfyLine(PathHelper::clipperLibPathFromPath(cut), input.number(0.0, 100.0));
  return 0;
}
