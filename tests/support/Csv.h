/// @file
/// Reads the golden files: one header line, then rows of numbers and words.

#ifndef CALCULATIONS_TESTS_SUPPORT_CSV_H
#define CALCULATIONS_TESTS_SUPPORT_CSV_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace TestSupport {

class CsvRow {
 public:
  CsvRow(const std::map<std::string, std::size_t>* columns, std::vector<std::string> fields)
      : m_columns(columns), m_fields(std::move(fields)) {}

  const std::string& text(const std::string& column) const {
    return m_fields.at(m_columns->at(column));
  }
  bool has(const std::string& column) const { return !text(column).empty(); }
  double number(const std::string& column) const { return std::stod(text(column)); }

 private:
  const std::map<std::string, std::size_t>* m_columns;
  std::vector<std::string> m_fields;
};

/// A file below tests/golden. Throws std::runtime_error when it cannot be read.
class Csv {
 public:
  explicit Csv(const std::string& path);

  std::vector<CsvRow> rows() const;
  static bool exists(const std::string& path);

 private:
  std::map<std::string, std::size_t> m_columns;
  std::vector<std::vector<std::string>> m_rows;
};

}  // namespace TestSupport

#endif
