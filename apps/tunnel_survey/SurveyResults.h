// SPDX-License-Identifier: BSL-1.0
/// @file
/// Everything that the program finds out.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_RESULTS_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_RESULTS_H

#include "tunnel_survey/SectionSurvey.h"
#include "tunnel_survey/SurveySheet.h"
#include "tunnel_survey/Transition.h"

#include <optional>

namespace TunnelSurvey {

struct SurveyResults {
  std::optional<SurveyPicture> axis;
  std::optional<Transition> transition;
  std::optional<SectionSurvey> sections;
};

}  // namespace TunnelSurvey

#endif
