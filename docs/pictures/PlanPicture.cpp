// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"
#include "pictures/Pictures.h"

#include <Calculations/Calculations.h>

#include <cmath>

namespace ConventionPictures {

namespace {

using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::AxisDefinitionFactory;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

constexpr double kStraightEnd = 60.0;
constexpr double kRightArcEnd = 135.0;
constexpr double kEnd = 205.0;
constexpr double kRadius = 70.0;
constexpr double kAzimuth = 0.95;

/// A straight, an arc to the right and one to the left.
class SampleAxis {
 public:
  SampleAxis() : m_axis(AxisDefinitionFactory::createHoralVeralAxis()) {
    m_axis->addVeralPointKink(0.0, 0.0);
    m_axis->addVeralPointKink(kEnd, 0.0);
    m_axis->addHoralSegmentStraight(0.0, 0.0, 0.0, kAzimuth, kStraightEnd);
    appendArc(kStraightEnd, kAzimuth, kRadius, kRightArcEnd - kStraightEnd);
    const double azimuth = kAzimuth + (kRightArcEnd - kStraightEnd) / kRadius;
    appendArc(kRightArcEnd, azimuth, -kRadius, kEnd - kRightArcEnd);
  }

  Point at(double stationing, double offset = 0.0) const {
    ENHPoint point;
    AxisCalculator(m_axis).axisPointToEnhPointVertical(AxisPoint(stationing, offset, 0.0), point);
    return {point.east, point.north};
  }

  std::vector<Point> between(double from, double to) const {
    constexpr int kPieces = 80;
    std::vector<Point> points;
    for (int i = 0; i <= kPieces; ++i) {
      points.push_back(at(from + (to - from) * i / kPieces));
    }
    return points;
  }

 private:
  void appendArc(double stationing, double azimuth, double radius, double length) {
    const Point start = at(stationing);
    m_axis->addHoralSegmentArc(stationing, start.x, start.y, azimuth, radius, length);
  }

  boost::shared_ptr<AxisDefinition> m_axis;
};

void drawAzimuth(const Diagram& diagram, const SampleAxis& axis) {
  const Point start = axis.at(0.0);
  diagram.arrow(start, start + Point{0.0, 42.0}, helper());
  diagram.label(start + Point{0.0, 46.0}, "north", kGrey);
  diagram.turn(start, 24.0, 0.0, kAzimuth, mark());
  diagram.label(polar(start, 0.42 * kAzimuth, 31.0), "azimuth", kBlue);
}

void drawOffset(const Diagram& diagram, const SampleAxis& axis) {
  constexpr double kStationing = 45.0;
  const Point foot = axis.at(kStationing);
  diagram.arrow(foot, axis.at(kStationing, 20.0), mark());
  diagram.label(axis.at(kStationing - 1.0, 25.0), "offset > 0", kBlue);
  diagram.arrow(foot, axis.at(kStationing, -20.0), second());
  diagram.label(axis.at(kStationing, -25.0), "offset < 0", kOrange);
  diagram.dot(foot, kInk);
}

void drawRadii(const Diagram& diagram, const SampleAxis& axis) {
  constexpr double kFromCentre = 40.0;  // the rest of the way would leave the page
  constexpr double kLabel = 45.0;
  constexpr double kOnRightArc = 112.0;
  diagram.arrow(axis.at(kOnRightArc, kFromCentre), axis.at(kOnRightArc), helper());
  diagram.label(axis.at(kOnRightArc, kLabel) + Point{14.0, 0.0}, "radius > 0: centre on the right",
                kBlue);
  constexpr double kOnLeftArc = 170.0;
  diagram.arrow(axis.at(kOnLeftArc, -kFromCentre), axis.at(kOnLeftArc), helper());
  diagram.label(axis.at(kOnLeftArc, -kLabel), "radius < 0: centre on the left", kOrange);
}

}  // namespace

Drawing::Sheet planPicture() {
  Drawing::Sheet sheet{180.0, 82.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    const SampleAxis axis;
    const Diagram diagram(canvas, {14.0, 69.0}, 0.82);
    drawAzimuth(diagram, axis);
    drawRadii(diagram, axis);
    diagram.curve(axis.between(0.0, kEnd), subject());
    for (const double joint : {0.0, kStraightEnd, kRightArcEnd}) {
      diagram.line(axis.at(joint, -2.0), axis.at(joint, 2.0), subject());
    }
    drawOffset(diagram, axis);
    diagram.arrow(axis.at(kEnd - 8.0), axis.at(kEnd), subject());
    diagram.label(axis.at(kEnd, 17.0), "stationing grows", kInk, Align::End);
  };
  return sheet;
}

}  // namespace ConventionPictures
