// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/ResultTable.h"

#include "common/console/TextTable.h"
#include "common/exchange/NumberParsing.h"
#include "common/exchange/TableCells.h"

#include <cstddef>
#include <utility>

namespace TunnelSurvey {

namespace {

/// "m2": not every program that reads tables knows of UTF-8.
std::string plainUnit(std::string unit) {
  for (const auto& [sign, digit] : {std::pair{"\u00b2", "2"}, std::pair{"\u00b3", "3"}}) {
    const std::size_t place = unit.find(sign);
    if (place != std::string::npos) unit.replace(place, std::string(sign).size(), digit);
  }
  return unit;
}

/// Numbers stand in columns with a unit: without a plus, and without the dash for none.
std::string cellOf(const std::string& text, bool isNumber) {
  if (!isNumber || !Exchange::parseNumber(text)) {
    return isNumber && text == "-" ? std::string() : Exchange::csvCell(text);
  }
  return text.front() == '+' ? text.substr(1) : text;
}

}  // namespace

std::string nameIn(const std::string& heading) { return heading.substr(0, heading.find('\n')); }

std::string unitIn(const std::string& heading) {
  const std::size_t lineBreak = heading.find('\n');
  return lineBreak == std::string::npos ? "" : heading.substr(lineBreak + 1);
}

void print(std::ostream& out, const ResultTable& table) {
  Console::TextTable text(table.headings);
  for (const std::vector<std::string>& row : table.rows) {
    text.addRow(row);
  }
  text.print(out);
}

std::string csvOf(const ResultTable& table) {
  std::string text;
  for (const std::string& heading : table.headings) {
    const std::string unit = plainUnit(unitIn(heading));
    if (!text.empty()) text += ',';
    text += Exchange::csvCell(unit.empty() ? nameIn(heading) : nameIn(heading) + " [" + unit + "]");
  }
  text += '\n';
  for (const std::vector<std::string>& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) text += ',';
      text += cellOf(row[i], !unitIn(table.headings[i]).empty());
    }
    text += '\n';
  }
  return text;
}

}  // namespace TunnelSurvey
