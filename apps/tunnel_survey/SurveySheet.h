/// @file
/// What the drawings of an axis share: their content, colours, scales and title block.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_SHEET_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_SHEET_H

#include "common/exchange/AlignmentModel.h"
#include "common/exchange/PointFile.h"

#include "common/drawing/Furniture.h"

#include <Calculations/Calculations.h>

#include <optional>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// A horizontal element as far as the axis has heights.
struct AxisElement {
  Exchange::ElementKind kind = Exchange::ElementKind::Straight;
  double from = 0.0;
  double to = 0.0;
  double curvatureFrom = 0.0;  ///< 1/m, positive to the right
  double curvatureTo = 0.0;
};

/// Long axes are drawn in strips above each other.
struct StationRange {
  double from = 0.0;
  double to = 0.0;

  double length() const { return to - from; }
};

/// What is drawn.
struct SurveyPicture {
  boost::shared_ptr<const Ruv::Calculations::AxisDefinition> axis;
  std::vector<Exchange::ConvertedPoint> points;
  std::string name;                      ///< of the alignment
  std::string source;                    ///< the file it comes from
  std::optional<StationRange> sections;  ///< where the tunnel is compared with its design
};

/// Stations at equal distances, near to the step, from one end to the other; at most 2000 parts.
std::vector<double> evenStations(const StationRange& range, double step);

StationRange rangeOf(const Ruv::Calculations::AxisDefinition& axis);

/// The elements, or their parts, inside a range.
std::vector<AxisElement> elementsWithin(const Ruv::Calculations::AxisDefinition& axis,
                                        const StationRange& range);

std::vector<StationRange> equalStrips(const Ruv::Calculations::AxisDefinition& axis, int count);

/// Usual denominators of scales, ascending: 100, 200, 250, 500, 1000 ...
const std::vector<double>& usualScales();
/// The largest usual scale, from 1:10 on, that gives a metre no more millimetres than these.
double largestUsualScale(double millimetresPerMetre);
/// "1:5 000"
std::string scaleText(double denominator);

namespace Style {

constexpr Drawing::Colour kInk{0.13, 0.14, 0.16};
constexpr Drawing::Colour kGrey{0.45, 0.48, 0.51};
constexpr Drawing::Colour kLightGrey{0.84, 0.86, 0.87};
constexpr Drawing::Colour kWhite{1.0, 1.0, 1.0};
constexpr Drawing::Colour kStraight{0.20, 0.24, 0.29};
constexpr Drawing::Colour kArc{0.70, 0.27, 0.16};
constexpr Drawing::Colour kClothoid{0.10, 0.45, 0.62};
constexpr Drawing::Colour kSurveyed{0.16, 0.49, 0.27};
constexpr Drawing::Colour kSections{1.00, 0.84, 0.45};

constexpr double kTextSize = 2.9;
constexpr double kSmallTextSize = 2.6;

Drawing::Colour ofElement(Exchange::ElementKind kind);
Drawing::TextStyle text(double size, const Drawing::Colour& colour, Drawing::Align horizontal,
                        Drawing::Align vertical);
void surveyedPoint(Drawing::Canvas& canvas, const Drawing::Point& at);

}  // namespace Style

/// The part of the sheet above the title block.
Drawing::Box drawingArea(const Drawing::Sheet& sheet);

struct TitleBlock {
  std::string title;
  std::vector<std::string> lines;
  std::vector<Drawing::LegendEntry> legend;
  double millimetresPerMetre = 1.0;  ///< 0: no scale bar
};

void drawTitleBlock(Drawing::Canvas& canvas, const Drawing::Sheet& sheet, const TitleBlock& block);

}  // namespace TunnelSurvey

#endif
