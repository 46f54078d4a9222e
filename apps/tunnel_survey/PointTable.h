// SPDX-License-Identifier: BSL-1.0
/// @file
/// Points beside the axis.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_POINT_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_POINT_TABLE_H

#include "tunnel_survey/ResultTable.h"
#include "tunnel_survey/SurveySheet.h"

#include <vector>

namespace TunnelSurvey {

/// Points with their places on the axis.
ResultTable pointTable(const std::vector<Exchange::ConvertedPoint>& points,
                       const SurveyPicture& picture, int decimals = 3);

}  // namespace TunnelSurvey

#endif
