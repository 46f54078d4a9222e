// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/BearingMatch.h"

#include "foundation/MathConstants.h"
#include "shapes/AreaCentroid.h"
#include "shapes/PlaneGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

using Polygon = std::vector<Point2D>;

/// Arcs are looked at in steps of this turning (rad), as they are when crossings are looked for.
constexpr double kTurningStep = 0.1;

/// A kernel smaller than this (m2) is none: from a point that sees an outline only just, rays
/// would run along its pieces.
constexpr double kSmallestKernel = 1e-4;

/// An outline is seen well from a kernel of this part of the area of the box around it.
constexpr double kWideKernel = 0.003;

/// Rays closer than this (rad) are one: the rounding of bearings.
constexpr double kSameBearing = 1e-12;

/// What of a convex polygon lies on the right of a directed line (Sutherland and Hodgman 1974).
Polygon clipped(const Polygon& polygon, const Point2D& through, const CDirection& along) {
  Polygon kept;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2D& from = polygon[i];
    const Point2D& to = polygon[(i + 1) % polygon.size()];
    const double right = rightComponent(from - through, along);
    const double nextRight = rightComponent(to - through, along);
    if (right >= 0.0) kept.push_back(from);
    if ((right < 0.0 && nextRight > 0.0) || (right > 0.0 && nextRight < 0.0)) {
      kept.push_back(from + (to - from) * (right / (right - nextRight)));
    }
  }
  return kept;
}

/// A point sees a clockwise outline when it lies on the right of all its tangents. So the kernel is
/// what the tangents leave of the box around the outline (Lee and Preparata 1979).
void clipToKernel(Polygon& kernel, const TurningChords& outline, const Point2D& origin) {
  for (const TurningChord& piece : outline) {
    const double count = std::ceil(std::abs(piece.turning) / kTurningStep);
    for (double i = 0.0; i <= count; ++i) {
      const double fraction = count > 0.0 ? i / count : 0.0;
      const double heading = piece.headingAtStart() + fraction * piece.turning;
      kernel = clipped(kernel, piece.pointAt(fraction) - origin, directionOfBearing(heading));
    }
  }
}

/// Of both outlines, so that exchanging them changes nothing.
Polygon boxAround(const TurningChords& start, const TurningChords& end, const Point2D& origin) {
  Point2D low = start.front().start - origin;
  Point2D high = low;
  for (const TurningChords* outline : {&start, &end}) {
    for (const Point2D& sample : sampled(*outline, kTurningStep)) {
      const Point2D p = sample - origin;
      low = Point2D(std::min(low.x, p.x), std::min(low.y, p.y));
      high = Point2D(std::max(high.x, p.x), std::max(high.y, p.y));
    }
  }
  return {low, Point2D(low.x, high.y), high, Point2D(high.x, low.y)};
}

/// The centroid changes evenly with the outline, unlike the middle of the box around it.
Point2D centroidOf(const TurningChords& outline) {
  const auto surface = areaAndCentroid(sampled(outline, kTurningStep));
  return surface ? surface->centroid : outline.front().start;
}

/// An outline turned about its own centroid.
struct TurnedOutline {
  Point2D pivot;
  CDirection direction;
  TurningChords pieces;

  TurnedOutline(const TurningChords& outline, double by)
      : pivot(centroidOf(outline)), direction(directionOfBearing(by)), pieces(outline) {
    moveBy(pieces, pivot * -1.0);
    turnBy(pieces, direction);
    moveBy(pieces, pivot);
  }

  Point2D turnedBack(const Point2D& p) const { return pivot + turnedFrom(direction, p - pivot); }
};

/// An outline around the origin, taken from the front ray by ray.
class RayReader {
 public:
  /// @param first ray, from which bearings are counted clockwise
  RayReader(const TurningChords& outline, const Point2D& centre, const Point2D& first)
      : m_first(first) {
    for (const TurningChord& piece : outline) {
      m_pieces.push_back({piece.start - centre, piece.end - centre, piece.turning});
    }
    const auto isNearer = [this](const TurningChord& a, const TurningChord& b) {
      return bearingTo(a.start) < bearingTo(b.start);
    };
    // The piece with the first ray inside of it begins just before a full turn.
    std::rotate(m_pieces.begin(), std::min_element(m_pieces.begin(), m_pieces.end(), isNearer),
                m_pieces.end());
    const TurningChord last = m_pieces.back();
    const double fraction = fractionAt(last, m_first);
    if (bearingTo(m_pieces.front().start) < kSameBearing) return;
    m_pieces.back() = last.part(0.0, fraction);
    m_pieces.insert(m_pieces.begin(), last.part(fraction, 1.0));
  }

