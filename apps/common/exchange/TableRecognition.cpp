// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/TableRecognition.h"

#include "common/exchange/ColumnNames.h"
#include "common/exchange/NumberParsing.h"
#include "common/exchange/TableCells.h"
#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace Exchange {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
/// Headings stand in one of the first lines; before them there may be titles.
constexpr std::size_t kMostLinesBeforeHeadings = 30;

using Cells = std::vector<std::string_view>;

std::optional<double> numberIn(std::string_view cell, std::size_t column, const TableSchema& schema,
                               const TableLayout& layout) {
  const double unit = layout.metresPerLength[column];
  switch (schema.columns[column].quantity) {
    case Quantity::Angle:
      return parseAngle(cell, layout.angleUnits[column], layout.decimal);
    case Quantity::Station:
      if (const auto station = parseStation(cell, layout.decimal)) return *station * unit;
      return std::nullopt;
    default:
      return parseLength(cell, unit, layout.decimal);
  }
}

std::string whatIsExpected(Quantity quantity, std::optional<AngleUnit> unit) {
  if (quantity == Quantity::Angle) return unit ? "no angle in " + nameOf(*unit) : "no angle";
  return quantity == Quantity::Station ? "no station" : "not a number";
}

/// A sample read with one separator and decimal.
struct Attempt {
  TableLayout layout;
  std::size_t firstRow = 0;
  bool hasColumns = false;  ///< it is known which column is which
  HeadingMatch headings;    ///< the best of the lines that may be headings
  std::vector<RowValues> rows;
  std::size_t goodRows = 0;
};

bool isRule(const Cells& cells) {
  return std::all_of(cells.begin(), cells.end(), [](std::string_view cell) {
    return cell.find_first_not_of("-=+:_ ") == std::string_view::npos;
  });
}

class Recognition {
 public:
  Recognition(const TableSample& sample, const TableSchema& schema, const TableFormat& format)
      : m_sample(sample), m_schema(schema), m_format(format), m_headings(schema) {}

  Outcome<RecognisedTable> run();

 private:
  using Result = Outcome<RecognisedTable>;

  bool mayMean(Separator separator) const;
  Attempt columnsFor(Separator separator);
  void readWith(char decimal, Attempt& attempt) const;
  void takeGivenColumns(Attempt& attempt) const;
  void skipLinesWithoutNumbers(Attempt& attempt) const;
  bool takeHeadings(Attempt& attempt);
  bool takeHeadingsFromComments(Attempt& attempt);
  bool mayHaveUsualOrder(const Attempt& attempt) const;
  void takeUsualOrder(Attempt& attempt) const;
  Cells headingCells(const std::string& line, Separator separator, TableCells& store);
  void useHeadings(Attempt& attempt, const Cells& cells, const HeadingMatch& match) const;
  void takeUnitLine(Attempt& attempt) const;
  bool showsMinutes(const Attempt& attempt, std::size_t place) const;
  void settleUnits(Attempt& attempt) const;
  void readRows(Attempt& attempt) const;
  std::optional<std::size_t> columnNamed(const std::string& name) const;

  std::string ambiguity(const Attempt& chosen) const;
  std::string mixedDecimals(const Attempt& chosen) const;
  bool mayHideDecimalCommas(const Attempt& chosen) const;
  Remark withoutColumns() const;
  Remark withoutRows(const Attempt& chosen) const;
  std::string describeColumn(const Attempt& chosen, const Cells& headings,
                             std::size_t column) const;
  std::string describe(const Attempt& chosen);

  const TableSample& m_sample;
  const TableSchema& m_schema;
  const TableFormat& m_format;
  HeadingReader m_headings;
  std::vector<Attempt> m_attempts;
};

/// Whether a separator need be tried: one that no line holds gives a single column.
bool Recognition::mayMean(Separator separator) const {
  const auto isNeeded = [](const TableColumn& column) { return column.isRequired; };
  const bool isEnough =
      std::count_if(m_schema.columns.begin(), m_schema.columns.end(), isNeeded) < 2;
  const auto isDivided = [separator](const TextLine& line) {
    TableCells store;
    return store.split(line.text, separator).size() > 1;
  };
  return isEnough || separator == Separator::Comma ||
         std::any_of(m_sample.lines.begin(), m_sample.lines.end(), isDivided);
}

