// SPDX-License-Identifier: BSL-1.0
/// @file
/// Recognises how a table is written from its first lines.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_RECOGNITION_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_RECOGNITION_H

#include "common/exchange/Outcome.h"
#include "common/exchange/TableFormat.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Exchange {

struct TextLine {
  int number = 0;
  std::string text;
};

/// The beginning of a table.
struct TableSample {
  std::vector<TextLine> lines;     ///< neither empty nor comments
  std::vector<TextLine> comments;  ///< without what marks them; before the first of the lines
};

/// A row read according to a layout.
struct RowValues {
  std::vector<double> numbers;  ///< by column of the schema (m, rad); NaN for none and for texts
  std::string problem;          ///< why the row cannot be used; empty when it can
};

/// Reads the numbers of a row. Cells beyond the columns must be empty.
void readNumbers(const std::vector<std::string_view>& cells, const TableSchema& schema,
                 const TableLayout& layout, RowValues& values);

struct RecognisedTable {
  TableLayout layout;
  std::size_t firstRow = 0;  ///< among the lines of the sample
};

/// Tries every separator with either decimal, as far as the format leaves them open, and takes the
/// pair under which most rows can be read. When another pair reads a row differently, the table is
/// ambiguous.
Outcome<RecognisedTable> recogniseTable(const TableSample& sample, const TableSchema& schema,
                                        const TableFormat& format);

}  // namespace Exchange

#endif
