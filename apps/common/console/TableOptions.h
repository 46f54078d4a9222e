// SPDX-License-Identifier: BSL-1.0
/// @file
/// Options that say how tables are written, for what cannot be recognised.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_TABLE_OPTIONS_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_TABLE_OPTIONS_H

#include "common/console/CommandLine.h"
#include "common/exchange/TableFormat.h"

#include <string>
#include <vector>

namespace Console {

/// A table that a command reads: the option that names its file, and its columns.
struct NamedTable {
  std::string name;
  const Exchange::TableSchema* schema = nullptr;
};

/// As they were given. Each holds for all tables, or for one: "points:semicolon".
struct TableOptions {
  std::vector<std::string> delimiters;
  std::vector<std::string> decimals;
  std::vector<std::string> columns;
  std::vector<std::string> angles;
  std::vector<std::string> lengths;
  bool hasNoHeader = false;

  /// Throws WrongUsage for a word that means nothing, and for an option that concerns none of the
  /// tables that the command reads.
  void check(const std::vector<NamedTable>& tables) const;

  /// For one of them. Columns hold for every table that knows all of their names.
  Exchange::TableFormat formatFor(const NamedTable& table) const;
};

/// Under a heading of their own.
/// @param tables "points, check, sections, ...": for the help
void addTableOptions(OptionGroup all, TableOptions& options, const std::string& tables);

}  // namespace Console

#endif