std::optional<std::size_t> Recognition::columnNamed(const std::string& name) const {
  for (std::size_t i = 0; i < m_schema.columns.size(); ++i) {
    if (m_schema.columns[i].name == name) return i;
  }
  return std::nullopt;
}

/// As given by the option.
void Recognition::takeGivenColumns(Attempt& attempt) const {
  TableLayout& layout = attempt.layout;
  layout.width = m_format.columns.size();
  for (std::size_t i = 0; i < m_format.columns.size(); ++i) {
    if (const auto column = columnNamed(m_format.columns[i])) layout.places[*column] = i;
  }
  attempt.hasColumns = true;
}

/// Lines without any number in the given columns are headings.
void Recognition::skipLinesWithoutNumbers(Attempt& attempt) const {
  const TableLayout& layout = attempt.layout;
  TableCells store;
  const auto hasNumber = [&](const std::string& line) {
    const Cells& cells = store.split(line, layout.separator);
    for (std::size_t i = 0; i < m_schema.columns.size(); ++i) {
      const auto place = layout.places[i];
      const bool isNumber = m_schema.columns[i].quantity != Quantity::Text;
      if (!isNumber || !place || *place >= cells.size()) continue;
      if (numberIn(cells[*place], i, m_schema, layout)) return true;
    }
    return false;
  };
  while (attempt.firstRow < m_sample.lines.size() && attempt.firstRow < kMostLinesBeforeHeadings &&
         !hasNumber(m_sample.lines[attempt.firstRow].text)) {
    ++attempt.firstRow;
  }
}

/// Names may hold blanks where blanks separate: "Point ID   East [m]".
Cells Recognition::headingCells(const std::string& line, Separator separator, TableCells& store) {
  Cells cells = store.split(line, separator);
  if (separator != Separator::Blanks) return cells;
  Cells joined;
  for (const std::string_view cell : cells) {
    const bool isUnit = !cell.empty() && (cell[0] == '[' || cell[0] == '(') && !joined.empty();
    if (isUnit) {
      const char* start = joined.back().data();
      joined.back() =
          std::string_view(start, static_cast<std::size_t>(cell.data() + cell.size() - start));
    } else {
      joined.push_back(cell);
    }
  }
  if (m_headings.match(joined).isComplete()) return joined;
  return store.split(line, Separator::WideBlanks);
}

void Recognition::useHeadings(Attempt& attempt, const Cells& cells,
                              const HeadingMatch& match) const {
  TableLayout& layout = attempt.layout;
  layout.places = match.places;
  layout.width = cells.size();
  while (layout.width > 0 && cells[layout.width - 1].empty())
    --layout.width;
  attempt.headings = match;
  attempt.hasColumns = true;
}

bool Recognition::takeHeadings(Attempt& attempt) {
  TableCells store;
  const std::size_t last = std::min(m_sample.lines.size(), kMostLinesBeforeHeadings);
  for (std::size_t i = 0; i < last; ++i) {
    const Cells cells = headingCells(m_sample.lines[i].text, attempt.layout.separator, store);
    const HeadingMatch match = m_headings.match(cells);
    if (match.isComplete()) {
      useHeadings(attempt, cells, match);
      attempt.firstRow = i + 1;
      return true;
    }
    if (i == 0 || match.matched > attempt.headings.matched) attempt.headings = match;
  }
  return false;
}

bool Recognition::takeHeadingsFromComments(Attempt& attempt) {
  TableCells store;
  const std::size_t width =
      m_sample.lines.empty() ? 0
                             : store.split(m_sample.lines[0].text, attempt.layout.separator).size();
  for (auto comment = m_sample.comments.rbegin(); comment != m_sample.comments.rend(); ++comment) {
    for (const Separator separator : {attempt.layout.separator, Separator::Blanks}) {
      const Cells cells = headingCells(comment->text, separator, store);
      const HeadingMatch match = m_headings.match(cells);
      if (!match.isComplete() || cells.size() != width) continue;
      useHeadings(attempt, cells, match);
      return true;
    }
  }
  return false;
}

