// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/PdfReport.h"

#include "common/drawing/SheetStyle.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace TunnelSurvey {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::TextStyle;
namespace Style = Drawing::Style;

constexpr double kPageWidth = 297.0;  // A4, landscape
constexpr double kPageHeight = 210.0;
constexpr double kRowHeight = 4.4;
constexpr double kHeadingRoom = 9.0;  // of a title, above its line
constexpr double kNoteHeight = 6.0;
constexpr double kHeaderHeight = 10.0;  // of the headings of a table
const Box kContent{16.0, 16.0, kPageWidth - 16.0, kPageHeight - 14.0};

TextStyle plain(Align horizontal) {
  return Style::text(Style::kTextSize, Style::kInk, horizontal, Align::End);
}

TextStyle grey(TextStyle style) {
  style.colour = Style::kGrey;
  return style;
}

TextStyle titled(double size) {
  TextStyle style = Style::text(size, Style::kInk, Align::Start, Align::End);
  style.bold = true;
  return style;
}

std::size_t rowsPerPage(const ReportTable& table) {
  const double head = kHeadingRoom + (table.note.empty() ? 0.0 : kNoteHeight) + kHeaderHeight;
  return static_cast<std::size_t>((kContent.height() - head) / kRowHeight);
}

/// A table without rows has a page too.
std::size_t pagesOf(const ReportTable& table) {
  const std::size_t perPage = rowsPerPage(table);
  return std::max<std::size_t>(1, (table.table.rows.size() + perPage - 1) / perPage);
}

std::size_t pagesOf(const Chapter& chapter) {
  std::size_t pages = chapter.figures.size();
  for (const ReportTable& table : chapter.tables) {
    pages += pagesOf(table);
  }
  return pages;
}

std::size_t pagesOf(const Report& report) {
  std::size_t pages = 1;
  for (const Chapter& chapter : report.chapters) {
    pages += pagesOf(chapter);
  }
  return pages;
}

/// Words to the next line where they reach the end of the room.
std::vector<std::string> wrapped(Canvas& canvas, const std::string& text, const TextStyle& style,
                                 double room) {
  std::vector<std::string> lines(1);
  std::string word;
  const auto endWord = [&] {
    if (!lines.back().empty() && canvas.textWidth(lines.back() + " " + word, style) > room) {
      lines.emplace_back();
    }
    lines.back() += (lines.back().empty() ? "" : " ") + std::exchange(word, "");
  };
  for (const char letter : text) {
    if (letter == ' ') {
      endWord();
    } else {
      word += letter;
    }
  }
  endWord();
  return lines;
}

/// Name and value below each other, values wrapped.
void drawFacts(Canvas& canvas, const Box& box, const Facts& facts) {
  constexpr double kNameWidth = 30.0;
  constexpr double kLine = 5.0;
  double y = box.top;
  for (const auto& [name, value] : facts) {
    canvas.text({box.left, y}, name, grey(plain(Align::Start)));
    for (const std::string& line :
         wrapped(canvas, value, plain(Align::Start), box.width() - kNameWidth)) {
      canvas.text({box.left + kNameWidth, y}, line, plain(Align::Start));
      y += kLine;
    }
    y += 0.8;
  }
}

void drawContents(Canvas& canvas, const Box& box, const Report& report) {
  double y = box.top;
  std::size_t page = 2;
  canvas.text({box.left, y}, "Contents", titled(4.0));
  for (const Chapter& chapter : report.chapters) {
    y += 6.0;
    canvas.text({box.left, y}, chapter.heading, plain(Align::Start));
    canvas.text({box.right, y}, std::to_string(page), plain(Align::End));
    page += pagesOf(chapter);
  }
}

Drawing::Picture titlePage(const Report& report) {
  Canvas canvas(kPageWidth, kPageHeight);
  canvas.text({kContent.left, kContent.top + 8.0}, report.title, titled(8.0));
  canvas.text({kContent.left, kContent.top + 16.0}, report.subtitle, plain(Align::Start));
  canvas.line({kContent.left, kContent.top + 21.0}, {kContent.right, kContent.top + 21.0},
              {Style::kInk, 0.4, {}});
  constexpr double kGap = 12.0;
  const double top = kContent.top + 30.0;
  const double middle = kContent.centre().x;
  drawFacts(canvas, {kContent.left, top, middle - kGap / 2.0, kContent.bottom}, report.sources);
  drawFacts(canvas, {middle + kGap / 2.0, top, kContent.right, kContent.bottom}, report.summary);
  constexpr double kContentsHeight = 62.0;
  drawContents(
      canvas,
      {kContent.left, kContent.bottom - kContentsHeight, kContent.left + 90.0, kContent.bottom},
      report);
  canvas.text({kContent.left, kContent.bottom}, report.note, grey(plain(Align::Start)));
  return canvas.picture();
}

