// SPDX-License-Identifier: BSL-1.0
/// @file
/// The profiles of a transition as one picture.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_TRANSITION_DRAWING_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_TRANSITION_DRAWING_H

#include "tunnel_survey/Transition.h"

#include "common/drawing/Canvas.h"

namespace TunnelSurvey {

/// An A3 sheet: each section in a frame of its own; beside them all outlines one upon the other,
/// and below those, in line with them, the plan of the widening. The transition must outlive it.
Drawing::Sheet transitionSheet(const Transition& transition);

}  // namespace TunnelSurvey

#endif
