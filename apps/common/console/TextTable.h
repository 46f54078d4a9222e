// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tables for the terminal, columns aligned to the right.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_TEXT_TABLE_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_TEXT_TABLE_H

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace Console {

class TextTable {
 public:
  /// @param headings at most two lines each: the name and, after a line break, the unit
  explicit TextTable(const std::vector<std::string>& headings);

  void addRow(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }
  void print(std::ostream& out) const;

 private:
  std::vector<std::size_t> columnWidths() const;

  std::vector<std::vector<std::string>> m_headings;
  std::vector<std::vector<std::string>> m_rows;
};

}  // namespace Console

#endif
