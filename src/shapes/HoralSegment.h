// SPDX-License-Identifier: BSL-1.0
/// @file
/// One segment of a horizontal alignment, placed between its stored end points.

#ifndef CALCULATIONS_SHAPES_HORAL_SEGMENT_H
#define CALCULATIONS_SHAPES_HORAL_SEGMENT_H

#include "shapes/PlacedCurve.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Ruv {

/// What an alignment stores of a segment.
struct CHoralSegmentData {
  std::int32_t typeId = 0;
  bool hasStart = false;  ///< false when no element precedes the segment's end
  double stationingStart = 0.0;
  double stationingEnd = 0.0;
  Point2D start;
  Point2D end;
  double radiusStart = 0.0;
  double radiusEnd = 0.0;
  double definedAzimuth = 0.0;  ///< not-a-number if none is known
};

/// A segment ready for evaluation: four lines of a cache, in the order of what is asked for.
///
/// The place of a stationing on a straight takes the first one, on an arc or clothoid the first
/// two; the foot of a point takes the ends of the curve as well, which lie in the third and fourth.
struct alignas(64) CHoralSegment {
  double stationingStart = 0.0;
  CPlacedCurve path;
  double stationingEnd = 0.0;
  Point2D start;
  Point2D end;
  bool isGap = false;       ///< skipped by the projection
  bool opensWedge = false;  ///< with the segment after it, see CSmoothWedge

  /// Whether there is a path.
  bool isEvaluable() const { return path.curve.isDefined(); }
  /// Both ends are one joint of the alignment; never evaluable.
  bool isOfLengthZero() const { return stationingStart == stationingEnd; }
};
static_assert(sizeof(CHoralSegment) == 256, "four lines of a cache");

/// Places all segments of an alignment.
///
/// A segment leads exactly from the end point of the element before it to its own end point. When
/// the azimuth with which the segment was defined leads from the one to the other but for a
/// printing error, the segment is laid out rigidly with it and the error is spread evenly along it.
/// So azimuths are those given, and no place is off by more than the printing error, however far
/// the segment turns and however short it is. Otherwise the start azimuth and a scale follow from
/// the two points and the canonical curve.
///
/// A segment is not evaluable when its type or shape is none, its length is not positive, its end
/// points coincide although its curve does not close, or when its curve closes and neither its
/// azimuth nor a neighbour tells the direction.
std::vector<CHoralSegment> placedSegments(const std::vector<CHoralSegmentData>& data);

/// The curve of a segment type with the given radii. Not defined for other types.
CPlaneCurve curveOfType(std::int32_t typeId, double radiusStart, double radiusEnd, double length);

}  // namespace Ruv

#endif
