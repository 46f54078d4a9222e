// SPDX-License-Identifier: BSL-1.0
/// @file
/// The longitudinal section of the axis.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_DRAWING_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_DRAWING_H

#include "tunnel_survey/SurveySheet.h"

namespace TunnelSurvey {

/// Grade line with its points of intersection, roundings and grades, above bands with heights and
/// the curvature in plan. One or two strips on an A3 sheet at the largest usual scale that fits.
/// @param exaggeration of the heights, at least 1
Drawing::Sheet sectionSheet(const SurveyPicture& picture, double exaggeration);

}  // namespace TunnelSurvey

#endif
