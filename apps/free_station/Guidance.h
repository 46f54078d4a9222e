// SPDX-License-Identifier: BSL-1.0
/// @file
/// How a boom stands relative to the lines along which it is to be steered.

#ifndef CALCULATIONS_APPS_FREE_STATION_GUIDANCE_H
#define CALCULATIONS_APPS_FREE_STATION_GUIDANCE_H

#include <Calculations/Calculations.h>

#include <string>
#include <vector>

namespace FreeStation {

using AxisPointer = boost::shared_ptr<const Ruv::Calculations::AxisDefinition>;

struct GuidanceTask {
  AxisPointer axis;
  Ruv::Calculations::AxisPoint origin;  ///< of the vectors
  Ruv::Calculations::ENHPoint boom;
  double ahead = 5.0;  ///< m from the boom along the vector
};

struct GuidanceResult {
  std::string vector;  ///< in words
  Ruv::Calculations::GuidanceOffsets offsets;
  Ruv::Calculations::ENHPoint ahead;
  std::vector<Ruv::Calculations::ENHPoint> line;  ///< from behind the boom to the point ahead
};

/// For a vector parallel to the axis, and for a straight one that leaves the origin along the
/// tangent. Both are evaluated square to the axis in space. Throws a TunnelSurvey::Failure when the
/// origin, the boom or the point ahead does not lie beside the axis.
std::vector<GuidanceResult> guide(const GuidanceTask& task);

}  // namespace FreeStation

#endif
