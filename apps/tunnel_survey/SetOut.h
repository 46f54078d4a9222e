// SPDX-License-Identifier: BSL-1.0
/// @file
/// Coordinates of points that are to be set out.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SET_OUT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SET_OUT_H

#include "common/exchange/PointFile.h"
#include "tunnel_survey/Options.h"
#include "tunnel_survey/SurveySheet.h"

#include <Calculations/Calculations.h>

#include <istream>
#include <string>
#include <vector>

namespace TunnelSurvey {

struct SetOutPoint {
  int line = 0;
  std::string id;
  Ruv::Calculations::AxisPoint onAxis;
  bool isHeightUnclear = false;  ///< above the axis, or of the point
};

/// Columns id, station, offset and height_above_axis; all but the station may be missing: points
/// are then counted, and lie on the axis. A column height alone may mean either height and is
/// refused.
const Exchange::TableSchema& setOutColumns();
Exchange::Outcome<Exchange::PointFile<SetOutPoint>> readSetOutPoints(
    std::istream& in, const Exchange::TableFormat& format = {});

/// Reads points beside the axis of the picture and prints their coordinates. Throws a Failure for a
/// file that cannot be used, and when no point lies beside the axis.
std::vector<Exchange::ConvertedPoint> setOut(const Options& options,
                                             const Ruv::Calculations::AxisCalculator& calculator,
                                             const SurveyPicture& picture);

}  // namespace TunnelSurvey

#endif