/// A scan needs no headings, but may not contradict those that it has.
bool Recognition::mayHaveUsualOrder(const Attempt& attempt) const {
  return m_format.hasNoHeader || (m_schema.isScan && attempt.headings.conflict.empty());
}

void Recognition::takeUsualOrder(Attempt& attempt) const {
  for (std::size_t i = 0; i < m_schema.usualOrder.size(); ++i) {
    if (const auto column = columnNamed(m_schema.usualOrder[i])) {
      attempt.layout.places[*column] = i;
    }
  }
  attempt.hasColumns = true;
}

void Recognition::takeUnitLine(Attempt& attempt) const {
  TableCells store;
  if (attempt.firstRow >= m_sample.lines.size()) return;
  const Cells& cells = store.split(m_sample.lines[attempt.firstRow].text, attempt.layout.separator);
  if (areUnits(cells)) {
    for (std::size_t i = 0; i < std::min(cells.size(), attempt.headings.units.size()); ++i) {
      if (const auto unit = unitInBrackets(cells[i])) attempt.headings.units[i] = unit;
    }
    ++attempt.firstRow;
  } else if (isRule(cells)) {
    ++attempt.firstRow;
  }
}

/// Whether a row has degrees and minutes at a place.
bool Recognition::showsMinutes(const Attempt& attempt, std::size_t place) const {
  TableCells store;
  const auto hasMinutes = [&](const TextLine& line) {
    const Cells& cells = store.split(line.text, attempt.layout.separator);
    return place < cells.size() && isSexagesimal(cells[place], attempt.layout.decimal);
  };
  const auto rows = m_sample.lines.begin() + static_cast<std::ptrdiff_t>(attempt.firstRow);
  return std::any_of(rows, m_sample.lines.end(), hasMinutes);
}

/// The options come first, then the headings, then what the angles show by themselves.
void Recognition::settleUnits(Attempt& attempt) const {
  TableLayout& layout = attempt.layout;
  for (std::size_t i = 0; i < m_schema.columns.size(); ++i) {
    if (!layout.places[i]) continue;
    const std::size_t place = *layout.places[i];
    const auto named = place < attempt.headings.units.size() ? attempt.headings.units[place]
                                                             : std::optional<Unit>();
    if (m_schema.columns[i].quantity != Quantity::Angle) {
      layout.metresPerLength[i] = m_format.metresPerLength.value_or(named ? named->metres : 1.0);
      continue;
    }
    layout.angleUnits[i] = m_format.angles;
    if (m_format.angles) continue;
    if (named && named->kind == Unit::Kind::AmbiguousAngle) {
      attempt.headings.conflict = "grad may mean gon or degrees: give --angles gon or --angles deg";
      attempt.hasColumns = false;
      return;
    }
    layout.angleUnits[i] = named ? named->angle : m_schema.angleUnit;
    if (!named && showsMinutes(attempt, place)) layout.angleUnits[i] = AngleUnit::Sexagesimal;
  }
}

void Recognition::readRows(Attempt& attempt) const {
  TableCells store;
  for (std::size_t i = attempt.firstRow; i < m_sample.lines.size(); ++i) {
    RowValues values;
    readNumbers(store.split(m_sample.lines[i].text, attempt.layout.separator), m_schema,
                attempt.layout, values);
    if (values.problem.empty()) ++attempt.goodRows;
    attempt.rows.push_back(std::move(values));
  }
}

