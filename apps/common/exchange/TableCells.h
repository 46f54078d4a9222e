// SPDX-License-Identifier: BSL-1.0
/// @file
/// The cells of a line of a table.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_CELLS_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_CELLS_H

#include "common/exchange/TableFormat.h"

#include <string>
#include <string_view>
#include <vector>

namespace Exchange {

/// Splits lines, one after the other, into the same store.
class TableCells {
 public:
  /// A cell may stand in double quotes, and a doubled quote in it is one. A quote anywhere else,
  /// and one that is never closed, is an ordinary character; so is a backslash. Blanks around cells
  /// do not count.
  /// @return the cells; they hold until the next call, and as long as the line
  const std::vector<std::string_view>& split(std::string_view line, Separator separator);

 private:
  std::string_view unquoted(std::string_view content);

  std::vector<std::string_view> m_cells;
  std::string m_store;  // contents of quoted cells with doubled quotes
};

/// A cell to be written, in double quotes where it needs them. A text that a spreadsheet would take
/// for a formula gets an apostrophe before it, as one would type it there; readers take it off.
std::string csvCell(const std::string& text);

/// A name in a cell that was read: without the apostrophe of csvCell(), and fit to be shown.
std::string nameIn(std::string_view cell);

}  // namespace Exchange

#endif
