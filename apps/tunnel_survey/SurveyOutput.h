// SPDX-License-Identifier: BSL-1.0
/// @file
/// Everything that is written into the output directory.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_OUTPUT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_OUTPUT_H

#include "tunnel_survey/Options.h"
#include "tunnel_survey/SurveyResults.h"

namespace TunnelSurvey {

/// Prints what it writes. Throws a Failure when it cannot.
void writeResults(const Options& options, const SurveyResults& results);

}  // namespace TunnelSurvey

#endif
