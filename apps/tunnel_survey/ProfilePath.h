// SPDX-License-Identifier: BSL-1.0
/// @file
/// Design profiles on the page.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_PROFILE_PATH_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_PROFILE_PATH_H

#include "common/exchange/DesignProfile.h"

#include "common/drawing/Picture.h"

namespace TunnelSurvey {

/// The outline, its arcs as such.
/// @param mapping with one scale for both axes, not turned
Drawing::Path pathOf(const Exchange::DesignProfile& profile, const Drawing::WorldMapping& mapping);

}  // namespace TunnelSurvey

#endif
