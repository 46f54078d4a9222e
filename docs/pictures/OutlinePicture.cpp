// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"
#include "pictures/Pictures.h"

#include <Calculations/Calculations.h>

#include <boost/make_shared.hpp>

namespace ConventionPictures {

namespace {

using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileCalculator;
using Ruv::Calculations::ThProfileDefinition;

constexpr double kHalfWidth = 5.0;
constexpr double kWall = 2.5;
constexpr double kScale = 4.3;

/// Clockwise: left wall, crown in two arcs, right wall, invert.
boost::shared_ptr<ThProfileDefinition> horseshoe() {
  auto profile = boost::make_shared<ThProfileDefinition>();
  constexpr double kSpring = kWall + kHalfWidth;
  profile->addSegmentStraight(-kHalfWidth, 0.0, -kHalfWidth, kWall);
  profile->addSegmentArc(-kHalfWidth, kWall, 0.0, kSpring, kHalfWidth);
  profile->addSegmentArc(0.0, kSpring, kHalfWidth, kWall, kHalfWidth);
  profile->addSegmentStraight(kHalfWidth, kWall, kHalfWidth, 0.0);
  constexpr double kInvertRadius = 9.0;
  profile->addSegmentArc(kHalfWidth, 0.0, -kHalfWidth, 0.0, kInvertRadius);
  return profile;
}

class OutlineSketch {
 public:
  OutlineSketch(Drawing::Canvas& canvas, const Point& origin)
      : m_diagram(canvas, origin, kScale), m_profile(horseshoe()), m_calculator(m_profile) {}

  const Diagram& diagram() const { return m_diagram; }
  double circumference() const { return m_profile->getCircumference(); }

  /// The point of a derolment, outside by a distance.
  Point at(double derolment, double outside = 0.0) const {
    const Point2D foot = m_calculator.calcPointOnProfileAtDerolment(derolment);
    const Point2D p = m_calculator.applyRadialOffset(foot, outside);
    return {p.x, p.y};
  }

  std::vector<Point> between(double from, double to, double outside) const {
    std::vector<Point> points;
    constexpr int kPieces = 200;
    for (int i = 0; i <= kPieces; ++i) {
      points.push_back(at(from + (to - from) * i / kPieces, outside));
    }
    return points;
  }

  void drawOutline() const {
    const double half = circumference() / 2.0;
    const std::vector<Point> outline = between(-half, half, 0.0);
    m_diagram.area(outline, {0.93, 0.94, 0.95});
    m_diagram.curve(outline, subject());
  }

 private:
  Diagram m_diagram;
  boost::shared_ptr<ThProfileDefinition> m_profile;
  ThProfileCalculator m_calculator;
};

void drawDistances(const OutlineSketch& sketch) {
  const Diagram& diagram = sketch.diagram();
  diagram.title("distance: outside > 0");
  sketch.drawOutline();
  constexpr double kRight = 4.2;
  diagram.arrow(sketch.at(kRight), sketch.at(kRight, 1.7), mark());
  diagram.label(sketch.at(kRight, 2.0) + Point{0.2, 0.2}, "> 0", kBlue, Align::Start);
  constexpr double kLeft = -4.2;
  diagram.arrow(sketch.at(kLeft), sketch.at(kLeft, -1.7), second());
  diagram.label(sketch.at(kLeft, -1.9) + Point{0.2, -0.6}, "< 0", kOrange, Align::Start);
  diagram.arrow({0.0, 0.0}, {2.2, 0.0}, helper());
  diagram.arrow({0.0, 0.0}, {0.0, 2.2}, helper());
  diagram.label({2.6, 0.0}, "x", kGrey);
  diagram.label({0.0, 2.7}, "y", kGrey);
}

void drawDerolment(const OutlineSketch& sketch) {
  const Diagram& diagram = sketch.diagram();
  diagram.title("derolment");
  sketch.drawOutline();
  constexpr double kBeside = 0.8;
  constexpr double kSpan = 6.5;
  const std::vector<Point> clockwise = sketch.between(0.0, kSpan, kBeside);
  diagram.curve(clockwise, mark());
  diagram.arrow(clockwise.back(), sketch.at(kSpan + 0.6, kBeside), mark());
  const std::vector<Point> anticlockwise = sketch.between(0.0, -kSpan, kBeside);
  diagram.curve(anticlockwise, second());
  diagram.arrow(anticlockwise.back(), sketch.at(-kSpan - 0.6, kBeside), second());
  diagram.label(sketch.at(3.8, 1.5), "> 0", kBlue, Align::Start);
  diagram.label(sketch.at(-3.8, 1.5), "< 0", kOrange, Align::End);
  diagram.line(sketch.at(0.0, -0.5), sketch.at(0.0, 1.4), subject());
  diagram.label(sketch.at(0.0, -1.3), "crown: 0", kInk);
  const double half = sketch.circumference() / 2.0;
  diagram.line(sketch.at(half, -0.5), sketch.at(half, 0.5), subject());
  diagram.label(sketch.at(half, -1.3), "C/2 = -C/2", kInk);
}

void drawRadii(Drawing::Canvas& canvas, const Point& origin) {
  const Diagram diagram(canvas, origin, kScale);
  diagram.title("radius: clockwise > 0");
  constexpr double kRadius = 4.0;
  constexpr double kHalfTurn = 1.0;
  const Point upper{0.0, 2.6};
  diagram.curve(arc(upper, kRadius, -kHalfTurn, kHalfTurn), subject());
  diagram.turn(upper, kRadius + 0.6, -0.35, 0.35, mark());
  diagram.label(upper + Point{0.0, kRadius - 1.2}, "> 0", kBlue);
  const Point lower{0.0, 4.2};
  constexpr double kDown = 3.141592653589793;
  diagram.curve(arc(lower, kRadius, kDown + kHalfTurn, kDown - kHalfTurn), subject());
  diagram.turn(lower, kRadius + 0.6, kDown + 0.35, kDown - 0.35, second());
  diagram.label(lower + Point{0.0, 1.2 - kRadius}, "< 0", kOrange);
}

}  // namespace

Drawing::Sheet outlinePicture() {
  Drawing::Sheet sheet{180.0, 66.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    drawDistances({canvas, {32.0, 51.0}});
    drawDerolment({canvas, {95.0, 51.0}});
    drawRadii(canvas, {153.0, 51.0});
  };
  return sheet;
}

}  // namespace ConventionPictures
