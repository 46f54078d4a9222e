#include "tunnel_survey/HtmlReport.h"

#include "tunnel_survey/SectionTable.h"

#include "common/drawing/NumberText.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace TunnelSurvey {

namespace {

using Drawing::fixed;

const char* const kStyle = R"(
:root { --ink: #22252a; --grey: #6d747b; --line: #d6dadd; --tint: #f4f6f7; }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 2rem 1.5rem 4rem; max-width: 78rem; color: var(--ink);
  font: 15px/1.5 "Helvetica Neue", Arial, "Liberation Sans", sans-serif; }
h1 { font-size: 1.9rem; margin: 0 0 .2rem; }
h2 { font-size: 1.3rem; margin: 2.6rem 0 .8rem; padding-bottom: .3rem;
  border-bottom: 2px solid var(--ink); }
h3 { font-size: 1.05rem; margin: 0 0 .4rem; }
p { margin: .4rem 0; }
nav { margin: .8rem 0 0; }
nav a { margin-right: 1.4rem; }
a { color: #0b5394; text-decoration: none; }
a:hover { text-decoration: underline; }
.facts { display: grid; grid-template-columns: repeat(2, 1fr); gap: 0 2.5rem; margin-top: 1.2rem; }
.facts table { width: 100%; align-self: start; }
.facts th { text-align: left; font-weight: normal; color: var(--grey); width: 9.5rem;
  vertical-align: top; }
.facts td { text-align: left; white-space: normal; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; font-variant-numeric: tabular-nums; }
th, td { padding: .22rem .6rem; text-align: right; border-bottom: 1px solid var(--line);
  white-space: nowrap; }
.results { width: 100%; font-size: 13px; margin-bottom: 1.5rem; }
.results thead th { border-bottom: 1.5px solid var(--ink); vertical-align: bottom; }
.results thead span { font-weight: normal; color: var(--grey); }
.results tbody tr:nth-child(even) { background: var(--tint); }
.results tbody tr:hover { background: #e6eef5; }
figure { margin: 0 0 1.8rem; }
figure img { width: 100%; height: auto; display: block; border: 1px solid var(--line); }
figcaption { color: var(--grey); font-size: 13px; margin-top: .3rem; }
section.profile { margin: 0 0 2rem; }
section.profile h3 a { font-size: 13px; font-weight: normal; margin-left: .8rem; }
@media (max-width: 60rem) { .facts { grid-template-columns: 1fr; } }
@media print {
  @page { size: A4 landscape; margin: 10mm; }
  body { max-width: none; padding: 0; font-size: 10pt; }
  nav, section.profile h3 a { display: none; }
  h2 { break-after: avoid; }
  h2.page, section.profile + section.profile { break-before: page; }
  figure, section.profile, tr { break-inside: avoid; }
  figure img { max-height: 172mm; width: auto; max-width: 100%; margin: 0 auto; }
  thead { display: table-header-group; }
  .results { font-size: 8pt; }
}
)";

std::string escaped(const std::string& text) {
  std::string result;
  for (const char letter : text) {
    switch (letter) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += letter;
    }
  }
  return result;
}

/// What a URL in double quotes may not hold.
std::string percentEncoded(const std::string& text) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string result;
  result.reserve(text.size() + text.size() / 8);
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    const bool isPlain = byte >= ' ' && byte <= '~' &&
                         std::string_view("\"#%<>").find(letter) == std::string_view::npos;
    if (isPlain) {
      result += letter;
    } else {
      result += {'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
  }
  return result;
}

/// As a picture of its own: the names inside one SVG must not meet those of another.
void writePicture(std::ostream& out, const std::string& svg, const std::string& description) {
  out << "<img alt=\"" << escaped(description) << "\" src=\"data:image/svg+xml,"
      << percentEncoded(svg) << "\">\n";
}

using Facts = std::vector<std::pair<std::string, std::string>>;

void writeFacts(std::ostream& out, const Facts& facts) {
  out << "<table>\n";
  for (const auto& [name, value] : facts) {
    out << "<tr><th>" << escaped(name) << "</th><td>" << escaped(value) << "</td></tr>\n";
  }
  out << "</table>\n";
}

std::string geologyText(const GeologyRule& rule) {
  const std::string beyond = fixed(rule.beyond, 2) + " m from the design";
  if (!rule.from) return "what is excavated beyond " + beyond;
  const std::string from = *rule.from > 0.0 ? fixed(*rule.from, 2) + " m" : "the design";
  return "what is excavated beyond " + beyond + ", and beside it the band from " + from;
}

Facts factsOf(const SectionSurvey& survey) {
  const ComparisonRule& rule = survey.rule;
  Facts facts = {{"Design profile", survey.designSource + ", circumference " +
                                        fixed(survey.design.circumference(), 3) + " m"},
                 {"Measured", survey.source},
                 {survey.noun + "s", std::to_string(survey.results.size())}};
  if (survey.hasStations()) {
    facts.emplace_back("Stationing",
                       Drawing::stationText(*survey.results.front().section.station, 3) + " to " +
                           Drawing::stationText(*survey.results.back().section.station, 3));
  }
  facts.emplace_back("Outline", rule.followDesign
                                    ? "between measured points along the design, distances "
                                      "interpolated"
                                    : "straight between measured points");
  if (rule.excludeAbove) {
    facts.emplace_back("Left out", "what lies above " + fixed(*rule.excludeAbove, 2) + " m");
  }
  if (rule.excludeBelow) {
    facts.emplace_back("Left out", "what lies below " + fixed(*rule.excludeBelow, 2) + " m");
  }
  if (rule.geology) facts.emplace_back("Geological", geologyText(*rule.geology));
  return facts;
}

std::string anchor(std::size_t index) { return "section-" + std::to_string(index + 1); }

void writeTable(std::ostream& out, const SectionTable& table) {
  out << "<div class=\"wide\"><table class=\"results\">\n<thead><tr>";
  for (const std::string& heading : table.headings) {
    const std::size_t lineBreak = heading.find('\n');
    out << "<th>" << escaped(heading.substr(0, lineBreak)) << "<br><span>"
        << escaped(heading.substr(lineBreak + 1)) << "</span></th>";
  }
  out << "</tr></thead>\n<tbody>\n";
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    out << "<tr>";
    for (std::size_t k = 0; k < table.rows[i].size(); ++k) {
      const std::string cell = escaped(table.rows[i][k]);
      out << "<td>" << (k == 0 ? "<a href=\"#" + anchor(i) + "\">" + cell + "</a>" : cell)
          << "</td>";
    }
    out << "</tr>\n";
  }
  out << "</tbody></table></div>\n";
}

}  // namespace

