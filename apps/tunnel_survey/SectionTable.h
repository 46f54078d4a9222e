/// @file
/// Tables of compared cross-sections, for the terminal, the report and other programs.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_TABLE_H

#include "tunnel_survey/SectionSurvey.h"

#include <ostream>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// A row for each section; headings are a name and, after a line break, the unit.
struct SectionTable {
  std::vector<std::string> headings;
  std::vector<std::vector<std::string>> rows;
};

/// Areas and the largest over and under break.
SectionTable areaTable(const SectionSurvey& survey);
/// Best-fit circles and ellipses.
SectionTable fitTable(const SectionSurvey& survey);
/// Name and value with unit: how many sections, volumes, extremes.
std::vector<std::pair<std::string, std::string>> summaryOf(const SectionSurvey& survey);

/// The section with the largest over break of all, and the one with the largest under break; null
/// when there is none.
const SectionResult* largestOverOf(const SectionSurvey& survey);
const SectionResult* largestUnderOf(const SectionSurvey& survey);

void printSectionTables(std::ostream& out, const SectionSurvey& survey);

/// Everything of both tables as CSV, metres and radians.
std::string sectionsAsCsv(const SectionSurvey& survey);

}  // namespace TunnelSurvey

#endif
