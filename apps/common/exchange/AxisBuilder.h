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

struct BuiltAxis {
  boost::shared_ptr<const Ruv::Calculations::AxisDefinition> axis;
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
