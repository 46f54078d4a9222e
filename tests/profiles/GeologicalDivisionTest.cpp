// SPDX-License-Identifier: BSL-1.0
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Polygons.h"
#include "testing/Profiles.h"

#include <Calculations/MeasuredProfileCalculator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;
using Method = GeologicalOverProfileMethod;

/// The road tunnel as excavated: 0.2 m too wide, and 0.6 m at the crown between two bearings.
MeasuredPtr excavationWithChimney() {
  std::vector<Point2D> points;
  for (int i = 0; i < 720; ++i) {
    const double bearing = 2 * kPi * i / 720;
    const bool isChimney = bearing < 0.3 || bearing > 2 * kPi - 0.3;
    const double radius = isChimney ? 5.6 : 5.2;
    points.emplace_back(radius * std::sin(bearing), 4 + radius * std::cos(bearing));
  }
  return measuredThrough(points);
}

/// Area between two radii within half a bearing to both sides.
double sector(double outer, double inner, double halfBearing) {
  return (outer * outer - inner * inner) * halfBearing;
}

TEST(GeologicalOverProfile, TakesWhatLiesBeyondTheLimitAndItsBand) {
  const MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0), excavationWithChimney());
  const auto area = [&](Method::Method method, double limit, double second) {
    return calculator.geologicalOverProfileArea(method, limit, second);
  };
  const double beyond = sector(5.6, 5.3, 0.3);
  EXPECT_NEAR(area(Method::GeologicalBeyondLimitOnly, 0.3, 0), beyond, 0.02);
  EXPECT_EQ(area(Method::GeologicalBeyondLimitOnly, 0.61, 0), 0.0);
  EXPECT_NEAR(area(Method::GeologicalBandFromReference, 0.3, 0), beyond + sector(5.3, 5.0, 0.3),
              0.03);
  EXPECT_NEAR(area(Method::GeologicalBandBetweenLimits, 0.3, 0.1), beyond + sector(5.3, 5.1, 0.3),
              0.03);
  // Around the whole section.
  const MeasuredProfileCalculator ring(circleProfile(5.0, 0.0, 4.0),
                                       measuredCircle(5.6, 720, 0, 4));
  EXPECT_NEAR(ring.geologicalOverProfileArea(Method::GeologicalBandFromReference, 0.3, 0),
              sector(5.6, 5.0, kPi), 0.01);
  // No band between crossed limits, nor for a method that there is not.
  EXPECT_NEAR(area(Method::GeologicalBandBetweenLimits, 0.3, 0.4), beyond, 0.02);
  EXPECT_NEAR(area(static_cast<Method::Method>(7), 0.3, 0), beyond, 0.02);
}

TEST(GeologicalOverProfile, LeavesTheRestOfTheOverProfile) {
  MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0), excavationWithChimney());
  for (const bool filtered : {false, true}) {
    if (filtered) calculator.setFilterExcludeLeftOf(0.0);
    const double share = filtered ? 0.5 : 1.0;
    const auto parts = calculator.overProfileDividedByGeologicalAreaPathes(
        Method::GeologicalBandFromReference, 0.3, 0);
    EXPECT_NEAR(areaOf(parts.first),
                calculator.geologicalOverProfileArea(Method::GeologicalBandFromReference, 0.3, 0),
                1e-3);
    const auto whole =
        calculator.geologicalOverProfileAreaPathes(Method::GeologicalBandFromReference, 0.3, 0);
    EXPECT_NEAR(areaOf(parts.first), areaOf(whole), 1e-12);
    EXPECT_NEAR(areaOf(parts.second), share * sector(5.2, 5.0, kPi - 0.3), 0.03);
    EXPECT_NEAR(areaOf(calculator.overProfileAreaPathes()), calculator.overProfileArea(), 1e-3);
  }
}

TEST(GeologicalOverProfile, LimitsThatAreNoNumbersAreNone) {
  const double nan = std::nan("");
  MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0), excavationWithChimney());
  calculator.setFilterExcludeAbove(4.0);
  calculator.setFilterExcludeLeftOf(0.0);
  const double quarter = calculator.comparisonArea();
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(nan, 1)));
  calculator.setFilterExcludeLeftOf(nan);
  EXPECT_NEAR(calculator.comparisonArea(), 2 * quarter, 0.01);
  calculator.setFilterExcludeBetweenAngles(nan, 1.0, Point2D(0, 4));
  calculator.setFilterExcludeBetweenAngles(0.0, nan, Point2D(0, 4));
  calculator.setFilterExcludeBetweenAngles(0.0, 1.0, Point2D(0, nan));
  EXPECT_NEAR(calculator.comparisonArea(), 2 * quarter, 0.01);
  calculator.setFilterExcludeAbove(nan);
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));  // no filter is set any more
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(nan, 1)));
  calculator.setFilterExcludeAbove(std::numeric_limits<double>::infinity());
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));
  // Nor is there a geological part.
  for (const auto& [a, b] : {std::pair(nan, 0.1), {0.3, nan}}) {
    EXPECT_TRUE(std::isnan(
        calculator.geologicalOverProfileArea(Method::GeologicalBandBetweenLimits, a, b)));
    const auto parts = calculator.overProfileDividedByGeologicalAreaPathes(
        Method::GeologicalBandBetweenLimits, a, b);
    EXPECT_EQ(parts.first.size() + parts.second.size(), 0u);
  }
}

}  // namespace
