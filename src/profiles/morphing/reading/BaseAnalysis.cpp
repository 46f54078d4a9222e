// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/BaseAnalysis.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Points this little (m) higher than the lowest are as low: the rounding of any profile, and less
/// than any floor is meant to fall.
constexpr double kSameHeight = 1e-6;

/// Heading at the bottom of a clockwise outline.
constexpr double kBottomHeading = 1.5 * kPi;

double lowestHeight(const std::vector<Point2D>& points) {
  double lowest = points.front().y;
  for (const Point2D& p : points) {
    lowest = std::min(lowest, p.y);
  }
  return lowest;
}

/// Nodes and bottoms of arcs that are as low as any, in the order of travel. An arc that turns
/// anticlockwise has no bottom: the inside of the outline lies below it.
std::vector<Point2D> lowestPoints(const TurningChords& elements) {
  std::vector<Point2D> points;
  for (const TurningChord& element : elements) {
    points.push_back(element.start);
    if (!element.isArc() || element.turning < 0.0) continue;
    double turned = turningBetween(element.headingAtStart(), kBottomHeading);
    if (turned < 0.0) turned += kTwoPi;
    if (turned < element.turning) points.push_back(element.pointAt(turned / element.turning));
  }
  const double limit = lowestHeight(points) + kSameHeight;
  const auto isHigher = [limit](const Point2D& p) { return p.y > limit; };
  points.erase(std::remove_if(points.begin(), points.end(), isHigher), points.end());
  return points;
}

TurningChords halfTurned(const TurningChords& elements) {
  TurningChords turned;
  turned.reserve(elements.size());
  for (const TurningChord& element : elements) {
    turned.push_back(element.halfTurned());
  }
  return turned;
}

/// Midway between the outermost of some points.
double middleX(const std::vector<Point2D>& points) {
  const auto [left, right] = std::minmax_element(
      points.begin(), points.end(), [](const Point2D& a, const Point2D& b) { return a.x < b.x; });
  return (left->x + right->x) / 2.0;
}

}  // namespace

/// The highest points of an outline are the lowest ones of the outline turned by half a turn.
PlumbLines plumbLinesThroughFirst(const TurningChords& elements) {
  return {lowestPoints(elements).front().x, -lowestPoints(halfTurned(elements)).front().x};
}

PlumbLines plumbLinesThroughMiddle(const TurningChords& elements) {
  return {middleX(lowestPoints(elements)), -middleX(lowestPoints(halfTurned(elements)))};
}

}  // namespace Calculations
}  // namespace Ruv
