/// @file
/// Builds the axis of an alignment with the library.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_AXIS_BUILDER_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_AXIS_BUILDER_H

#include "common/exchange/AlignmentModel.h"

#include <Calculations/Calculations.h>

#include <vector>

namespace Exchange {

struct BuiltAxis {
  boost::shared_ptr<const Ruv::Calculations::AxisDefinition> axis;
  double largestMisfit = 0.0;  ///< between where an element ends and its printed end (m)
  double largestKink = 0.0;    ///< break of direction between two elements (rad)
  std::vector<Remark> notes;   ///< what the file prints but its coordinates contradict
};

/// Directions come from the coordinates of the elements, not from printed angles. Refuses an
/// alignment whose coordinates, stations, lengths and radii contradict each other by more than a
/// centimetre. The tunnel meter is 0 where the axis begins.
Outcome<BuiltAxis> buildAxis(const Alignment& alignment);

}  // namespace Exchange

#endif
