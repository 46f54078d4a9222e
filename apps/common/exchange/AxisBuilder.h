// SPDX-License-Identifier: BSL-1.0
/// @file
/// Builds the axis of an alignment with the library.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_AXIS_BUILDER_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_AXIS_BUILDER_H

#include "common/exchange/AlignmentModel.h"

#include <Calculations/Calculations.h>

#include <optional>
#include <vector>

namespace Exchange {

/// An element of the plan as the axis has it.
struct PlacedElement {
  ElementKind kind = ElementKind::Straight;
  double station = 0.0;
  PlanPoint start;
  double azimuth = 0.0;
  double length = 0.0;
  double radiusStart = 0.0;  ///< positive to the right, 0 infinite
  double radiusEnd = 0.0;
};

/// A point of the profile as the axis has it.
struct PlacedPoint {
  RoundingKind rounding = RoundingKind::None;
  double station = 0.0;
  double height = 0.0;
  double radius = 0.0;  ///< of a parabola in its vertex
};

/// Transverse slopes (percent) between two stations as the axis has them.
struct PlacedSlope {
  double stationFrom = 0.0;
  double stationTo = 0.0;
  double slopeFrom = 0.0;
  double slopeTo = 0.0;
};

struct BuiltAxis {
  boost::shared_ptr<const Ruv::Calculations::AxisDefinition> axis;
  std::vector<PlacedElement> plan;
  std::vector<PlacedPoint> profile;
  std::vector<PlacedSlope> slopes;
  Stationing stationing;       ///< the stations that people read
  bool hasHeights = true;      ///< else the axis lies at height 0
  bool hasCant = false;        ///< the axis has transverse slopes
  double largestMisfit = 0.0;  ///< between where an element ends and its printed end (m)
  double largestKink = 0.0;    ///< break of direction between two elements (rad)
  std::vector<Remark> notes;   ///< those of the alignment, and what its coordinates contradict
};

/// Directions come from the coordinates of the elements, not from printed angles, which some
/// programs count from east or anticlockwise. Refuses an alignment whose coordinates, stations,
/// lengths and radii contradict each other by more than a centimetre. The tunnel meter is 0 where
/// the axis begins.
/// @param cantBase distance of the rails (m) that makes transverse slopes of the cant; nothing
///   leaves the cant unused
Outcome<BuiltAxis> buildAxis(const Alignment& alignment,
                             std::optional<double> cantBase = std::nullopt);

}  // namespace Exchange

#endif
