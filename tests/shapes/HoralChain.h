// SPDX-License-Identifier: BSL-1.0
/// @file
/// Chains of plan segments to place.

#ifndef CALCULATIONS_TESTS_SHAPES_HORAL_CHAIN_H
#define CALCULATIONS_TESTS_SHAPES_HORAL_CHAIN_H

#include "shapes/HoralSegment.h"
#include "testing/Numbers.h"

#include <Calculations/ShapeElements.h>

#include <cstdint>
#include <vector>

namespace TestSupport {

using Ruv::CHoralSegmentData;
using Ruv::Point2D;

/// Appends a segment that continues the chain; the azimuth is its true start azimuth, and its
/// stored end lies beside the true one.
inline void append(std::vector<CHoralSegmentData>& chain, std::int32_t typeId, double radiusStart,
                   double radiusEnd, double length, double azimuth, bool tellsAzimuth,
                   const Point2D& misclosure = Point2D()) {
  CHoralSegmentData data;
  data.typeId = typeId;
  data.hasStart = true;
  if (chain.empty()) {
    data.stationingStart = 1000.0;
    data.start = {600000.0, 200000.0};
  } else {
    data.stationingStart = chain.back().stationingEnd;
    data.start = chain.back().end;
  }
  data.stationingEnd = data.stationingStart + length;
  data.radiusStart = radiusStart;
  data.radiusEnd = radiusEnd;
  const Ruv::CPlaneCurve curve = Ruv::curveOfType(typeId, radiusStart, radiusEnd, length);
  data.end =
      data.start + turnedTo(Ruv::directionOfBearing(azimuth), curve.end().position) + misclosure;
  data.definedAzimuth = tellsAzimuth ? azimuth : kNaN;
  chain.push_back(data);
}

}  // namespace TestSupport

#endif
