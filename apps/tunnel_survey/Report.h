// SPDX-License-Identifier: BSL-1.0
/// @file
/// The content of a report, whatever kind of file it becomes.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_REPORT_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_REPORT_H

#include "tunnel_survey/ResultTable.h"

#include "common/drawing/Canvas.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace TunnelSurvey {

/// Name and value.
using Facts = std::vector<std::pair<std::string, std::string>>;

struct ReportTable {
  std::string title;
  std::string note;  ///< what its numbers mean; may be empty
  ResultTable table;
  std::vector<std::string> figures;  ///< those that the rows lead to, by name; empty for none
};

/// Writes a file; false when it could not.
using DxfWriter = std::function<bool(const std::string& path)>;

struct Figure {
  std::string
      name;  ///< of its files in the folder of results, without ending: "sections/001_Ring_1"
  std::string title;
  std::string caption;  ///< may be empty
  Drawing::Sheet sheet;
  DxfWriter dxf;  ///< the same for CAD programs; may be empty
};

struct Chapter {
  std::string heading;
  std::vector<ReportTable> tables;
  std::vector<Figure> figures;
};

struct Report {
  std::string title;
  std::string subtitle;
  Facts sources;  ///< how the survey was made
  Facts summary;  ///< what came out
  std::string note;
  std::vector<Chapter> chapters;
};

}  // namespace TunnelSurvey

#endif
