// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"
#include "pictures/Pictures.h"

namespace ConventionPictures {

namespace {

constexpr double kQuarterTurn = 1.5707963267948966;
constexpr double kReach = 22.0;

void drawHorizontalAngles(Drawing::Canvas& canvas) {
  const Diagram diagram(canvas, {44.0, 44.0}, 1.0);
  diagram.title("from above");
  constexpr double kOrientation = -0.6;
  constexpr double kAzimuth = 0.9;
  diagram.arrow({}, polar({}, 0.0, kReach + 6.0), helper());
  diagram.label({0.0, kReach + 9.0}, "north", kGrey);
  diagram.arrow({}, polar({}, kOrientation, kReach + 4.0), helper());
  diagram.label(polar({}, kOrientation, kReach + 7.0), "circle zero", kGrey);
  diagram.line({}, polar({}, kAzimuth, kReach + 5.0), subject());
  diagram.dot(polar({}, kAzimuth, kReach + 5.0), kInk);
  diagram.turn({}, 11.0, kOrientation, kAzimuth, mark());
  diagram.label({14.0, 5.0}, "horizontal angle", kBlue, Align::Start);
  diagram.turn({}, 19.0, 0.0, kOrientation, second());
  diagram.label(polar({}, kOrientation, 19.0) + Point{-1.5, -3.5}, "orientation", kOrange,
                Align::End);
  diagram.dot({}, kInk);
  diagram.label({0.0, -5.0}, "azimuth = orientation + horizontal angle", kInk);
}

void drawZenithAngle(Drawing::Canvas& canvas) {
  const Diagram diagram(canvas, {115.0, 44.0}, 1.0);
  diagram.title("from the side");
  constexpr double kZenith = 1.1;
  const Point target = polar({}, kZenith, kReach + 12.0);
  diagram.arrow({}, polar({}, 0.0, kReach + 6.0), helper());
  diagram.label({0.0, kReach + 9.0}, "up", kGrey);
  diagram.line({}, target, subject());
  diagram.dot(target, kInk);
  diagram.turn({}, 12.0, 0.0, kZenith, mark());
  diagram.label(polar({}, 0.32 * kZenith, 18.0), "zenith angle", kBlue, Align::Start);
  diagram.label(target * 0.62 + Point{2.0, -3.5}, "slope distance", kInk, Align::Start);
  diagram.dot({}, kInk);
}

struct GuidanceView {
  const char* name;
  const char* rightwards;
  const char* upwards;
  double zeroBearing;
  double angle;  ///< clockwise from the bearing of zero
};

/// The angle of a guidance vector as it is seen from one side.
void drawGuidanceAngle(Drawing::Canvas& canvas, const Point& origin, const GuidanceView& view) {
  const Diagram diagram(canvas, origin, 1.0);
  constexpr double kTitleAbove = 27.0;
  diagram.label({7.0, kTitleAbove}, view.name, kInk);
  diagram.arrow({}, {kReach, 0.0}, helper());
  diagram.label({kReach, -3.5}, view.rightwards, kGrey);
  diagram.arrow({}, {0.0, kReach}, helper());
  diagram.label({-1.5, kReach}, view.upwards, kGrey, Align::End);
  const double bearing = view.zeroBearing + view.angle;
  diagram.arrow({}, polar({}, bearing, kReach), subject());
  constexpr double kRadius = 13.0;
  diagram.turn({}, kRadius, view.zeroBearing, bearing, mark());
  diagram.label(polar({}, view.zeroBearing + view.angle / 2.0, kRadius - 4.0), "> 0", kBlue);
  diagram.dot({}, kInk);
}

}  // namespace

Drawing::Sheet stationPicture() {
  Drawing::Sheet sheet{180.0, 100.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    drawHorizontalAngles(canvas);
    drawZenithAngle(canvas);
    constexpr double kAngle = 0.85;
    drawGuidanceAngle(canvas, {25.0, 92.0}, {"front view", "right", "up", 0.0, kAngle});
    drawGuidanceAngle(canvas, {82.0, 92.0}, {"top view", "right", "forward", 0.0, kAngle});
    drawGuidanceAngle(canvas, {139.0, 92.0}, {"side view", "forward", "up", kQuarterTurn, -kAngle});
  };
  return sheet;
}

}  // namespace ConventionPictures