/// Columns as wide as what is in them, with equal gaps, and where they end. Smaller letters when
/// they are too many.
class TableColumns {
 public:
  TableColumns(Canvas& canvas, const ResultTable& table) {
    constexpr double kSmallestColumnGap = 4.0;
    constexpr double kWidestColumnGap = 14.0;
    std::vector<double> widths;
    double total = 0.0;
    for (std::size_t i = 0; i < table.headings.size(); ++i) {
      double width = std::max(canvas.textWidth(nameIn(table.headings[i]), titled(m_size)),
                              canvas.textWidth(unitIn(table.headings[i]), plain(Align::End)));
      for (const std::vector<std::string>& row : table.rows) {
        width = std::max(width, canvas.textWidth(row[i], plain(Align::End)));
      }
      widths.push_back(width);
      total += width;
    }
    const double gaps = std::max(1.0, static_cast<double>(widths.size()) - 1.0);
    const double shrunk =
        std::min(1.0, (kContent.width() - kSmallestColumnGap * gaps) / std::max(total, 1.0));
    m_size *= shrunk;
    const double gap = std::min((kContent.width() - total * shrunk) / gaps, kWidestColumnGap);
    double end = kContent.left;
    for (const double width : widths) {
      end += width * shrunk;
      m_ends.push_back(end);
      end += gap;
    }
  }

  double end(std::size_t column) const { return m_ends[column]; }
  double right() const { return m_ends.back(); }
  TextStyle style() const {
    TextStyle style = plain(Align::End);
    style.size = m_size;
    return style;
  }

 private:
  double m_size = Style::kTextSize;
  std::vector<double> m_ends;
};

void drawHeadings(Canvas& canvas, const ResultTable& table, const TableColumns& columns, double y) {
  TextStyle bold = columns.style();
  bold.bold = true;
  for (std::size_t i = 0; i < table.headings.size(); ++i) {
    canvas.text({columns.end(i), y - 5.6}, nameIn(table.headings[i]), bold);
    canvas.text({columns.end(i), y - 1.6}, unitIn(table.headings[i]), grey(columns.style()));
  }
  canvas.line({kContent.left, y}, {columns.right(), y}, {Style::kInk, 0.3, {}});
}

void drawRows(Canvas& canvas, const ResultTable& table, const TableColumns& columns, double y,
              std::size_t first, std::size_t last) {
  for (std::size_t i = first; i < last; ++i) {
    const double top = y + static_cast<double>(i - first) * kRowHeight;
    if ((i - first) % 2 == 1) {
      constexpr Drawing::Colour kTint{0.95, 0.96, 0.965};
      canvas.fill({kContent.left - 1.0, top, columns.right() + 1.0, top + kRowHeight}, kTint);
    }
    for (std::size_t k = 0; k < table.rows[i].size(); ++k) {
      canvas.text({columns.end(k), top + kRowHeight - 1.2}, table.rows[i][k], columns.style());
    }
  }
}

std::vector<Drawing::Picture> tablePages(const ReportTable& table) {
  Canvas measure(kPageWidth, kPageHeight);
  const TableColumns columns(measure, table.table);
  const std::size_t perPage = rowsPerPage(table);
  std::vector<Drawing::Picture> pages;
  for (std::size_t page = 0; page < pagesOf(table); ++page) {
    Canvas canvas(kPageWidth, kPageHeight);
    double y = kContent.top + 5.0;
    canvas.text({kContent.left, y}, page == 0 ? table.title : table.title + ", continued",
                titled(4.2));
    y = kContent.top + kHeadingRoom;
    if (!table.note.empty()) {
      canvas.text({kContent.left, y + 2.0}, table.note, grey(plain(Align::Start)));
      y += kNoteHeight;
    }
    y += kHeaderHeight;
    drawHeadings(canvas, table.table, columns, y);
    drawRows(canvas, table.table, columns, y, page * perPage,
             std::min((page + 1) * perPage, table.table.rows.size()));
    pages.push_back(canvas.picture());
  }
  return pages;
}

}  // namespace

PdfReport::PdfReport(const Report& report)
    : m_file(report.title), m_title(report.title), m_pageCount(pagesOf(report)) {
  m_chapter = report.title;
  addPage(titlePage(report), "");
}

void PdfReport::beginChapter(const Chapter& chapter) {
  m_chapter = chapter.heading;
  for (const ReportTable& table : chapter.tables) {
    std::string title = table.title;
    for (const Drawing::Picture& page : tablePages(table)) {
      addPage(page, std::exchange(title, ""));
    }
  }
}

void PdfReport::addFigure(const Figure& figure, const Drawing::Picture& picture) {
  addPage(picture, figure.title);
}

/// With the number of the page below it.
void PdfReport::addPage(const Drawing::Picture& picture, const std::string& title) {
  Canvas canvas(picture);
  const std::string number = std::to_string(++m_pages) + " / " + std::to_string(m_pageCount);
  const double y = picture.height - 3.6;
  TextStyle style = grey(plain(Align::End));
  style.size = Style::kSmallTextSize;
  canvas.text({picture.width - 8.0, y}, number, style);
  style.horizontal = Align::Start;
  canvas.text({8.0, y}, m_title, style);
  if (!m_chapter.empty()) m_file.addBookmark(std::exchange(m_chapter, ""), 0);
  if (!title.empty()) m_file.addBookmark(title, 1);
  m_file.addPage(canvas.picture());
}

std::string PdfReport::finish() { return m_file.finish(); }

}  // namespace TunnelSurvey
