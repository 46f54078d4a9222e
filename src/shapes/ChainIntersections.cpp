// SPDX-License-Identifier: BSL-1.0
// A line meets a straight where the signed distances of its ends from the line have opposite signs,
// and a circle of radius r, whose centre lies at the distance d, at the places p -+ sqrt(r^2 - d^2)
// along the line, where p is that of the centre's foot. The root is taken of (r - d)(r + d), which
// keeps its digits near a tangent. Which of these places belong to the arc its own projection
// tells.

#include "shapes/ChainIntersections.h"

#include "shapes/LineCrossing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace Ruv {

namespace {

/// A line this near (m) to touching an arc touches it, and places this far outside a segment count
/// as its ends: rounding of coordinates of some hundred kilometres.
constexpr double kTouchTolerance = 1e-9;

/// Hits of neighbouring segments this close (m) are the joint that they share.
constexpr double kSharedHitDistance = 1e-8;

bool holds(const CLine& line, double place) {
  return place >= -kTouchTolerance && place <= line.length() + kTouchTolerance;
}

/// Collects hits in chain order.
class CHits {
 public:
  /// Leaves out a hit at the joint where the segment before ended with one.
  void add(const Point2D& p) {
    if (!m_points.empty() && (p - m_points.back()).length() <= kSharedHitDistance) return;
    m_points.push_back(p);
  }

  /// On a closed chain the last segment shares its joint with the first.
  std::vector<Point2D> taken() {
    const bool sharesFirst =
        m_points.size() > 1 && (m_points.back() - m_points.front()).length() <= kSharedHitDistance;
    if (sharesFirst) m_points.pop_back();
    return std::move(m_points);
  }

 private:
  std::vector<Point2D> m_points;
};

/// A straight that lies on the line: the ends of the common part.
void addOverlap(const CLine& line, const CChainSegment& segment, CHits& hits) {
  const double from = line.placeOf(segment.start);
  const double to = line.placeOf(segment.end);
  const double low = std::max(std::min(from, to), 0.0);
  const double high = std::min(std::max(from, to), line.length());
  if (!(low <= high + kTouchTolerance)) return;
  hits.add(line.pointAt(from <= to ? low : high));
  hits.add(line.pointAt(from <= to ? high : low));
}

/// @param distanceStart, distanceEnd of the segment's ends from the line. Each is computed once
///   per vertex, so that a line through a vertex is not lost between two segments.
void addStraightHits(const CLine& line, const CChainSegment& segment, double distanceStart,
                     double distanceEnd, CHits& hits) {
  if (distanceStart == 0.0 && distanceEnd == 0.0) {
    addOverlap(line, segment, hits);
    return;
  }
  const auto hit = crossingOf(segment.start, distanceStart, segment.end, distanceEnd);
  if (hit && holds(line, line.placeOf(*hit))) hits.add(*hit);
}

/// Places of the line on the full circle of an arc: none, one or two.
std::size_t placesOnCircle(const CLine& line, const CChainSegment& arc,
                           std::array<double, 2>& places) {
  const Point2D centre = arc.start + rightNormal(arc.startDirection) * arc.radius;
  const double size = std::abs(arc.radius);
  const double distance = std::abs(line.distanceOf(centre));
  const double middle = line.placeOf(centre);
  if (std::abs(distance - size) <= kTouchTolerance) {
    places[0] = middle;
    return 1;
  }
  if (!(distance < size)) return 0;
  const double half = std::sqrt((size - distance) * (size + distance));
  places = {middle - half, middle + half};
  return 2;
}

void addArcHits(const CLine& line, const CChainSegment& arc, CHits& hits) {
  std::array<double, 2> places{};
  const std::size_t count = placesOnCircle(line, arc, places);
  std::array<double, 2> lengths{};
  std::size_t numOnArc = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (!holds(line, places[i])) continue;
    const CCurveFoot foot = arc.footOf(line.pointAt(places[i]));
    if (!(foot.outside <= kTouchTolerance)) continue;  // 0 on the arc
    lengths[numOnArc++] = foot.length;
  }
  if (numOnArc == 2 && lengths[0] > lengths[1]) std::swap(lengths[0], lengths[1]);
  for (std::size_t i = 0; i < numOnArc; ++i) {
    const bool isEnd = lengths[i] == arc.length;
    hits.add(lengths[i] == 0.0 ? arc.start : isEnd ? arc.end : arc.at(lengths[i]).position);
  }
}

}  // namespace

std::vector<Point2D> intersectionsOf(const std::vector<CChainSegment>& chain, const Point2D& a,
                                     const Point2D& b) {
  const CLine line(a, b);
  if (!line.hasDirection() || chain.empty()) return {};
  CHits hits;
  double distanceStart = line.distanceOf(chain.front().start);
  for (const CChainSegment& segment : chain) {
    const double distanceEnd = line.distanceOf(segment.end);
    if (segment.hasExtent()) {
      if (segment.radius == 0.0) {
        addStraightHits(line, segment, distanceStart, distanceEnd, hits);
      } else {
        addArcHits(line, segment, hits);
      }
    }
    distanceStart = distanceEnd;
  }
  return hits.taken();
}

}  // namespace Ruv
