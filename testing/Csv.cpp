// SPDX-License-Identifier: BSL-1.0
#include "testing/Csv.h"

#include <cstddef>
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

std::vector<CsvRow> rowsOf(const std::string& path) {
  std::ifstream file(fullPath(path));
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("cannot read golden file " + path);
  const std::vector<std::string> columns = fieldsOf(line);
  std::vector<CsvRow> rows;
  while (std::getline(file, line)) {
    if (line.empty()) continue;
    const std::vector<std::string> fields = fieldsOf(line);
    std::map<std::string, std::string> byColumn;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      byColumn.emplace(columns[i], fields.at(i));
    }
    rows.emplace_back(byColumn);
  }
  return rows;
}

bool isGoldenFile(const std::string& path) { return std::ifstream(fullPath(path)).good(); }

}  // namespace TestSupport
