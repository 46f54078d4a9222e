// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tables of text: points, measurements, sections, profiles.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_TABLE_H

#include "common/exchange/Outcome.h"
#include "common/exchange/TableCells.h"
#include "common/exchange/TableFormat.h"
#include "common/exchange/TextLines.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Exchange {

/// A row that could be read. Places are those of the columns in the schema.
struct TableRow {
  int line = 0;
  std::vector<std::string> texts;  ///< names and stations, fit to be shown; else empty
  std::vector<double> numbers;     ///< m and rad; NaN for names and where there is none
};

/// A table of any size, read row by row.
class TableStream {
 public:
  enum class Found { Row, BadRow, End };

  /// The stream must live as long.
  TableStream(std::istream& in, const TableSchema& schema, const TableFormat& format);
  ~TableStream();
  TableStream(const TableStream&) = delete;
  TableStream& operator=(const TableStream&) = delete;

  /// Recognises how the table is written, from its beginning: separator, decimal, headings, units.
  /// What is ambiguous is refused; the reason names the option that would settle it. Empty lines
  /// and comments (#, % or //) do not count, and lines before the headings are passed over.
  /// @return why it cannot be read; an empty message when it can
  Remark open();
  const TableLayout& layout() const { return m_layout; }

  /// @param[out] row when one was found
  /// @param[out] remark on a bad row, or on why the table ends before its end; else unchanged
  Found next(TableRow& row, Remark& remark);

  /// Of a scan that tells it: the number of its points, as far as it was told yet.
  std::uint64_t declaredRows() const { return m_declaredRows; }

  /// Of the stream, for the progress.
  std::uint64_t bytesRead() const { return m_lines.bytesRead(); }

 private:
  struct Sample;
  bool nextLine(std::string_view& line, int& number);
  bool isPassedOver(std::string_view line);

  TableSchema m_schema;
  TableFormat m_format;
  TextLines m_lines;
  TableLayout m_layout;
  std::unique_ptr<Sample> m_sample;  // the beginning of the table
  std::uint64_t m_declaredRows = 0;
  TableCells m_cells;
};

/// A table that fits into memory.
struct Table {
  TableLayout layout;
  std::vector<TableRow> rows;
  std::vector<Remark> rejected;  ///< rows that could not be read

  bool has(std::size_t column) const { return layout.places[column].has_value(); }

  /// Fails when no row can be read, and for more than two million rows.
  static Outcome<Table> read(std::istream& in, const TableSchema& schema,
                             const TableFormat& format);
  static Outcome<Table> read(const std::string& text, const TableSchema& schema,
                             const TableFormat& format);
};

}  // namespace Exchange

#endif
