// SPDX-License-Identifier: BSL-1.0
/// @file
/// The report as a PDF file.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_PDF_REPORT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_PDF_REPORT_H

#include "tunnel_survey/Report.h"

#include "common/drawing/PdfFile.h"

#include <cstddef>
#include <string>

namespace TunnelSurvey {

/// A title page with the contents, pages of tables (A4), and every drawing on a page of its own
/// size. Built in the order of the report: the chapters, each followed by its figures.
class PdfReport {
 public:
  explicit PdfReport(const Report& report);

  /// The pages of its tables.
  void beginChapter(const Chapter& chapter);
  void addFigure(const Figure& figure, const Drawing::Picture& picture);
  /// Ends the file and returns its bytes.
  std::string finish();

 private:
  void addPage(const Drawing::Picture& picture, const std::string& title);

  Drawing::PdfFile m_file;
  std::string m_title;
  std::string m_chapter;  // its bookmark, still to be set
  std::size_t m_pages = 0;
  std::size_t m_pageCount;
};

}  // namespace TunnelSurvey

#endif