HtmlReport::HtmlReport(std::ostream& out, const SectionSurvey& survey)
    : m_out(out), m_survey(survey) {}

void HtmlReport::writeHead(const std::vector<Chapter>& chapters) {
  const std::string title = "Cross-sections of " + m_survey.source;
  m_out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
        << escaped(title) << "</title>\n<style>" << kStyle << "</style>\n</head>\n<body>\n"
        << "<h1 id=\"top\">Measured and design profile</h1>\n<p>" << escaped(title) << " against "
        << escaped(m_survey.designSource) << "</p>\n<nav>";
  for (const Chapter& chapter : chapters) {
    m_out << "<a href=\"#" << escaped(chapter.heading) << "\">" << escaped(chapter.heading)
          << "</a>";
  }
  m_out << R"(<a href="#tables">Tables</a><a href="#sections">)" << escaped(m_survey.noun)
        << "s</a></nav>\n<div class=\"facts\">\n";
  writeFacts(m_out, factsOf(m_survey));
  writeFacts(m_out, summaryOf(m_survey));
  m_out << "</div>\n";
  if (m_survey.volumes) {
    m_out << "<p><small>Volumes between sections by mean end areas, over the length along the "
             "axis.</small></p>\n";
  }
}

void HtmlReport::writeChapter(const Chapter& chapter) {
  const std::string heading = escaped(chapter.heading);
  m_out << R"(<h2 class="page" id=")" << heading << "\">" << heading << "</h2>\n";
  for (const Figure& figure : chapter.figures) {
    m_out << "<figure>\n";
    writePicture(m_out, figure.svg, figure.caption);
    m_out << "<figcaption>" << escaped(figure.caption) << "</figcaption>\n</figure>\n";
  }
}

void HtmlReport::writeTables() {
  m_out << "<h2 class=\"page\" id=\"tables\">Areas and largest deviations</h2>\n"
        << "<p>Derolment: length along the design profile from its crown, positive clockwise "
           "looking forward. Over break is positive, under break negative.</p>\n";
  writeTable(m_out, areaTable(m_survey));
  m_out << "<h2 class=\"page\">Best-fit circles and ellipses</h2>\n"
        << "<p>Through the compared points, in profile coordinates: x to the right, y up from the "
           "axis. Rotation: of the longer semi-axis, from right towards up.</p>\n";
  writeTable(m_out, fitTable(m_survey));
}

void HtmlReport::beginSections() {
  m_out << R"(<h2 class="page" id="sections">)" << escaped(m_survey.noun) << "s</h2>\n";
}

void HtmlReport::writeSection(const SectionResult& result, const std::string& svg) {
  const std::string title = titleOf(m_survey, result);
  m_out << R"(<section class="profile" id=")" << anchor(m_written++) << "\">\n<h3>"
        << escaped(title) << "<a href=\"#tables\">back to the tables</a></h3>\n<figure>\n";
  writePicture(m_out, svg, title);
  m_out << "</figure>\n</section>\n";
}

void HtmlReport::writeEnd() { m_out << "</body>\n</html>\n"; }

}  // namespace TunnelSurvey
