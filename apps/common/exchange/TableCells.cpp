// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/TableCells.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace Exchange {

namespace {

bool isBlank(char letter) { return letter == ' ' || letter == '\t'; }

/// Where a separator stands and how long it is.
struct Gap {
  std::size_t start = 0;
  std::size_t size = 0;
};

/// The next run of blanks; of single ones when they separate.
Gap blanksFrom(std::string_view line, std::size_t from, bool mustBeWide) {
  for (std::size_t i = from; i < line.size(); ++i) {
    if (!isBlank(line[i])) continue;
    std::size_t end = i;
    while (end < line.size() && isBlank(line[end]))
      ++end;
    const std::string_view run = line.substr(i, end - i);
    if (!mustBeWide || run.size() > 1 || run.find('\t') != std::string_view::npos) {
      return {i, end - i};
    }
    i = end;
  }
  return {line.size(), 0};
}

Gap gapFrom(std::string_view line, std::size_t from, Separator separator) {
  switch (separator) {
    case Separator::Blanks:
      return blanksFrom(line, from, false);
    case Separator::WideBlanks:
      return blanksFrom(line, from, true);
    default:
      break;
  }
  const char letter = separator == Separator::Comma       ? ','
                      : separator == Separator::Semicolon ? ';'
                      : separator == Separator::Tab       ? '\t'
                                                          : '|';
  const std::size_t found = line.find(letter, from);
  return found == std::string_view::npos ? Gap{line.size(), 0} : Gap{found, 1};
}

/// The quote that closes the one at the start; the next to it is not a quote.
std::optional<std::size_t> closingQuote(std::string_view line, std::size_t start) {
  for (std::size_t i = start + 1; i < line.size(); ++i) {
    if (line[i] != '"') continue;
    const bool isDoubled = i + 1 < line.size() && line[i + 1] == '"';
    if (!isDoubled) return i;
    ++i;
  }
  return std::nullopt;
}

struct QuotedCell {
  std::string_view content;  ///< doubled quotes included
  Gap gap;                   ///< behind it
};

/// Nothing where a quote does not begin a cell, or more follows on the one that closes it.
std::optional<QuotedCell> quotedCellAt(std::string_view line, std::size_t start,
                                       Separator separator) {
  if (start == line.size() || line[start] != '"') return std::nullopt;
  const auto close = closingQuote(line, start);
  if (!close) return std::nullopt;
  const std::size_t behind = *close + 1;
  const std::size_t after = std::min(line.find_first_not_of(' ', behind), line.size());
  const Gap gap = gapFrom(line, behind, separator);
  if (gap.start != after && gap.start != behind && after != line.size()) return std::nullopt;
  return QuotedCell{line.substr(start + 1, *close - start - 1), gap};
}

bool separatesByBlanks(Separator separator) {
  return separator == Separator::Blanks || separator == Separator::WideBlanks;
}

}  // namespace

std::string nameOf(Separator separator) {
  switch (separator) {
    case Separator::Comma:
      return "commas";
    case Separator::Semicolon:
      return "semicolons";
    case Separator::Tab:
      return "tabs";
    case Separator::Bar:
      return "bars";
    default:
      return "blanks";
  }
}

std::string_view TableCells::unquoted(std::string_view content) {
  if (content.find('"') == std::string_view::npos) return content;
  const std::size_t start = m_store.size();
  for (std::size_t i = 0; i < content.size(); ++i) {
    m_store += content[i];
    if (content[i] == '"') ++i;
  }
  return std::string_view(m_store).substr(start);
}

const std::vector<std::string_view>& TableCells::split(std::string_view line, Separator separator) {
  m_cells.clear();
  m_store.clear();
  if (line.find('"') != std::string_view::npos) m_store.reserve(line.size());  // views into it stay
  if (separatesByBlanks(separator)) line = trimmed(line);
  std::size_t start = 0;
  for (;;) {
    start = std::min(line.find_first_not_of(' ', start), line.size());
    const auto quoted = quotedCellAt(line, start, separator);
    const Gap gap = quoted ? quoted->gap : gapFrom(line, start, separator);
    m_cells.push_back(quoted ? unquoted(quoted->content)
                             : trimmed(line.substr(start, gap.start - start)));
    if (gap.size == 0) return m_cells;
    start = gap.start + gap.size;
  }
}

std::string csvCell(const std::string& text) {
  if (text.empty()) return text;
  constexpr std::string_view kFormulas = "=+-@";
  std::string shown = visible(text);
  const bool isFormula =
      kFormulas.find(shown.front()) != std::string_view::npos && !parseNumber(shown);
  const bool needsMark = isFormula || (shown.front() == '\'' && shown.size() > 1);
  if (needsMark) shown.insert(0, 1, '\'');
  const bool looksLikeComment =
      shown.front() == '#' || shown.front() == '%' || shown.compare(0, 2, "//") == 0;
  const bool hasOuterBlank = shown.front() == ' ' || shown.back() == ' ';
  if (!looksLikeComment && !hasOuterBlank && shown.find_first_of(",;\"") == std::string::npos) {
    return shown;
  }
  std::string cell = "\"";
  for (const char letter : shown) {
    if (letter == '"') cell += '"';
    cell += letter;
  }
  return cell + '"';
}

std::string nameIn(std::string_view cell) {
  constexpr std::string_view kMarked = "=+-@'";
  const bool isMarked =
      cell.size() > 1 && cell[0] == '\'' && kMarked.find(cell[1]) != std::string_view::npos;
  return visible(isMarked ? cell.substr(1) : cell);
}

}  // namespace Exchange
