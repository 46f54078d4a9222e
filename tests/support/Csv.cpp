#include "support/Csv.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace TestSupport {

namespace {

std::string fullPath(const std::string& path) { return std::string(GOLDEN_DIR) + "/" + path; }

std::vector<std::string> fieldsOf(std::string line) {
  if (!line.empty() && line.back() == '\r') line.pop_back();
  std::vector<std::string> fields;
  std::istringstream stream(line + ",");
  for (std::string field; std::getline(stream, field, ',');) {
    fields.push_back(field);
  }
  return fields;
}

}  // namespace

Csv::Csv(const std::string& path) {
  std::ifstream file(fullPath(path));
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("cannot read golden file " + path);
  for (const std::string& name : fieldsOf(line)) {
    m_columns.emplace(name, m_columns.size());
  }
  while (std::getline(file, line)) {
    if (!line.empty()) m_rows.push_back(fieldsOf(line));
  }
}

std::vector<CsvRow> Csv::rows() const {
  std::vector<CsvRow> rows;
  rows.reserve(m_rows.size());
  for (const auto& fields : m_rows) {
    rows.emplace_back(&m_columns, fields);
  }
  return rows;
}

bool Csv::exists(const std::string& path) { return std::ifstream(fullPath(path)).good(); }

}  // namespace TestSupport