  /// Bearing (rad) up to which the next piece leads; a full turn at the end of the last one.
  double nextBearing() const {
    return m_index + 1 < m_pieces.size() ? bearingTo(m_pieces[m_index].end) : kTwoPi;
  }
  const Point2D& nextNode() const { return m_pieces[m_index].end; }
  bool isDone() const { return m_index == m_pieces.size(); }

  TurningChord takeWhole() { return m_pieces[m_index++]; }
  TurningChord takeUpTo(const Point2D& ray) {
    TurningChord& piece = m_pieces[m_index];
    const double fraction = fractionAt(piece, ray);
    const TurningChord taken = piece.part(0.0, fraction);
    piece = piece.part(fraction, 1.0);
    return taken;
  }

 private:
  /// Clockwise from one ray to another, less than a full turn.
  static double bearingFrom(const Point2D& ray, const Point2D& p) {
    const double bearing = std::remainder(bearingOf(p) - bearingOf(ray), kTwoPi);
    return bearing < -kSameBearing ? bearing + kTwoPi : bearing;
  }
  double bearingTo(const Point2D& p) const { return bearingFrom(m_first, p); }

  /// Where a piece meets a ray: up to there bearings are smaller.
  static double fractionAt(const TurningChord& piece, const Point2D& ray) {
    if (!piece.isArc()) {
      const CDirection direction = directionOfBearing(bearingOf(ray));
      const double right = rightComponent(piece.start, direction);
      return std::clamp(right / (right - rightComponent(piece.end, direction)), 0.0, 1.0);
    }
    const double bearing = bearingFrom(piece.start, ray);
    return fractionUpTo(piece,
                        [&](const Point2D& p) { return bearingFrom(piece.start, p) < bearing; });
  }

  TurningChords m_pieces;
  Point2D m_first;
  std::size_t m_index = 0;
};

}  // namespace

/// Either outline is turned by half of the roll, so that none of them is preferred.
std::optional<BearingMatch> matchByBearings(const TurningChords& start, const TurningChords& end,
                                            double roll) {
  const TurnedOutline startTurned(start, roll / 2.0);
  const TurnedOutline endTurned(end, -roll / 2.0);
  const Point2D origin = startTurned.pieces.front().start;
  Polygon kernel = boxAround(startTurned.pieces, endTurned.pieces, origin);
  const auto box = areaAndCentroid(kernel);
  clipToKernel(kernel, startTurned.pieces, origin);
  clipToKernel(kernel, endTurned.pieces, origin);
  const auto seeing = areaAndCentroid(kernel);
  if (!box || !seeing || !(seeing->area > kSmallestKernel)) return std::nullopt;
  const Point2D centre = origin + seeing->centroid;

  BearingMatch match;
  match.visibility = std::min(1.0, seeing->area / (kWideKernel * box->area));
  match.outlines.placement = {startTurned.turnedBack(centre), endTurned.turnedBack(centre),
                              roll / 2.0, -roll / 2.0};
  const Point2D first = origin - centre;
  RayReader fromStart(startTurned.pieces, centre, first);
  RayReader fromEnd(endTurned.pieces, centre, first);
  while (!fromStart.isDone() && !fromEnd.isDone()) {
    const double ahead = fromStart.nextBearing() - fromEnd.nextBearing();
    const Point2D startNode = fromStart.nextNode();
    const Point2D endNode = fromEnd.nextNode();
    MatchedPiece piece;
    piece.start = ahead > kSameBearing ? fromStart.takeUpTo(endNode) : fromStart.takeWhole();
    piece.end = ahead < -kSameBearing ? fromEnd.takeUpTo(startNode) : fromEnd.takeWhole();
    match.outlines.ring.push_back(piece);
  }
  return match;
}

}  // namespace Calculations
}  // namespace Ruv
