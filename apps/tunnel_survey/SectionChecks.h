// SPDX-License-Identifier: BSL-1.0
/// @file
/// What makes measured cross-sections doubtful.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_CHECKS_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_CHECKS_H

#include "common/exchange/DesignProfile.h"
#include "common/exchange/StationRange.h"
#include "tunnel_survey/SectionFile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace TunnelSurvey {

/// Two sides of the polygon through the points that cross each other: the places of the points that
/// they begin at. Sides that only touch do not cross. Gives up, with nothing, on polygons of many
/// thousand points that are no outline of anything.
std::optional<std::pair<std::size_t, std::size_t>> crossingSides(
    const std::vector<Ruv::Calculations::Point2D>& points);

/// Whether the middle of the points lies beside, above or below the design profile.
bool liesBeside(const MeasuredSection& section, const Exchange::DesignProfile& design);

/// Sections that cross themselves, that lie beside the design, or whose station is none of the
/// axis: a sentence for each kind, with the option that may help.
/// @param axis where it runs, if there is one
std::vector<std::string> doubtsOn(const std::vector<MeasuredSection>& sections,
                                  const Exchange::DesignProfile& design,
                                  const std::optional<Exchange::StationRange>& axis);

/// Clockwise around a centre, from its lower side.
void sortAround(const Ruv::Calculations::Point2D& centre,
                std::vector<Ruv::Calculations::Point2D>& points);

}  // namespace TunnelSurvey

#endif
