// SPDX-License-Identifier: BSL-1.0
/// @file
/// What a reader wants from a table, and what is known beforehand about how it is written.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_FORMAT_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_FORMAT_H

#include "common/exchange/Units.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Exchange {

enum class Separator {
  Comma,
  Semicolon,
  Tab,
  Bar,
  Blanks,
  WideBlanks  ///< two or more, or a tab: names may then hold single ones
};

/// "commas", "semicolons", ...
std::string nameOf(Separator separator);

/// What to take as given; all else is recognised.
struct TableFormat {
  std::optional<Separator> separator;
  std::optional<char> decimal;
  /// Names of columns as in a schema, in the order of the table; "-" for one that is not needed.
  /// They stand for the header line, if there is one.
  std::vector<std::string> columns;
  /// Where no header line is recognised there is none: the columns come in their usual order.
  bool hasNoHeader = false;
  std::optional<AngleUnit> angles;
  std::optional<double> metresPerLength;
};

enum class Quantity { Text, Length, Station, Angle };

/// A column that a reader knows. The names that headings may give to it: see ColumnNames.h.
struct TableColumn {
  std::string name;
  Quantity quantity = Quantity::Length;
  bool isRequired = true;
  /// Names: where a table has no such column, and none that is not known, its rows are counted.
  bool isCounted = false;
};

/// Columns that a reader knows.
struct TableSchema {
  std::vector<TableColumn> columns;
  /// What a table without headings begins with: names of columns.
  std::vector<std::string> usualOrder;
  AngleUnit angleUnit = AngleUnit::Gon;  ///< where nothing else is told
  /// Scans have no header line as a rule: x, y and z are then east, north and height.
  bool isScan = false;
};

/// How a table is written.
struct TableLayout {
  Separator separator = Separator::Comma;
  char decimal = '.';
  std::size_t width = 0;  ///< columns; 0 when rows may have any number of further ones
  /// By column of the schema, the place in a row; nothing when the table does not have it.
  std::vector<std::optional<std::size_t>> places;
  std::vector<double> metresPerLength;               ///< by column of the schema
  std::vector<std::optional<AngleUnit>> angleUnits;  ///< the same
  std::string description;  ///< what was recognised; empty for the plain form
};

}  // namespace Exchange

#endif
