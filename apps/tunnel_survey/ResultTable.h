// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tables of results: for the terminal, the report, and other programs.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_RESULT_TABLE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_RESULT_TABLE_H

#include <ostream>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// Headings are a name and, after a line break, the unit; numbers have one, but for counts.
struct ResultTable {
  std::vector<std::string> headings;
  std::vector<std::vector<std::string>> rows;
};

/// A heading's parts.
/// @{
std::string nameIn(const std::string& heading);
std::string unitIn(const std::string& heading);
/// @}

void print(std::ostream& out, const ResultTable& table);

/// With headings as "stationing [m]"; where a number is missing the cell is empty.
std::string csvOf(const ResultTable& table);

}  // namespace TunnelSurvey

#endif
