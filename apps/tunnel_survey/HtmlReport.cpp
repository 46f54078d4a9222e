// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/HtmlReport.h"

#include "common/drawing/NumberText.h"
#include "common/drawing/PrintableText.h"
#include "common/drawing/SvgWriter.h"

#include <cstddef>
#include <utility>

namespace TunnelSurvey {

namespace {

using Drawing::escapedForXml;

/// A drawing that is not near the window is neither loaded nor laid out. One in the page fills the
/// window while it is the target of its own link.
const char* const kStyle = R"(
:root { --ink: #22252a; --grey: #60676e; --line: #d6dadd; --tint: #f4f6f7; color-scheme: light; }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 2rem 1.5rem 4rem; max-width: 78rem; color: var(--ink);
  background: #fff; font: 15px/1.5 "Helvetica Neue", Arial, "Liberation Sans", sans-serif; }
h1 { font-size: 1.9rem; margin: 0 0 .2rem; }
h2 { font-size: 1.3rem; margin: 2.6rem 0 .8rem; padding-bottom: .3rem;
  border-bottom: 2px solid var(--ink); }
h3 { font-size: 1.05rem; margin: 0 0 .4rem; }
h3 a { font-size: 13px; font-weight: normal; margin-left: .8rem; }
p { margin: .4rem 0; }
nav { margin: .8rem 0 0; }
nav a { display: inline-block; padding: .2rem 0; margin-right: 1.4rem; }
a { color: #0b5394; text-decoration: none; }
a:hover { text-decoration: underline; }
.facts { display: grid; grid-template-columns: repeat(2, 1fr); gap: 0 2.5rem; margin-top: 1.2rem; }
.facts table { width: 100%; align-self: start; }
.facts th { text-align: left; font-weight: normal; color: var(--grey); width: 9.5rem;
  vertical-align: top; }
.facts td { text-align: left; white-space: normal; overflow-wrap: anywhere; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; font-variant-numeric: tabular-nums; }
th, td { padding: .22rem .6rem; text-align: right; border-bottom: 1px solid var(--line);
  white-space: nowrap; }
.results { width: 100%; font-size: 13px; margin-bottom: 1.5rem; }
.results thead th { border-bottom: 1.5px solid var(--ink); vertical-align: bottom; }
.results thead span { font-weight: normal; color: var(--grey); }
.results tbody tr:nth-child(even) { background: var(--tint); }
.results tbody tr:hover { background: #e6eef5; }
.sheet { margin: 0 0 2rem; }
figure { margin: 0; }
figure img, figure svg { width: 100%; height: auto; display: block;
  border: 1px solid var(--line); }
figcaption, .note { color: var(--grey); font-size: 13px; margin-top: .3rem; }
.inside { content-visibility: auto; contain-intrinsic-size: auto 100vw auto 70vw; }
.inside .close { display: none; }
.inside:target { position: fixed; inset: 0; overflow: auto; background: #fff; z-index: 1;
  content-visibility: visible; }
.inside:target svg { width: max(100%, 1400px); }
.inside:target .close { display: block; position: fixed; top: .6rem; right: .6rem; z-index: 2;
  padding: .4rem .9rem; background: var(--ink); color: #fff; border-radius: .3rem; }
@media (max-width: 60rem) {
  body { padding: 1rem .8rem 2rem; }
  .facts { grid-template-columns: 1fr; }
  .facts th { width: 7rem; }
}
@media print {
  @page { size: A4 landscape; margin: 10mm; }
  body { max-width: none; padding: 0; font-size: 10pt; }
  nav, h3 a, .close { display: none !important; }
  h2 { margin-top: 0; }
  h2, h3, .note { break-after: avoid; }
  .chapter, .sheet + .sheet, .tables + .sheet { break-before: page; }
  .sheet, tr { break-inside: avoid; }
  .inside { content-visibility: visible; }
  figure img, figure svg { max-height: 160mm; width: auto; max-width: 100%; margin: 0 auto; }
  thead { display: table-header-group; }
  .results { font-size: 8pt; }
}
)";

/// A name as an anchor, which the names inside an SVG can begin with too.
std::string anchorOf(const std::string& name) {
  std::string anchor = name;
  for (char& letter : anchor) {
    const bool isPlain = (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'z') ||
                         (letter >= 'A' && letter <= 'Z') || letter == '_';
    if (!isPlain) letter = '-';
  }
  return anchor;
}

std::string factsTable(const Facts& facts) {
  std::string text = "<table>\n";
  for (const auto& [name, value] : facts) {
    text += "<tr><th>" + escapedForXml(name) + "</th><td>" + escapedForXml(value) + "</td></tr>\n";
  }
  return text + "</table>\n";
}

std::string link(const std::string& target, const std::string& words) {
  return "<a href=\"#" + target + "\">" + escapedForXml(words) + "</a>";
}

/// For the browser, which reserves the room before it has the picture.
std::string sizeOf(const Drawing::Picture& picture) {
  constexpr double kPixelsPerMillimetre = 96.0 / 25.4;
  const auto pixels = [](double millimetres) {
    return Drawing::fixed(millimetres * kPixelsPerMillimetre, 0);
  };
  return " width=\"" + pixels(picture.width) + "\" height=\"" + pixels(picture.height) + "\"";
}

}  // namespace

void HtmlReport::addHead(const Report& report) {
  const std::string title = escapedForXml(report.title);
  m_text =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
      title + "</title>\n<style>" + kStyle + "</style>\n</head>\n<body>\n<h1 id=\"top\">" + title +
      "</h1>\n<p>" + escapedForXml(report.subtitle) + "</p>\n<nav>";
  for (const Chapter& chapter : report.chapters) {
    m_text += link(anchorOf(chapter.heading), chapter.heading);
  }
  m_text += "</nav>\n<div class=\"facts\">\n" + factsTable(report.sources) +
            factsTable(report.summary) + "</div>\n";
  if (!report.note.empty()) m_text += "<p class=\"note\">" + escapedForXml(report.note) + "</p>\n";
}

void HtmlReport::beginChapter(const Chapter& chapter) {
  m_text += R"(<section class="chapter" id=")" + anchorOf(chapter.heading) + "\">\n";
  m_heading = "<h2>" + escapedForXml(chapter.heading) + "</h2>\n";
  if (chapter.tables.empty()) return;
  m_text += "<div class=\"tables\">\n" + std::exchange(m_heading, "");
  for (const ReportTable& table : chapter.tables) {
    addTable(table);
  }
  m_text += "</div>\n";
}

void HtmlReport::addTable(const ReportTable& table) {
  m_text += "<h3>" + escapedForXml(table.title) + "</h3>\n";
  if (!table.note.empty()) m_text += "<p class=\"note\">" + escapedForXml(table.note) + "</p>\n";
  m_text += "<div class=\"wide\"><table class=\"results\">\n<thead><tr>";
  for (const std::string& heading : table.table.headings) {
    m_text += "<th>" + escapedForXml(nameIn(heading)) + "<br><span>" +
              escapedForXml(unitIn(heading)) + "</span></th>";
  }
  m_text += "</tr></thead>\n<tbody>\n";
  for (std::size_t i = 0; i < table.table.rows.size(); ++i) {
    const std::vector<std::string>& row = table.table.rows[i];
    m_text += "<tr>";
    for (std::size_t k = 0; k < row.size(); ++k) {
      const bool isLink = k == 0 && i < table.figures.size();
      m_text += "<td>" +
                (isLink ? link(anchorOf(table.figures[i]), row[k]) : escapedForXml(row[k])) +
                "</td>";
    }
    m_text += "</tr>\n";
  }
  m_text += "</tbody></table></div>\n";
}

void HtmlReport::addFigure(const Figure& figure, const Drawing::Picture& picture) {
  m_text += R"(<section class="sheet" id=")" + anchorOf(figure.name) + "\">\n" +
            std::exchange(m_heading, "") + "<h3>" + escapedForXml(figure.title) +
            link("top", "to the top") + "</h3>\n";
  if (m_pictures == HtmlPictures::Beside) {
    addLinked(figure, picture);
  } else {
    addInline(figure, picture);
  }
  if (!figure.caption.empty()) {
    m_text += "<figcaption>" + escapedForXml(figure.caption) + "</figcaption>\n";
  }
  m_text += "</figure>\n</section>\n";
}

void HtmlReport::addLinked(const Figure& figure, const Drawing::Picture& picture) {
  const std::string file = escapedForXml(figure.name) + ".svg";
  m_text += "<figure>\n<a href=\"" + file + R"("><img loading="lazy")" + sizeOf(picture) +
            " alt=\"" + escapedForXml(figure.title) + "\" src=\"" + file + "\"></a>\n";
}

void HtmlReport::addInline(const Figure& figure, const Drawing::Picture& picture) {
  const std::string anchor = anchorOf(figure.name);
  const std::string drawing = "drawing-" + anchor;
  m_text += R"(<figure class="inside" id=")" + drawing + "\">\n<a href=\"#" + drawing +
            "\" aria-label=\"" + escapedForXml(figure.title) + "\">\n" +
            svgOf(picture, anchor + "-") + "</a>\n<a class=\"close\" href=\"#" + anchor +
            "\">close</a>\n";
}

void HtmlReport::endChapter() { m_text += "</section>\n"; }

std::string HtmlReport::finish() { return std::move(m_text) + "</body>\n</html>\n"; }

}  // namespace TunnelSurvey
