// SPDX-License-Identifier: BSL-1.0
// Laying a segment out between its stored end points P0 and P1.
//
//   E              end of the curve in its own frame, which starts at the origin in direction +y
//   b              start bearing of the placed curve
//   m              scale
//   d              misclosure P1 - (P0 + E turned by b)
//
// By azimuth: b is the one given, m = 1, and d is spread along the curve as a drift of d / length.
// By chord: b = bearing(P1 - P0) - bearing(E) and m = |P1 - P0| / |E|, which meets P1 exactly. A
// closed curve has no E to turn, so it needs the azimuth or a neighbour's direction.

#include "shapes/HoralSegment.h"

#include "foundation/MathConstants.h"
#include "shapes/ShapeTolerances.h"

#include <Calculations/ShapeElements.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace Ruv {

namespace {

/// A curve that misses its end point by no more than this (m), plus the rounding of the
/// coordinates, meets it: fifty times the error of the curve itself.
constexpr double kTrustedMiss = 1e-9;
constexpr double kTrustedMissUlps = 4.0;

/// A chord below this part of the length has no direction: rounding of the curve's own end point
/// turns it by a microradian.
constexpr double kClosedChordRatio = 1e-9;

/// Rounding of the end stationing, start + length, in ulps of the stationings; never counted as
/// more than kFootTolerance.
constexpr double kStationingUlps = 2.0;

double largestCoordinate(const CHoralSegmentData& data) {
  return std::max(std::max(std::abs(data.start.x), std::abs(data.start.y)),
                  std::max(std::abs(data.end.x), std::abs(data.end.y)));
}

CPlacedCurve placedRigidly(const CPlaneCurve& curve, const Point2D& start, double bearing) {
  return {start, directionOfBearing(bearing), 1.0, curve, bearing};
}

/// Laid out rigidly with the azimuth; a printing error is spread evenly along the segment.
std::optional<CPlacedCurve> placedByAzimuth(const CHoralSegmentData& data,
                                            const CPlaneCurve& curve) {
  if (!std::isfinite(data.definedAzimuth)) return std::nullopt;
  CPlacedCurve path = placedRigidly(curve, data.start, data.definedAzimuth);
  const Point2D misclosure = data.end - path.end().position;
  const double miss = misclosure.length();
  const double rounding =
      kTrustedMissUlps * std::numeric_limits<double>::epsilon() * largestCoordinate(data);
  if (miss <= kTrustedMiss + rounding) return path;
  if (!(miss <= kPrintingError + rounding)) return std::nullopt;
  path.curve = curve.drifting(turnedFrom(path.startDirection, misclosure) / curve.length());
  return path;
}

/// A curve whose end is not a number counts as closed: its bearing cannot be told either.
bool closesItself(const CPlaneCurve& curve) {
  return !(curve.end().position.length() >= kClosedChordRatio * curve.length());
}

std::optional<CPlacedCurve> placedByChord(const CHoralSegmentData& data, const CPlaneCurve& curve) {
  const Point2D chord = data.end - data.start;
  if (!(chord.length() >= kClosedChordRatio * curve.length())) return std::nullopt;
  const Point2D own = curve.end().position;
  const double bearing = bearingOf(chord) - bearingOf(own);
  return CPlacedCurve{data.start, directionOfBearing(bearing), chord.length() / own.length(), curve,
                      bearing};
}

bool isFinite(const CHoralSegmentData& data) {
  return std::isfinite(data.stationingStart) && Ruv::isFinite(data.start) &&
         Ruv::isFinite(data.end);
}

/// Length of a segment, of which an alignment knows the stationings of both ends only. Their
/// rounding must not stretch a full circle, which no arc may exceed.
double lengthOf(const CHoralSegmentData& data) {
  const double length = data.stationingEnd - data.stationingStart;
  if (data.radiusStart != data.radiusEnd) return length;
  const double circle = kTwoPi * std::abs(data.radiusStart);
  const double largest = std::max(std::abs(data.stationingStart), std::abs(data.stationingEnd));
  const double rounding =
      std::min(kStationingUlps * std::numeric_limits<double>::epsilon() * largest, kFootTolerance);
  return length > circle && length - circle <= rounding ? circle : length;
}

CPlaneCurve curveOf(const CHoralSegmentData& data) {
  return curveOfType(data.typeId, data.radiusStart, data.radiusEnd, lengthOf(data));
}

bool hasShape(const CHoralSegmentData& data, const CPlaneCurve& curve) {
  return data.hasStart && curve.isDefined() && curve.length() > 0.0 && isFinite(data);
}

/// Placed by its own data; nothing for a segment that needs a neighbour's direction.
CHoralSegment placedAlone(const CHoralSegmentData& data) {
  CHoralSegment segment;
  segment.stationingStart = data.stationingStart;
  segment.stationingEnd = data.stationingEnd;
  segment.start = data.start;
  segment.end = data.end;
  segment.isGap = data.typeId == CShapeType::Gap;
  const CPlaneCurve curve = curveOf(data);
  if (!hasShape(data, curve)) return segment;
  std::optional<CPlacedCurve> path = placedByAzimuth(data, curve);
  if (!path && !closesItself(curve)) path = placedByChord(data, curve);
  if (path) segment.path = *path;
  return segment;
}

/// Start bearing of a closed curve: on from the end of the segment before it, else towards the
/// start of the segment after it.
std::optional<double> bearingFromNeighbours(const CHoralSegment* before, const CHoralSegment* after,
                                            const CPlaneCurve& curve) {
  if (before != nullptr && before->isEvaluable()) return before->path.end().heading;
  if (after != nullptr && after->isEvaluable()) {
    return after->path.startBearing - curve.end().heading;
  }
  return std::nullopt;
}

}  // namespace

CPlaneCurve curveOfType(std::int32_t typeId, double radiusStart, double radiusEnd, double length) {
  switch (typeId) {
    case CShapeType::Straight:
      return CPlaneCurve::straight(length);
    case CShapeType::Arc:
      return CPlaneCurve::arc(radiusStart, length);
    case CShapeType::Clothoid:
      return CPlaneCurve::clothoid(radiusStart, radiusEnd, length);
    default:
      return {};
  }
}

std::vector<CHoralSegment> placedSegments(const std::vector<CHoralSegmentData>& data) {
  std::vector<CHoralSegment> segments;
  segments.reserve(data.size());
  for (const CHoralSegmentData& one : data) {
    segments.push_back(placedAlone(one));
  }
  for (std::size_t i = 0; i < data.size(); ++i) {
    if (segments[i].isEvaluable()) continue;
    const CPlaneCurve curve = curveOf(data[i]);
    if (!hasShape(data[i], curve) || !closesItself(curve)) continue;
    const CHoralSegment* before = i > 0 ? &segments[i - 1] : nullptr;
    const CHoralSegment* after = i + 1 < segments.size() ? &segments[i + 1] : nullptr;
    if (const auto bearing = bearingFromNeighbours(before, after, curve)) {
      segments[i].path = placedRigidly(curve, data[i].start, *bearing);
    }
  }
  return segments;
}

}  // namespace Ruv
