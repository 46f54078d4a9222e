// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"
#include "pictures/Pictures.h"

#include <cmath>

namespace ConventionPictures {

namespace {

constexpr double kQuarterTurn = 1.5707963267948966;
constexpr Colour kTunnel{0.93, 0.94, 0.95};

void drawTunnel(const Diagram& diagram) {
  std::vector<Point> outline = arc({0.0, 2.0}, 25.0, -2.1, 2.1);
  outline.push_back(outline.front());
  diagram.area(outline, kTunnel);
  diagram.curve(outline, {kGrey, 0.3, {}});
}

void drawOffsetAndHeight(Drawing::Canvas& canvas) {
  const Diagram diagram(canvas, {33.0, 42.0}, 1.0);
  diagram.title("looking forward");
  drawTunnel(diagram);
  diagram.arrow({0.0, 0.0}, {24.0, 0.0}, mark());
  diagram.arrow({0.0, 0.0}, {0.0, 24.0}, mark());
  diagram.label({11.0, -4.0}, "offset", kBlue);
  diagram.label({2.0, 17.0}, "height", kBlue, Align::Start);
  diagram.dot({0.0, 0.0}, kInk);
  diagram.label({-2.0, -4.0}, "axis", kInk, Align::End);
}

void drawTransverseSlope(Drawing::Canvas& canvas) {
  const Diagram diagram(canvas, {92.0, 42.0}, 1.0);
  diagram.title("transverse slope > 0 %");
  constexpr double kSlope = 0.22;
  constexpr double kAngle = kQuarterTurn + kSlope;
  drawTunnel(diagram);
  diagram.line({-24.0, 0.0}, {24.0, 0.0}, helper());
  diagram.line(polar({}, kAngle, -23.0), polar({}, kAngle, 23.0), subject());
  diagram.arrow({0.0, 0.0}, polar({}, kSlope, 21.0), subject());
  diagram.turn({0.0, 0.0}, 18.0, kQuarterTurn, kAngle, mark());
  diagram.label({0.0, -13.0}, "right side lower:", kBlue);
  diagram.label({0.0, -17.5}, "clockwise", kBlue);
  diagram.dot({0.0, 0.0}, kInk);
}

void drawPlanes(Drawing::Canvas& canvas) {
  const Diagram diagram(canvas, {150.0, 42.0}, 1.0);
  diagram.title("seen from the right");
  constexpr double kGrade = 0.32;
  const Point along = polar({}, kQuarterTurn - kGrade, 1.0);
  const Point up = polar({}, -kGrade, 1.0);
  diagram.line({-24.0, 0.0}, {24.0, 0.0}, helper());
  diagram.arrow(along * -25.0, along * 25.0, subject());
  diagram.arrow({0.0, 0.0}, {0.0, 25.0}, mark());
  diagram.label({2.0, 25.0}, "vertical", kBlue, Align::Start);
  diagram.arrow({0.0, 0.0}, up * 25.0, second());
  diagram.label({-10.0, 23.0}, "perpendicular", kOrange, Align::End);
  const Point corner = along * 3.0 + up * 3.0;
  diagram.curve({along * 3.0, corner, up * 3.0}, second());
  diagram.label({12.0, -4.0}, "stationing", kGrey);
  diagram.dot({0.0, 0.0}, kInk);
}

}  // namespace

Drawing::Sheet sectionPicture() {
  Drawing::Sheet sheet{180.0, 66.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    drawOffsetAndHeight(canvas);
    drawTransverseSlope(canvas);
    drawPlanes(canvas);
  };
  return sheet;
}

}  // namespace ConventionPictures
