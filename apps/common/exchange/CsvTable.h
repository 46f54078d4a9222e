/// @file
/// Tables of comma-separated values with a header line.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_CSV_TABLE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_CSV_TABLE_H

#include "common/exchange/AlignmentModel.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Exchange {

/// The cells of one line, asked for by the name of their column.
class CsvRow {
 public:
  CsvRow(const std::vector<std::string>& columns, std::vector<std::string> cells, int line)
      : m_columns(&columns), m_cells(std::move(cells)), m_line(line) {}

  int line() const { return m_line; }
  Outcome<std::string> text(const std::string& column) const;
  Outcome<double> number(const std::string& column) const;
  /// In the order of the columns; else the first reason why one is none.
  Outcome<std::vector<double>> numbers(const std::vector<std::string>& columns) const;

 private:
  const std::vector<std::string>* m_columns;
  std::vector<std::string> m_cells;
  int m_line;
};

/// A cell to be written, in double quotes where it needs them.
std::string csvCell(const std::string& text);

/// Not copyable: its rows refer to its header.
class CsvTable {
 public:
  CsvTable() = default;
  CsvTable(const CsvTable&) = delete;
  CsvTable& operator=(const CsvTable&) = delete;

  /// Blank lines and those that begin with # are passed over. Cells may stand in double quotes.
  /// @return false when there is no header line or a column is missing; error() tells which
  bool read(const std::string& text, const std::vector<std::string>& requiredColumns);

  bool hasColumn(const std::string& name) const;
  const Remark& error() const { return m_error; }
  const std::vector<CsvRow>& rows() const { return m_rows; }
  /// Lines that cannot be split into cells.
  const std::vector<Remark>& unreadable() const { return m_unreadable; }

 private:
  bool readHeader(const std::string& line, int number, const std::vector<std::string>& required);

  std::vector<std::string> m_columns;
  std::vector<CsvRow> m_rows;
  std::vector<Remark> m_unreadable;
  Remark m_error;
};

}  // namespace Exchange

#endif
