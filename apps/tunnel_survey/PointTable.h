/// @file
/// Points beside the axis.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_POINT_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_POINT_TABLE_H

#include "common/exchange/PointFile.h"
#include "tunnel_survey/ResultTable.h"

#include <vector>

namespace TunnelSurvey {

/// Surveyed points with their places on the axis.
ResultTable pointTable(const std::vector<Exchange::ConvertedPoint>& points, int decimals = 3);

}  // namespace TunnelSurvey

#endif