/// What does not depend on the decimal.
Attempt Recognition::columnsFor(Separator separator) {
  Attempt attempt;
  attempt.layout.separator = separator;
  const std::size_t count = m_schema.columns.size();
  attempt.layout.places.resize(count);
  attempt.layout.metresPerLength.assign(count, 1.0);
  attempt.layout.angleUnits.resize(count);
  if (!m_format.columns.empty()) {
    takeGivenColumns(attempt);
  } else if (takeHeadings(attempt)) {
    takeUnitLine(attempt);
  } else if (!takeHeadingsFromComments(attempt) && mayHaveUsualOrder(attempt)) {
    takeUsualOrder(attempt);
  }
  return attempt;
}

void Recognition::readWith(char decimal, Attempt& attempt) const {
  attempt.layout.decimal = decimal;
  if (!m_format.columns.empty()) skipLinesWithoutNumbers(attempt);
  if (attempt.hasColumns) settleUnits(attempt);
  if (attempt.hasColumns) readRows(attempt);
}

/// Another reading that gives a row another meaning.
std::string Recognition::ambiguity(const Attempt& chosen) const {
  for (const Attempt& other : m_attempts) {
    if (&other == &chosen || other.goodRows == 0) continue;
    for (std::size_t line = std::max(chosen.firstRow, other.firstRow); line < m_sample.lines.size();
         ++line) {
      const RowValues& mine = chosen.rows[line - chosen.firstRow];
      const RowValues& others = other.rows[line - other.firstRow];
      const auto isSame = [](double a, double b) {
        return a == b || (std::isnan(a) && std::isnan(b));
      };
      const bool differs =
          others.problem.empty() &&
          (!mine.problem.empty() ||
           !std::equal(mine.numbers.begin(), mine.numbers.end(), others.numbers.begin(), isSame));
      if (!differs) continue;
      const bool isDecimal = other.layout.separator == chosen.layout.separator;
      return isDecimal ? "decimal points and decimal commas are mixed: give --decimal"
                       : "cells may be separated by " + nameOf(chosen.layout.separator) +
                             " or by " + nameOf(other.layout.separator) + ": give --delimiter";
    }
  }
  return {};
}

/// A number with the other decimal among those with the chosen one.
std::string Recognition::mixedDecimals(const Attempt& chosen) const {
  if (m_format.decimal) return {};
  TableLayout other = chosen.layout;
  other.decimal = chosen.layout.decimal == '.' ? ',' : '.';
  TableCells store;
  for (std::size_t i = 0; i < chosen.rows.size(); ++i) {
    if (chosen.rows[i].problem.empty()) continue;
    const Cells& cells =
        store.split(m_sample.lines[chosen.firstRow + i].text, chosen.layout.separator);
    for (std::size_t column = 0; column < m_schema.columns.size(); ++column) {
      const auto place = chosen.layout.places[column];
      const bool isNumber = m_schema.columns[column].quantity != Quantity::Text;
      if (!isNumber || !place || *place >= cells.size()) continue;
      if (!numberIn(cells[*place], column, m_schema, chosen.layout) &&
          numberIn(cells[*place], column, m_schema, other)) {
        return "decimal points and decimal commas are mixed (" + std::string(1, other.decimal) +
               " in line " + std::to_string(m_sample.lines[chosen.firstRow + i].number) +
               "): give --decimal, and rows with the other one are left out";
      }
    }
  }
  return {};
}

/// Between commas a decimal comma looks like a cell more. Where there may be further cells, whole
/// numbers alone are therefore suspicious.
bool Recognition::mayHideDecimalCommas(const Attempt& chosen) const {
  if (chosen.layout.separator != Separator::Comma || m_format.decimal) return false;
  TableCells store;
  std::size_t numbers = 0;
  bool hasFurther = false;
  for (std::size_t i = 0; i < chosen.rows.size(); ++i) {
    if (!chosen.rows[i].problem.empty()) continue;
    const std::string& line = m_sample.lines[chosen.firstRow + i].text;
    const Cells& cells = store.split(line, Separator::Comma);
    std::size_t used = 0;
    for (std::size_t column = 0; column < m_schema.columns.size(); ++column) {
      const auto place = chosen.layout.places[column];
      if (!place || *place >= cells.size()) continue;
      ++used;
      if (m_schema.columns[column].quantity == Quantity::Text) continue;
      if (cells[*place].find_first_of(".,") != std::string_view::npos) return false;
      ++numbers;
    }
    hasFurther = hasFurther || cells.size() > used;
  }
  return hasFurther && numbers > 1;
}

