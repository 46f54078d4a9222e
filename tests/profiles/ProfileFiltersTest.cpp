// SPDX-License-Identifier: BSL-1.0
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Profiles.h"

#include <Calculations/MeasuredProfileCalculator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(ProfileFilters, ShareTheirHalfPlanesAndWedges) {
  MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0),
                                       measuredCircle(5.0, 360, 0.0, 4.0));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));
  calculator.setFilterExcludeAbove(2.0);
  calculator.setFilterExcludeAbove(4.0);
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 3)));
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(0, 4)));  // the border
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(0, -1001)));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(999, -999)));
  EXPECT_NEAR(calculator.comparisonArea(), 12.5 * kPi, 5e-3);
  EXPECT_NEAR(calculator.referenceArea(), 12.5 * kPi, 5e-3);
  EXPECT_NEAR(calculator.referenceCircumference(), 5 * kPi, 1e-2);
  EXPECT_EQ(calculator.leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa).method, 1);
  calculator.setFilterExcludeRightOf(0.0);
  EXPECT_NEAR(calculator.comparisonArea(), 6.25 * kPi, 5e-3);
  calculator.setFilterExcludeBelow(1.0);
  calculator.setFilterExcludeLeftOf(-1.0);
  EXPECT_NEAR(calculator.comparisonArea(), 3.0, 1e-3);
  calculator.resetAllFilters();
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));
  // A wedge to the left of the centre, by bearings.
  calculator.setFilterExcludeBetweenAngles(5 * kPi / 4, 7 * kPi / 4, Point2D(0, 4));
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(-3, 4)));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(3, 4)));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 7)));
  EXPECT_NEAR(calculator.comparisonArea(), 0.75 * 25 * kPi, 0.02);
  EXPECT_EQ(calculator.comparisonCircumferenceLines(true).size(), 2u);  // cut at the first point
  // What two wedges share stays allowed.
  calculator.setFilterExcludeBetweenAngles(5 * kPi / 4, 7 * kPi / 4, Point2D(0, 4));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(-3, 4)));
  // Under a wedge upwards the middle of the section stays, and no outline is cut there.
  calculator.resetAllFilters();
  calculator.setFilterExcludeBetweenAngles(-0.3, 0.3, Point2D(0, 4));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 3)));
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(0, 4)));  // the border
  EXPECT_EQ(calculator.comparisonCircumferenceLines(true).size(), 2u);
}

TEST(ProfileFilters, CircumferencesDoNotDependOnWhereTheSectionStarts) {
  const std::vector<Point2D> corners = {{0, 0}, {0, 4}, {4, 4}, {4, 0}};
  for (std::size_t start = 0; start < 4; ++start) {
    for (const std::size_t step : {1u, 3u}) {  // clockwise, anticlockwise
      const MeasuredPtr section = measuredThrough({});
      for (std::size_t i = 0; i < 4; ++i) {
        section->addPoint(corners[(start + i * step) % 4]);
      }
      MeasuredProfileCalculator calculator(section, section);
      calculator.setFilterExcludeBelow(0.0);  // the floor lies on the border
      EXPECT_NEAR(calculator.comparisonCircumference(), 16.0, 1e-3) << start << ", " << step;
    }
  }
}

/// Right half of radius 7 round (0, 4), left half of radius 5.
TEST(ProfileFilters, LeaveOutWhatTheyExclude) {
  constexpr double kStep = 0.11;  // what lies between two bearings
  std::vector<Point2D> points;
  for (int i = 0; i < 400; ++i) {
    const double bearing = (i + 0.5) * kPi / 200;
    const double radius = bearing < kPi ? 7.0 : 5.0;
    points.emplace_back(radius * std::sin(bearing), 4 + radius * std::cos(bearing));
  }
  MeasuredProfileCalculator calculator(circleProfile(6.0, 0.0, 4.0), measuredThrough(points));
  const double over = kPi * (49 - 36) / 2;
  const double under = kPi * (36 - 25) / 2;
  EXPECT_NEAR(calculator.overProfileArea(), over, kStep);
  EXPECT_NEAR(calculator.underProfileArea(), under, kStep);
  const Point2D p(6.5, 4);
  const double distance = calculator.calculateProfilePoint(p).distance;
  calculator.setFilterExcludeRightOf(0.0);
  EXPECT_NEAR(calculator.overProfileArea(), 0.0, kStep);
  EXPECT_NEAR(calculator.underProfileArea(), under, kStep);
  const FittingResult fit =
      calculator.leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa);
  expectPoint(fit.center, Point2D(0, 4), 1e-9);
  EXPECT_NEAR(fit.radius, 5.0, 1e-9);
  // Points are compared and distances measured all the same.
  EXPECT_EQ(calculator.calculateProfilePoint(p).distance, distance);
  EXPECT_NEAR(calculator.radialDistanceToComparisonProfile(p).x, 7.0, 1e-3);
  calculator.resetAllFilters();
  calculator.setFilterExcludeLeftOf(0.0);
  EXPECT_NEAR(calculator.overProfileArea(), over, kStep);
  EXPECT_NEAR(calculator.underProfileArea(), 0.0, kStep);
}

}  // namespace
