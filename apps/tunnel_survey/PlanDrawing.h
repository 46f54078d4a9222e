// SPDX-License-Identifier: BSL-1.0
/// @file
/// The axis in plan.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_PLAN_DRAWING_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_PLAN_DRAWING_H

#include "tunnel_survey/SurveySheet.h"

namespace TunnelSurvey {

/// One or two strips on an A3 sheet, each turned so that stationing runs to the right, at the
/// largest usual scale that fits.
Drawing::Sheet planSheet(const SurveyPicture& picture);

}  // namespace TunnelSurvey

#endif
