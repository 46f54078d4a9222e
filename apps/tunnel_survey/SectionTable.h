// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tables of compared cross-sections.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_TABLE_H

#include "tunnel_survey/Report.h"
#include "tunnel_survey/SectionSurvey.h"

#include <ostream>

namespace TunnelSurvey {

/// Areas and the largest over and under break; a row for each section.
ResultTable areaTable(const SectionSurvey& survey);
/// Best-fit circles and ellipses.
ResultTable fitTable(const SectionSurvey& survey);
/// Everything of both, with more digits.
ResultTable sectionTable(const SectionSurvey& survey);
/// A row for each pair of neighbours. The survey must have volumes.
ResultTable volumeTable(const SectionSurvey& survey);

/// How many sections, volumes, extremes.
Facts summaryOf(const SectionSurvey& survey);

/// The section with the largest over break of all, and the one with the largest under break; null
/// when there is none.
const SectionResult* largestOverOf(const SectionSurvey& survey);
const SectionResult* largestUnderOf(const SectionSurvey& survey);

void printSectionTables(std::ostream& out, const SectionSurvey& survey);

}  // namespace TunnelSurvey

#endif
