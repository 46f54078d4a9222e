// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/Table.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/TableRecognition.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

namespace Exchange {

namespace {

constexpr std::size_t kMostRows = 2000000;

/// Files that somebody may take for a table.
struct KnownFile {
  std::string_view beginning;
  const char* advice;
};

std::string adviceFor(std::string_view firstLine) {
  using namespace std::string_view_literals;
  constexpr std::array<KnownFile, 6> kFiles = {
      {{"PK\x03\x04"sv, "this is a workbook or another packed file: save it as CSV or text"},
       {"\xD0\xCF\x11\xE0"sv, "this is an old workbook: save it as CSV or text"},
       {"LASF"sv, "this is a scan in LAS: give it by --scan"},
       {"%PDF"sv, "this is a PDF: a table of text is needed"},
       {"<?xml"sv, "this is XML: a table of text is needed"},
       {"\x1F\x8B"sv, "this is a packed file: unpack it first"}}};
  for (const KnownFile& file : kFiles) {
    if (firstLine.compare(0, file.beginning.size(), file.beginning) == 0) return file.advice;
  }
  return {};
}

/// What follows the mark of a comment; nothing for other lines.
std::optional<std::string_view> commentIn(std::string_view line) {
  line = trimmed(line);
  for (const std::string_view mark : {"//", "#", "%"}) {
    if (line.compare(0, mark.size(), mark) != 0) continue;
    const std::size_t start = line.find_first_not_of("/#%");
    return start == std::string_view::npos ? std::string_view() : trimmed(line.substr(start));
  }
  return std::nullopt;
}

/// "sep=;", with which a file tells spreadsheets its separator.
std::optional<Separator> declaredSeparator(std::string_view line) {
  if (line.size() != 5 || line.compare(0, 4, "sep=") != 0) return std::nullopt;
  switch (line[4]) {
    case ',':
      return Separator::Comma;
    case ';':
      return Separator::Semicolon;
    case '\t':
      return Separator::Tab;
    case '|':
      return Separator::Bar;
    default:
      return std::nullopt;
  }
}

/// Comments before the first row may be headings.
void takeComment(std::string_view line, int number, TableSample& sample) {
  const auto comment = commentIn(line);
  if (comment && sample.lines.empty()) sample.comments.push_back({number, std::string(*comment)});
}

}  // namespace

struct TableStream::Sample {
  TableSample table;
  std::size_t next = 0;  // of its lines, the one to be returned
  RowValues values;
};

TableStream::TableStream(std::istream& in, const TableSchema& schema, const TableFormat& format)
    : m_schema(schema), m_format(format), m_lines(in), m_sample(std::make_unique<Sample>()) {}

TableStream::~TableStream() = default;

/// Empty lines, comments, and the numbers of points that stand before the points of a scan.
bool TableStream::isPassedOver(std::string_view line) {
  const std::string_view text = trimmed(line);
  if (text.empty() || commentIn(text)) return true;
  constexpr std::size_t kMostDigits = 15;
  const bool isCount = m_schema.isScan && text.size() <= kMostDigits &&
                       text.find_first_not_of("0123456789") == std::string_view::npos;
  if (isCount) m_declaredRows += static_cast<std::uint64_t>(*parseNumber(text));
  return isCount;
}

Remark TableStream::open() {
  constexpr std::size_t kMostLines = 200;
  constexpr std::size_t kMostBytes = 1U << 20U;
  TableSample& sample = m_sample->table;
  std::size_t bytes = 0;
  std::string_view line;
  while (sample.lines.size() < kMostLines && bytes < kMostBytes && m_lines.next(line)) {
    bytes += line.size();
    if (m_lines.number() == 1) {
      const std::string advice = adviceFor(line);
      if (!advice.empty()) return {1, advice};
      if (const auto separator = declaredSeparator(line)) {
        if (!m_format.separator) m_format.separator = separator;
        continue;
      }
    }
    takeComment(line, m_lines.number(), sample);
    if (!isPassedOver(line)) sample.lines.push_back({m_lines.number(), std::string(line)});
  }
  if (!m_lines.problem().message.empty()) return m_lines.problem();
  auto recognised = recogniseTable(sample, m_schema, m_format);
  if (!recognised.value) return recognised.error;
  m_layout = std::move(recognised.value->layout);
  m_sample->next = recognised.value->firstRow;
  return {};
}

bool TableStream::nextLine(std::string_view& line, int& number) {
  const std::vector<TextLine>& sampled = m_sample->table.lines;
  if (m_sample->next < sampled.size()) {
    line = sampled[m_sample->next].text;
    number = sampled[m_sample->next].number;
    ++m_sample->next;
    return true;
  }
  while (m_lines.next(line)) {
    number = m_lines.number();
    if (!isPassedOver(line)) return true;
  }
  return false;
}

TableStream::Found TableStream::next(TableRow& row, Remark& remark) {
  std::string_view line;
  int number = 0;
  if (!nextLine(line, number)) {
    if (!m_lines.problem().message.empty()) remark = m_lines.problem();
    return Found::End;
  }
  const std::vector<std::string_view>& cells = m_cells.split(line, m_layout.separator);
  RowValues& values = m_sample->values;
  readNumbers(cells, m_schema, m_layout, values);
  if (!values.problem.empty()) {
    remark = {number, values.problem};
    return Found::BadRow;
  }
  row.line = number;
  row.numbers.swap(values.numbers);
  row.texts.resize(m_schema.columns.size());
  for (std::size_t i = 0; i < m_schema.columns.size(); ++i) {
    const auto place = m_layout.places[i];
    const Quantity quantity = m_schema.columns[i].quantity;
    const bool isNamed = quantity == Quantity::Text || quantity == Quantity::Station;
    if (!isNamed) continue;
    row.texts[i] = place && *place < cells.size() ? nameIn(cells[*place]) : std::string();
  }
  return Found::Row;
}

Outcome<Table> Table::read(std::istream& in, const TableSchema& schema, const TableFormat& format) {
  TableStream stream(in, schema, format);
  const Remark problem = stream.open();
  if (!problem.message.empty()) return Outcome<Table>::failure(problem);
  Table table;
  table.layout = stream.layout();
  TableRow row;
  for (;;) {
    Remark remark;
    const TableStream::Found found = stream.next(row, remark);
    if (found == TableStream::Found::Row) table.rows.push_back(row);
    if (found == TableStream::Found::BadRow) table.rejected.push_back(remark);
    if (found == TableStream::Found::End) {
      if (!remark.message.empty()) return Outcome<Table>::failure(remark);
      return Outcome<Table>::success(std::move(table));
    }
    if (table.rows.size() + table.rejected.size() > kMostRows) {
      return Outcome<Table>::failure({0, "the table has more than two million rows"});
    }
  }
}

Outcome<Table> Table::read(const std::string& text, const TableSchema& schema,
                           const TableFormat& format) {
  std::istringstream in(text);
  return read(in, schema, format);
}

}  // namespace Exchange
