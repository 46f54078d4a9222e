// SPDX-License-Identifier: BSL-1.0
#include "common/console/TextTable.h"

#include <algorithm>
#include <cstddef>

namespace Console {

namespace {

/// Letters of UTF-8 text: all bytes but those that continue a letter.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  }));
}

void printRow(std::ostream& out, const std::vector<std::string>& cells,
              const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size() && i < widths.size(); ++i) {
    line += "  " + std::string(widths[i] - widthOf(cells[i]), ' ') + cells[i];
  }
  out << line << '\n';
}

}  // namespace

TextTable::TextTable(const std::vector<std::string>& headings) : m_headings(2) {
  for (const std::string& heading : headings) {
    const std::size_t lineBreak = heading.find('\n');
    m_headings[0].push_back(heading.substr(0, lineBreak));
    m_headings[1].push_back(lineBreak == std::string::npos ? "" : heading.substr(lineBreak + 1));
  }
}

std::vector<std::size_t> TextTable::columnWidths() const {
  std::vector<std::size_t> widths(m_headings[0].size(), 0);
  for (const auto* rows : {&m_headings, &m_rows}) {
    for (const std::vector<std::string>& cells : *rows) {
      for (std::size_t i = 0; i < cells.size() && i < widths.size(); ++i) {
        widths[i] = std::max(widths[i], widthOf(cells[i]));
      }
    }
  }
  return widths;
}

void TextTable::print(std::ostream& out) const {
  const std::vector<std::size_t> widths = columnWidths();
  printRow(out, m_headings[0], widths);
  const bool hasUnits = std::any_of(m_headings[1].begin(), m_headings[1].end(),
                                    [](const std::string& unit) { return !unit.empty(); });
  if (hasUnits) printRow(out, m_headings[1], widths);
  std::vector<std::string> rule;
  rule.reserve(widths.size());
  for (const std::size_t width : widths) {
    rule.emplace_back(width, '-');
  }
  printRow(out, rule, widths);
  for (const std::vector<std::string>& row : m_rows) {
    printRow(out, row, widths);
  }
}

}  // namespace Console
