/// @file
/// The report: one file that holds its pictures.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_HTML_REPORT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_HTML_REPORT_H

#include "tunnel_survey/SectionSurvey.h"

#include "common/drawing/Canvas.h"

#include <ostream>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// A picture and what stands below it.
struct Figure {
  std::string caption;
  std::string svg;
};

/// Pictures under a heading.
struct Chapter {
  std::string heading;
  std::vector<Figure> figures;
};

/// Writes the report piece by piece, as long surveys have many pictures.
class HtmlReport {
 public:
  HtmlReport(std::ostream& out, const SectionSurvey& survey);

  /// How the survey was made, and its summary. The navigation leads to the chapters too.
  void writeHead(const std::vector<Chapter>& chapters);
  void writeChapter(const Chapter& chapter);
  /// Tables whose rows lead to the sections' pictures.
  void writeTables();
  void beginSections();
  void writeSection(const SectionResult& result, const std::string& svg);
  void writeEnd();

 private:
  std::ostream& m_out;
  const SectionSurvey& m_survey;
  std::size_t m_written = 0;  // sections
};

}  // namespace TunnelSurvey

#endif
