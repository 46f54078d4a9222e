// SPDX-License-Identifier: BSL-1.0
/// @file
/// What all sheets of the programs share: colours, text sizes, scales and the title block.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_SHEET_STYLE_H
#define CALCULATIONS_APPS_COMMON_DRAWING_SHEET_STYLE_H

#include "common/drawing/Canvas.h"
#include "common/drawing/Furniture.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Drawing {

/// Usual denominators of scales, ascending: 100, 200, 250, 500, 1000 ...
const std::vector<double>& usualScales();
/// The largest usual scale, from 1:10 on, that gives a metre no more millimetres than these.
double largestUsualScale(double millimetresPerMetre);
/// "1:5 000"
std::string scaleText(double denominator);

namespace Style {

constexpr Colour kInk{0.13, 0.14, 0.16};
constexpr Colour kGrey{0.45, 0.48, 0.51};
constexpr Colour kLightGrey{0.84, 0.86, 0.87};
using Drawing::kWhite;
constexpr Colour kStraight{0.20, 0.24, 0.29};
constexpr Colour kArc{0.70, 0.27, 0.16};
constexpr Colour kClothoid{0.10, 0.45, 0.62};
constexpr Colour kSurveyed{0.16, 0.49, 0.27};
constexpr Colour kSetOut{0.55, 0.18, 0.52};
constexpr Colour kSections{1.00, 0.84, 0.45};

constexpr double kTextSize = 2.9;
constexpr double kSmallTextSize = 2.6;

TextStyle text(double size, const Colour& colour, Align horizontal, Align vertical);
/// To be read across the lines below it.
TextStyle onLines(TextStyle style);
void surveyedPoint(Canvas& canvas, const Point& at);
void setOutPoint(Canvas& canvas, const Point& at);

}  // namespace Style

/// The part of the sheet above the title block.
Box drawingArea(const Sheet& sheet);

struct TitleBlock {
  std::string title;
  std::vector<std::string> lines;
  std::vector<LegendEntry> legend;
  double millimetresPerMetre = 1.0;  ///< 0: no scale bar
  std::size_t labelsLeftOut = 0;     ///< for want of room; told when there are any
};

void drawTitleBlock(Canvas& canvas, const Sheet& sheet, const TitleBlock& block);

}  // namespace Drawing

#endif
