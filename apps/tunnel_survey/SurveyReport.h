// SPDX-License-Identifier: BSL-1.0
/// @file
/// The report of a survey.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_REPORT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_REPORT_H

#include "tunnel_survey/Options.h"
#include "tunnel_survey/Report.h"
#include "tunnel_survey/SurveyResults.h"

namespace TunnelSurvey {

/// The axis, the transition and the cross-sections, as far as there are any. The results must
/// outlive it.
Report reportOf(const Options& options, const SurveyResults& results);

}  // namespace TunnelSurvey

#endif
