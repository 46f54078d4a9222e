// SPDX-License-Identifier: BSL-1.0
/// @file
/// The axis part of the program: builds, tabulates, converts and compares.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_AXIS_SURVEY_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_AXIS_SURVEY_H

#include "tunnel_survey/Options.h"
#include "tunnel_survey/SurveySheet.h"

namespace TunnelSurvey {

/// Prints what it finds. Throws a Failure for files that cannot be used.
/// @return the axis and the converted points
SurveyPicture surveyAxis(const Options& options);

}  // namespace TunnelSurvey

#endif
