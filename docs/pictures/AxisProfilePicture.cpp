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

struct GradePoint {
  double stationing;
  double height;
};
constexpr GradePoint kStart{0.0, 0.0};
constexpr GradePoint kSummit{62.0, 30.0};
constexpr GradePoint kSag{128.0, 9.0};
constexpr GradePoint kEnd{178.0, 32.0};
constexpr double kRadius = 48.0;
constexpr double kParabolaValue = 42.0;

Point on(const GradePoint& point) { return {point.stationing, point.height}; }

boost::shared_ptr<AxisDefinition> sampleAxis() {
  boost::shared_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  constexpr double kEast = 1.5707963267948966;
  axis->addHoralSegmentStraight(0.0, 0.0, 0.0, kEast, kEnd.stationing);
  axis->addVeralPointKink(kStart.stationing, kStart.height);
  axis->addVeralPointArc(kSummit.stationing, kSummit.height, kRadius);
  axis->addVeralPointParabola(kSag.stationing, kSag.height, kParabolaValue);
  axis->addVeralPointKink(kEnd.stationing, kEnd.height);
  return axis;
}

double heightAt(const AxisCalculator& calculator, double stationing) {
  ENHPoint point;
  calculator.axisPointToEnhPointVertical(AxisPoint(stationing, 0.0, 0.0), point);
  return point.height;
}

void drawGradeTriangle(const Diagram& diagram) {
  const double grade = kSummit.height / kSummit.stationing;
  const Point corner{30.0, 6.0 * grade};
  diagram.line({6.0, 6.0 * grade}, corner, mark());
  diagram.arrow(corner, {30.0, 30.0 * grade}, mark());
  diagram.label({19.0, 6.0 * grade - 3.6}, "100", kBlue);
  diagram.label({31.5, 18.0 * grade}, "grade > 0", kBlue, Align::Start);
}

}  // namespace

Drawing::Sheet axisProfilePicture() {
  Drawing::Sheet sheet{180.0, 72.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    const auto axis = sampleAxis();
    const AxisCalculator calculator(axis);
    const Diagram diagram(canvas, {10.0, 50.0}, 0.9);
    diagram.curve({on(kStart), on(kSummit), on(kSag), on(kEnd)}, helper());
    std::vector<Point> line;
    constexpr int kPieces = 400;
    for (int i = 0; i <= kPieces; ++i) {
      const double stationing = kEnd.stationing * i / kPieces;
      line.push_back({stationing, heightAt(calculator, stationing)});
    }
    diagram.curve(line, subject());
    diagram.dot(on(kSummit), kGrey);
    diagram.dot(on(kSag), kGrey);
    diagram.label(on(kSummit) + Point{0.0, 8.0}, "arc: radius of the true circle", kInk);
    diagram.label(on(kSag) + Point{-1.0, -6.0}, "parabola: curvature 1/R over the stationing",
                  kInk);
    drawGradeTriangle(diagram);
    diagram.label({89.0, 25.0}, "grade < 0", kOrange, Align::Start);
    diagram.arrow({0.0, -9.0}, {kEnd.stationing, -9.0}, helper());
    diagram.label({kEnd.stationing, -13.5}, "stationing: length in plan", kGrey, Align::End);
    diagram.arrow({153.0, heightAt(calculator, 153.0) + 5.0},
                  {kEnd.stationing - 2.0, kEnd.height + 4.0}, mark());
    diagram.label({kEnd.stationing - 4.0, kEnd.height + 9.0}, "tunnel meter: length in space",
                  kBlue, Align::End);
  };
  return sheet;
}

}  // namespace ConventionPictures
