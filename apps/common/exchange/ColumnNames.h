// SPDX-License-Identifier: BSL-1.0
/// @file
/// What headings call the columns that readers know.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_COLUMN_NAMES_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_COLUMN_NAMES_H

#include "common/exchange/TableFormat.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Exchange {

/// Small Latin letters and digits only: "Höhe ü. NN" becomes "hoeheuenn".
std::string plainName(std::string_view heading);

/// Where the columns of a schema are in a table, according to its headings.
struct HeadingMatch {
  /// By column of the schema.
  std::vector<std::optional<std::size_t>> places;
  /// By column of the table: the unit that its heading names.
  std::vector<std::optional<Unit>> units;
  std::size_t matched = 0;  ///< columns of the schema that were found
  /// Why the headings cannot be used although they are some; empty when they can.
  std::string conflict;
  /// Required columns that no heading names.
  std::vector<std::string> missing;

  bool isComplete() const { return conflict.empty() && missing.empty(); }
};

/// Recognises the headings of tables. It remembers the cells that it has seen, since a line that is
/// split in one way after the other gives the same ones again and again.
class HeadingReader {
 public:
  /// The schema must live as long.
  explicit HeadingReader(const TableSchema& schema);
  ~HeadingReader();
  HeadingReader(const HeadingReader&) = delete;
  HeadingReader& operator=(const HeadingReader&) = delete;

  /// Headings name a column in English or German, and may name a unit: "East [m]", "Rechtswert",
  /// "Hz (gon)", "height_m". Y and X are east and north, as geodesists write them, when Y comes
  /// first; x and y are so in scans; otherwise they may be either, which is a conflict. So are two
  /// headings for one column, and two of the same name.
  HeadingMatch match(const std::vector<std::string_view>& cells);

 private:
  struct Memory;

  std::unique_ptr<Memory> m_memory;
};

/// Whether every cell names a unit or is empty: the line below the headings of some tables.
bool areUnits(const std::vector<std::string_view>& cells);

/// The unit that a cell of such a line names, with or without brackets.
std::optional<Unit> unitInBrackets(std::string_view cell);

}  // namespace Exchange

#endif
