// SPDX-License-Identifier: BSL-1.0
/// @file
/// The cross-section part of the program: reads or cuts the sections and compares them.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_SURVEY_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_SURVEY_H

#include "common/exchange/Stationing.h"
#include "tunnel_survey/SectionComparison.h"

#include <optional>
#include <string>
#include <vector>

namespace TunnelSurvey {

struct Options;

struct SectionSurvey {
  Exchange::DesignProfile design;
  ComparisonRule rule;
  std::string noun = "Section";  ///< what a section is called
  std::string designSource;      ///< the files they come from
  std::string source;
  double magnify = 1.0;                ///< of the deviations in drawings
  std::vector<SectionResult> results;  ///< at least one
  std::optional<Volumes> volumes;
  Exchange::Stationing stationing;  ///< the stations that people read
  std::vector<std::string> doubts;  ///< why the results may be wrong, in sentences

  bool hasStations() const { return results.front().section.station.has_value(); }
};

/// "Ring 55", "Section 3 at 7+310.000"
std::string titleOf(const SectionSurvey& survey, const SectionResult& result);

/// Prints what it finds. Throws a Failure for files that cannot be used.
/// @param axis may be null unless a scan is to be cut
SectionSurvey surveySections(const Options& options,
                             const boost::shared_ptr<const Ruv::Calculations::AxisDefinition>& axis,
                             const Exchange::Stationing& stationing);

}  // namespace TunnelSurvey

#endif
