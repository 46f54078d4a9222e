// SPDX-License-Identifier: BSL-1.0
/// @file
/// Reads the golden files: one header line, then rows of numbers and words.

#ifndef CALCULATIONS_TESTING_CSV_H
#define CALCULATIONS_TESTING_CSV_H

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

class CsvRow {
 public:
  explicit CsvRow(std::map<std::string, std::string> fields) : m_fields(std::move(fields)) {}

  const std::string& text(const std::string& column) const { return m_fields.at(column); }
  bool has(const std::string& column) const { return !text(column).empty(); }
  double number(const std::string& column) const { return std::stod(text(column)); }

 private:
  std::map<std::string, std::string> m_fields;  ///< by column
};

/// Of a file below tests/golden. Throws std::runtime_error when it cannot be read.
std::vector<CsvRow> rowsOf(const std::string& path);
bool isGoldenFile(const std::string& path);

}  // namespace TestSupport

#endif
