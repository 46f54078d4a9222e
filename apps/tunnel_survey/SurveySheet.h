// SPDX-License-Identifier: BSL-1.0
/// @file
/// What the drawings of an axis share: their content, and its division into strips.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_SHEET_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_SHEET_H

#include "common/exchange/AlignmentModel.h"
#include "common/exchange/PointFile.h"
#include "common/exchange/StationRange.h"
#include "tunnel_survey/CheckReport.h"

#include "common/drawing/SheetStyle.h"

#include <Calculations/Calculations.h>

#include <optional>
#include <string>
#include <vector>

namespace TunnelSurvey {

constexpr int kMostStrips = 2;           ///< of an axis, one above the other on a sheet
constexpr double kSampleDistance = 0.4;  ///< between points of a curve on the page

/// A horizontal element as far as the axis has heights.
struct AxisElement {
  Exchange::ElementKind kind = Exchange::ElementKind::Straight;
  double from = 0.0;
  double to = 0.0;
  double curvatureFrom = 0.0;  ///< 1/m, positive to the right
  double curvatureTo = 0.0;
};

/// The axis and what was done with it: what is drawn.
struct SurveyPicture {
  boost::shared_ptr<const Ruv::Calculations::AxisDefinition> axis;
  std::vector<double> stations;  ///< those of the table
  std::vector<Exchange::ConvertedPoint> points;
  std::vector<Exchange::ConvertedPoint> setOut;  ///< computed from their places on the axis
  std::optional<CheckReport> check;
  std::string name;                                ///< of the alignment
  std::string source;                              ///< the file it comes from
  std::optional<Exchange::StationRange> sections;  ///< where the tunnel is compared with its design
  Exchange::Stationing stationing;  ///< the stations that people read, from those of the axis
  bool hasHeights = true;           ///< else the axis lies at height 0
  std::vector<std::string> doubts;  ///< why the points may be wrong, in sentences
};

/// The elements, or their parts, inside a range.
std::vector<AxisElement> elementsWithin(const Ruv::Calculations::AxisDefinition& axis,
                                        const Exchange::StationRange& range);

std::vector<Exchange::StationRange> equalStrips(const Ruv::Calculations::AxisDefinition& axis,
                                                int count);

/// Elements of the same kind have the same colour on every sheet.
Drawing::Colour colourOf(Exchange::ElementKind kind);

}  // namespace TunnelSurvey

#endif