std::string listOf(const Cells& cells) {
  constexpr std::size_t kMost = 8;
  std::string list;
  for (std::size_t i = 0; i < std::min(cells.size(), kMost); ++i) {
    list += (i == 0 ? "" : ", ") + inQuotes(cells[i]);
  }
  return list + (cells.size() > kMost ? ", ..." : "");
}

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += between;
    text += word;
  }
  return text;
}

/// What was found instead of headings, and what to give.
Remark Recognition::withoutColumns() const {
  const Attempt* best = nullptr;
  for (const Attempt& attempt : m_attempts) {
    const bool isBetter = best == nullptr || attempt.headings.matched > best->headings.matched;
    const bool hasConflict = !attempt.headings.conflict.empty() && attempt.headings.matched > 0;
    if (isBetter || (hasConflict && best->headings.conflict.empty())) best = &attempt;
  }
  const TextLine& line = m_sample.lines.front();
  if (best != nullptr && !best->headings.conflict.empty()) {
    return {line.number, best->headings.conflict};
  }
  // The separator that splits the first line into most cells.
  TableCells store;
  std::vector<std::string> cells;
  Separator separator = Separator::Comma;
  for (const Attempt& attempt : m_attempts) {
    const Cells& found = store.split(line.text, attempt.layout.separator);
    if (found.size() > cells.size()) {
      cells.assign(found.begin(), found.end());
      separator = attempt.layout.separator;
    }
  }
  const Cells found(cells.begin(), cells.end());
  const bool hasNumbers = std::any_of(found.begin(), found.end(), [](std::string_view cell) {
    return parseNumber(cell, '.') || parseNumber(cell, ',');
  });
  const std::string seen = std::to_string(found.size()) + " columns separated by " +
                           nameOf(separator) + ": " + listOf(found);
  const std::string advice = "; name the columns in their order, as --columns " +
                             joined(m_schema.usualOrder, ",") +
                             ", with - for those that are not wanted";
  const bool isHeading = !hasNumbers || (best != nullptr && best->headings.matched > 1);
  if (!isHeading) {
    return {line.number, "there is no header line, but " + seen + advice +
                             " (or --no-header if this is their order)"};
  }
  const std::string column = best == nullptr || best->headings.missing.empty()
                                 ? m_schema.usualOrder.front()
                                 : best->headings.missing.front();
  return {line.number, "there is no column " + column + "; found " + seen + advice};
}

Remark Recognition::withoutRows(const Attempt& chosen) const {
  if (chosen.rows.empty()) return {0, "there are no rows below the headings"};
  const TextLine& line = m_sample.lines[chosen.firstRow];
  return {line.number,
          chosen.rows.front().problem + " (no row can be read with cells separated by " +
              nameOf(chosen.layout.separator) + " and the decimal " + chosen.layout.decimal +
              "; if that is wrong, give --delimiter, --decimal or --columns)"};
}

/// Nothing for a plain name.
std::string Recognition::describeColumn(const Attempt& chosen, const Cells& headings,
                                        std::size_t column) const {
  const TableColumn& known = m_schema.columns[column];
  const auto place = chosen.layout.places[column];
  if (!place) return known.isCounted ? "rows counted" : "";
  const bool isNamed = *place < headings.size() && !chosen.headings.places.empty();
  const std::string heading = isNamed ? visible(headings[*place]) : known.name;
  if (heading == known.name) return {};
  const auto unit = chosen.layout.angleUnits[column];
  const bool hasUnit = known.quantity == Quantity::Angle && unit;
  return heading + " as " + known.name + (hasUnit ? " in " + nameOf(*unit) : "");
}

