// SPDX-License-Identifier: BSL-1.0
/// @file
/// The report as a page for a browser.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_HTML_REPORT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_HTML_REPORT_H

#include "tunnel_survey/Report.h"

#include "common/drawing/Picture.h"

#include <string>

namespace TunnelSurvey {

enum class HtmlPictures {
  Beside,  ///< as SVG files, loaded when they are scrolled to: a tap opens the file
  Inside   ///< in the page, which needs no other file: a tap enlarges them
};

/// Builds the page piece by piece: the head first, then each chapter followed by its figures.
class HtmlReport {
 public:
  explicit HtmlReport(HtmlPictures pictures) : m_pictures(pictures) {}

  void addHead(const Report& report);
  /// Its heading and its tables.
  void beginChapter(const Chapter& chapter);
  void addFigure(const Figure& figure, const Drawing::Picture& picture);
  void endChapter();
  /// Ends the page and returns its text.
  std::string finish();

 private:
  void addTable(const ReportTable& table);
  void addLinked(const Figure& figure, const Drawing::Picture& picture);
  void addInline(const Figure& figure, const Drawing::Picture& picture);

  HtmlPictures m_pictures;
  std::string m_text;
  std::string m_heading;  // still to be written, together with what comes next
};

}  // namespace TunnelSurvey

#endif
