// SPDX-License-Identifier: BSL-1.0
/// @file
/// The results for other programs.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_JSON_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_JSON_H

#include "common/exchange/Json.h"
#include "tunnel_survey/SurveyResults.h"

namespace TunnelSurvey {

/// Members axis, points, setting_out, check, transition and sections, as far as there are results.
/// Metres, square and cubic metres, gon, percent; numbers have all their digits. Stationings count
/// on along the axis; where there are station equations, the station that people read is beside
/// them.
Exchange::Json jsonOf(const SurveyResults& results);

}  // namespace TunnelSurvey

#endif