/// Nothing for commas, decimal points and the plain names.
std::string Recognition::describe(const Attempt& chosen) {
  const TableLayout& layout = chosen.layout;
  std::vector<std::string> parts;
  if (layout.separator != Separator::Comma) parts.push_back(nameOf(layout.separator));
  if (layout.decimal == ',') parts.emplace_back("decimal commas");
  TableCells store;
  Cells headings;
  if (chosen.firstRow > 0) {
    headings = headingCells(m_sample.lines[chosen.firstRow - 1].text, layout.separator, store);
  }
  for (std::size_t i = 0; i < m_schema.columns.size(); ++i) {
    const std::string part = describeColumn(chosen, headings, i);
    if (!part.empty()) parts.push_back(part);
  }
  return joined(parts, ", ");
}

Outcome<RecognisedTable> Recognition::run() {
  if (m_sample.lines.empty()) return Result::failure({0, "there is no header line"});
  for (const Separator separator : {Separator::Comma, Separator::Semicolon, Separator::Tab,
                                    Separator::Bar, Separator::Blanks, Separator::WideBlanks}) {
    if (m_format.separator ? separator != *m_format.separator : !mayMean(separator)) continue;
    const Attempt columns = columnsFor(separator);
    for (const char decimal : {'.', ','}) {
      if (m_format.decimal && decimal != *m_format.decimal) continue;
      m_attempts.push_back(columns);
      readWith(decimal, m_attempts.back());
    }
  }
  const auto best = std::max_element(
      m_attempts.begin(), m_attempts.end(), [](const Attempt& a, const Attempt& b) {
        return std::make_pair(a.goodRows, a.hasColumns) < std::make_pair(b.goodRows, b.hasColumns);
      });
  const Attempt& chosen = *best;
  if (!chosen.hasColumns) return Result::failure(withoutColumns());
  if (chosen.goodRows == 0) return Result::failure(withoutRows(chosen));
  for (const std::string& problem : {ambiguity(chosen), mixedDecimals(chosen)}) {
    if (!problem.empty()) return Result::failure({m_sample.lines.front().number, problem});
  }
  if (mayHideDecimalCommas(chosen)) {
    return Result::failure(
        {m_sample.lines[chosen.firstRow].number,
         "whole numbers between commas, with further cells in the row: if these are decimal "
         "commas, export with another --delimiter; if not, give --decimal ."});
  }
  RecognisedTable table{chosen.layout, chosen.firstRow};
  table.layout.description = describe(chosen);
  return Result::success(std::move(table));
}

}  // namespace

void readNumbers(const Cells& cells, const TableSchema& schema, const TableLayout& layout,
                 RowValues& values) {
  values.problem.clear();
  values.numbers.assign(schema.columns.size(), kNone);
  if (layout.width > 0 && cells.size() > layout.width) {
    const bool hasContent =
        std::any_of(cells.begin() + static_cast<std::ptrdiff_t>(layout.width), cells.end(),
                    [](std::string_view cell) { return !cell.empty(); });
    if (hasContent) {
      values.problem = "there are " + std::to_string(cells.size()) + " cells for " +
                       std::to_string(layout.width) + " columns";
      return;
    }
  }
  for (std::size_t i = 0; i < schema.columns.size(); ++i) {
    const TableColumn& column = schema.columns[i];
    const auto place = layout.places[i];
    const bool isEmpty = !place || *place >= cells.size() || cells[*place].empty() ||
                         (cells[*place] == "-" && column.quantity != Quantity::Text);
    if (isEmpty) {
      if (!place || !column.isRequired) continue;
      values.problem = column.name + " is missing";
      return;
    }
    if (column.quantity == Quantity::Text) continue;
    const auto number = numberIn(cells[*place], i, schema, layout);
    if (!number) {
      values.problem = column.name + " is " + inQuotes(cells[*place]) + ", " +
                       whatIsExpected(column.quantity, layout.angleUnits[i]);
      return;
    }
    values.numbers[i] = *number;
  }
}

Outcome<RecognisedTable> recogniseTable(const TableSample& sample, const TableSchema& schema,
                                        const TableFormat& format) {
  return Recognition(sample, schema, format).run();
}

}  // namespace Exchange
