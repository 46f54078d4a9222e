#include "common/exchange/CsvTable.h"

#include "common/exchange/NumberParsing.h"

#include <boost/tokenizer.hpp>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

namespace Exchange {

namespace {

std::string trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r";
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string::npos) return {};
  return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

/// Throws boost::escaped_list_error on a backslash that escapes nothing.
std::vector<std::string> cellsOf(const std::string& line) {
  const boost::tokenizer<boost::escaped_list_separator<char>> tokens(line);
  std::vector<std::string> cells;
  std::transform(tokens.begin(), tokens.end(), std::back_inserter(cells), trimmed);
  return cells;
}

}  // namespace

Outcome<std::string> CsvRow::text(const std::string& column) const {
  const auto found = std::find(m_columns->begin(), m_columns->end(), column);
  const auto index = static_cast<std::size_t>(found - m_columns->begin());
  if (index >= m_cells.size() || m_cells[index].empty()) {
    return Outcome<std::string>::failure({m_line, column + " is missing"});
  }
  return Outcome<std::string>::success(m_cells[index]);
}

Outcome<double> CsvRow::number(const std::string& column) const {
  const auto cell = text(column);
  if (!cell.value) return Outcome<double>::failure(cell.error);
  const auto number = parseNumber(*cell.value);
  if (!number) {
    return Outcome<double>::failure({m_line, column + " is \"" + *cell.value + "\", not a number"});
  }
  return Outcome<double>::success(*number);
}

Outcome<std::vector<double>> CsvRow::numbers(const std::vector<std::string>& columns) const {
  std::vector<double> numbers;
  for (const std::string& column : columns) {
    const auto next = number(column);
    if (!next.value) return Outcome<std::vector<double>>::failure(next.error);
    numbers.push_back(*next.value);
  }
  return Outcome<std::vector<double>>::success(std::move(numbers));
}

std::string csvCell(const std::string& text) {
  const bool looksLikeComment = !text.empty() && text.front() == '#';
  if (!looksLikeComment && text.find_first_of(",\"\\\n") == std::string::npos) return text;
  std::string cell = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\' || letter == '\n') cell += '\\';
    cell += letter == '\n' ? 'n' : letter;
  }
  return cell + '"';
}

bool CsvTable::hasColumn(const std::string& name) const {
  return std::find(m_columns.begin(), m_columns.end(), name) != m_columns.end();
}

bool CsvTable::readHeader(const std::string& line, int number,
                          const std::vector<std::string>& required) {
  m_columns = cellsOf(line);
  for (const std::string& column : required) {
    if (!hasColumn(column)) {
      m_error = {number, "the header line has no column " + column};
      return false;
    }
  }
  return true;
}

bool CsvTable::read(const std::string& text, const std::vector<std::string>& requiredColumns) {
  const std::string byteOrderMark = "\xEF\xBB\xBF";
  const bool hasMark = text.compare(0, byteOrderMark.size(), byteOrderMark) == 0;
  std::istringstream lines(hasMark ? text.substr(byteOrderMark.size()) : text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    line = trimmed(line);
    if (line.empty() || line.front() == '#') continue;
    try {
      if (m_columns.empty()) {
        if (!readHeader(line, number, requiredColumns)) return false;
      } else {
        m_rows.emplace_back(m_columns, cellsOf(line), number);
      }
    } catch (const boost::escaped_list_error& failure) {
      m_unreadable.push_back({number, failure.what()});
    }
  }
  if (m_columns.empty()) m_error = {0, "there is no header line"};
  return !m_columns.empty();
}

}  // namespace Exchange
