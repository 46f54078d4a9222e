// SPDX-License-Identifier: BSL-1.0
#include "snippets/Snippets.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Snippets;

// What the comments of the examples promise, and what follows from their input.

TEST(Snippets, Values) {
  EXPECT_NEAR((pointAhead() - ENHPoint(600006, 200008, 502.4)).length(), 0.0, 1e-9);
  const double diagonal = 10.0 / std::sqrt(2.0);
  const ENHPoint northEast(600000 + diagonal, 200000 + diagonal, 500);
  EXPECT_NEAR((measuredPoint() - northEast).length(), 0.0, 1e-9);
  EXPECT_EQ(rawLength(), 13.0);
}

TEST(Snippets, Axes) {
  const auto axis = defineAxis();
  AxisPoint back;
  const ENHPoint grid = gridPointOfAxisPoint(axis, back);
  EXPECT_NEAR((grid - ENHPoint(600003, 200050, 501.0 + 1.5)).length(), 0.0, 1e-9);
  EXPECT_NEAR(back.stationing, 1050.0, 1e-9);
  EXPECT_NEAR(back.offset, 3.0, 1e-9);
  EXPECT_NEAR(back.height, 1.5, 1e-9);

  // The chord of 12 m leaves the tangent by half its angle of 12 / 400; the point stands 1 m above
  // it, in a section turned by the transverse slope.
  const AxisPoint beside = positionInBlock(axis);
  const double right = 3 * std::cos(0.015) - 5 * std::sin(0.015);
  const double slope = std::atan(0.025);
  EXPECT_NEAR(beside.stationing, 1150 + 5 * std::cos(0.015) + 3 * std::sin(0.015), 1e-6);
  EXPECT_NEAR(beside.offset, right * std::cos(slope) - std::sin(slope), 1e-6);
  EXPECT_NEAR(beside.height, right * std::sin(slope) + std::cos(slope), 1e-6);
  EXPECT_NEAR(stationingOnOtherAxis(axis, defineAxis()), 1050.0, 1e-9);
  EXPECT_TRUE(defineShaft()->isShaftAxisTopDown());
  EXPECT_EQ(defineShaft()->maximumStng2d(), 80.0);
}

TEST(Snippets, Misclosure) {
  const auto axis = defineAxis();
  EXPECT_TRUE(isContinuous(*axis));
  axis->addHoralSegmentStraight(1250, 600018, 200255, 0.25, 50);  // 5.8 m off
  EXPECT_FALSE(isContinuous(*axis));
}

TEST(Snippets, ElementsOfAxes) {
  const auto axis = defineAxis();
  double tunnelmeter = 0.0;
  ASSERT_TRUE(AxisCalculator(axis).stationingToTunnelmeter(1250, tunnelmeter));
  EXPECT_NEAR(lengthInSpace(*axis), tunnelmeter, 1e-4);
  EXPECT_EQ(lengthCurvingRight(*axis), 100.0);

  // Below the point of intersection by R / 8 times the square of the change of grade.
  flattenRounding(*axis);
  ENHPoint top;
  ASSERT_TRUE(AxisCalculator(axis).axisPointToEnhPointVertical(AxisPoint(1100, 0, 0), top));
  EXPECT_NEAR(top.height, 502 - 5000 * 0.02 * 0.02 / 8, 1e-3);
  Point2D end;
  EXPECT_TRUE(endOfClothoid(end));
  EXPECT_NEAR((end - Point2D(79.9488, 2.1324)).length(), 0.0, 1e-4);
}

TEST(Snippets, Profiles) {
  const auto design = defineProfile();
  const auto measured = defineMeasuredProfile();
  const ProfilePointResult outside = positionInProfile(design);
  EXPECT_NEAR(outside.distance, 0.25, 1e-12);
  EXPECT_NEAR(outside.derolment, 0.0, 1e-5);
  EXPECT_EQ(numArcs(*design), 2u);
  EXPECT_EQ(numArcs(*measured), 0u);
  EXPECT_NEAR(greatestDistance(ThProfileCalculator(design), {{0, 6}, {0, 7.25}, {5.1, 1}}), 0.25,
              1e-12);

  std::vector<Polygon> places;
  const double over = overExcavation(design, measured, places);
  double sum = 0.0;
  for (const Polygon& place : places) {
    Path outline;
    for (const Point2D& p : place.points())
      outline.addSegment(PathSegment(p.x, p.y));
    outline.close(false);
    sum += areaOnTheGrid(outline);
  }
  EXPECT_NEAR(sum, over, 2e-3);
  const double geological = geologicalOverBreak(MeasuredProfileCalculator(design, measured));
  EXPECT_GT(geological, 0.0);
  EXPECT_LT(geological, over);
  EXPECT_NEAR(areaOfLShape(), 12.0, 1e-9);
  EXPECT_EQ(profileInTransition(design, design)->getNumSegments(), 5u);
}

TEST(Snippets, FitsGuidanceAndStations) {
  std::vector<Point2D> points;
  for (int i = 0; i < 60; ++i) {
    points.emplace_back(3.0 * std::cos(0.1 * i), 2.0 * std::sin(0.1 * i));
  }
  points[7] = points[7] * 1.2;
  std::vector<bool> used;
  EXPECT_NEAR(fitEllipse(points, used).semiAxisA, 3.0, 1e-9);
  EXPECT_FALSE(used[7]);

  ENHPoint ahead;
  const GuidanceOffsets boom = boomBesideVector(defineAxis(), ahead);
  EXPECT_NEAR(boom.forward, 4.0, 1e-9);
  EXPECT_NEAR(boom.horizontal, 0.1, 1e-9);
  EXPECT_NEAR(ahead.north, 200019.0, 1e-9);
  EXPECT_NEAR(riseOfVector(), std::atan(0.1), 1e-15);
  EXPECT_NEAR(driftOfVector(defineAxis()), std::atan(1.0 / 20.0), 1e-9);

  double orientation = 0.0;
  EXPECT_NEAR((freeStation(orientation) - ENHPoint(600010, 200005, 501.6)).length(), 0.0, 1e-8);
  EXPECT_NEAR(orientation, 1.0, 1e-9);
  std::vector<ENHPoint> residuals;
  EXPECT_NEAR((placeTarget(residuals) - ENHPoint(600015, 200030, 503)).length(), 0.0, 1e-8);
  ASSERT_EQ(residuals.size(), 1u);
  EXPECT_NEAR(residuals[0].length(), 0.0, 1e-8);
  EXPECT_EQ(identifyFixPoint(), L"C");
}
