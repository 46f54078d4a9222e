// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"
#include "pictures/Pictures.h"

#include <Calculations/Calculations.h>

namespace ConventionPictures {

namespace {

using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::AxisDefinitionFactory;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

constexpr double kTop = 50.0;
constexpr double kRadius = 17.0;

struct ShaftKind {
  const char* name;
  double start;  // heights
  double end;
};

/// Where a point of the section lies in plan.
Point inPlan(const AxisCalculator& calculator, double offset, double height) {
  ENHPoint point;
  calculator.axisPointToEnhPointVertical(AxisPoint(0.0, offset, height), point);
  return {point.east, point.north};
}

void drawSide(const Diagram& diagram, const ShaftKind& kind) {
  constexpr double kHalfWidth = 6.0;
  const Point shift{-38.0, -kTop / 2.0};
  for (const double x : {-kHalfWidth, kHalfWidth}) {
    diagram.line(shift + Point{x, 0.0}, shift + Point{x, kTop}, {kGrey, 0.3, {}});
  }
  diagram.line(shift + Point{-11.0, kTop}, shift + Point{-kHalfWidth, kTop}, {kGrey, 0.3, {}});
  diagram.line(shift + Point{kHalfWidth, kTop}, shift + Point{11.0, kTop}, {kGrey, 0.3, {}});
  diagram.arrow(shift + Point{0.0, kind.start}, shift + Point{0.0, kind.end}, subject());
  diagram.label(shift + Point{0.0, -4.5}, "stationing", kInk);
}

void drawPlan(const Diagram& diagram, const ShaftKind& kind) {
  const boost::shared_ptr<AxisDefinition> shaft(
      AxisDefinitionFactory::createShaftAxis(0.0, 0.0, kind.start, kind.end, 0.0));
  const AxisCalculator calculator(shaft);
  constexpr double kReach = 14.0;
  diagram.curve(arc({}, kRadius, 0.0, 6.2832), {kGrey, 0.3, {}});
  const Point right = inPlan(calculator, kReach, 0.0);
  diagram.arrow({}, right, mark());
  diagram.label(right * 0.55 + Point{0.0, -4.0}, "offset", kBlue);
  diagram.arrow({}, inPlan(calculator, 0.0, kReach), mark());
  diagram.label({right.x > 0.0 ? -2.0 : 2.0, 8.0}, "height", kBlue,
                right.x > 0.0 ? Align::End : Align::Start);
  diagram.dot({}, kInk);
  diagram.arrow({kRadius + 6.0, -6.0}, {kRadius + 6.0, 8.0}, helper());
  diagram.label({kRadius + 6.0, 11.5}, "north", kGrey);
  diagram.label({0.0, -kRadius - 5.0}, "from above", kGrey);
}

void drawShaft(Drawing::Canvas& canvas, const Point& origin, const ShaftKind& kind) {
  const Diagram diagram(canvas, origin, 0.85);
  diagram.title(kind.name);
  drawSide(diagram, kind);
  drawPlan(diagram, kind);
}

}  // namespace

Drawing::Sheet shaftPicture() {
  Drawing::Sheet sheet{180.0, 70.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    drawShaft(canvas, {52.0, 37.0}, {"top down", kTop, 0.0});
    drawShaft(canvas, {140.0, 37.0}, {"upward", 0.0, kTop});
  };
  return sheet;
}

}  // namespace ConventionPictures
