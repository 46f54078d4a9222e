// SPDX-License-Identifier: BSL-1.0
/// @file
/// A stretch of tunnel in which the design profile changes to another.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_TRANSITION_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_TRANSITION_H

#include "common/exchange/DesignProfile.h"
#include "tunnel_survey/ResultTable.h"
#include "tunnel_survey/SurveySheet.h"

#include <optional>
#include <string>
#include <vector>

namespace TunnelSurvey {

struct Options;

/// The profile at a stationing.
struct TransitionSection {
  double station = 0.0;
  Exchange::DesignProfile profile;
  double fromStart = 0.0;  ///< along the axis (m)
};

/// The outermost points of the profile at a stationing, to the right of the axis (m).
struct TransitionEdges {
  double station = 0.0;
  double left = 0.0;
  double right = 0.0;
};

struct Transition {
  std::string startSource;  ///< the files that the profiles come from
  std::string endSource;
  std::vector<TransitionSection> sections;  ///< nine at equal distances, the given ones at the ends
  std::vector<TransitionEdges> edges;       ///< closer together than the sections
  Exchange::Stationing stationing;          ///< the stations that people read

  Exchange::StationRange range() const {
    return {sections.front().station, sections.back().station};
  }
};

/// Fails when the profiles cannot be morphed. The range must have a length.
Exchange::Outcome<Transition> transitionBetween(const Exchange::DesignProfile& start,
                                                const Exchange::DesignProfile& end,
                                                const Exchange::StationRange& range);

/// Prints the sections. Throws a Failure for files that cannot be used; profiles that cannot be
/// morphed are told, and give nothing.
/// @param axis along which lengths are measured; null for those of the stationing
std::optional<Transition> surveyTransition(
    const Options& options, const boost::shared_ptr<const Ruv::Calculations::AxisDefinition>& axis,
    const Exchange::Stationing& stationing);

/// Size, area and volume of each section; volumes by mean end areas.
ResultTable transitionTable(const Transition& transition);
/// The elements of all sections.
ResultTable elementTable(const Transition& transition);

}  // namespace TunnelSurvey

#endif
