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

TEST(LineCuts, FindTheComparisonAlongLines) {
  const MeasuredProfileCalculator calculator(circleProfile(2.0),
                                             measuredThrough({{-3, -3}, {3, -3}, {3, 3}, {-3, 3}}));
  expectPoint(calculator.horizontalDistanceToComparisonProfile(Point2D(0, 1)), Point2D(3, 1),
              1e-12);
  expectPoint(calculator.horizontalDistanceToComparisonProfile(Point2D(-1, 1)), Point2D(-3, 1),
              1e-12);  // on the edge that closes the polygon
  expectPoint(calculator.verticalDistanceToComparisonProfile(Point2D(1, -1)), Point2D(1, -3),
              1e-12);
  expectPoint(calculator.radialDistanceToComparisonProfile(Point2D(1, 0.5)), Point2D(3, 1.5), 1e-9);
  // Exactly one metre outside, where the offset point is the point itself.
  expectPoint(calculator.radialDistanceToComparisonProfile(Point2D(0, 3)), Point2D(0, 3), 1e-9);
  expectPoint(calculator.radialDistanceToComparisonProfile(Point2D(1.8, 2.4)), Point2D(2.25, 3),
              1e-9);
  expectPoint(calculator.horizontalDistanceToComparisonProfile(Point2D(0, 3.01)),
              Point2D(kNoCoordinate, kNoCoordinate), 0);
  expectPoint(calculator.verticalDistanceToComparisonProfile(Point2D(std::nan(""), 0)),
              Point2D(kNoCoordinate, kNoCoordinate), 0);
}

TEST(LineCuts, AreTakenAtOffsets) {
  MeasuredProfileCalculator calculator(
      circleProfile(2.0), measuredThrough({{-3, -3}, {3, -3}, {3, 3}, {0, 5}, {-3, 3}}));
  EXPECT_EQ(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(0).size(), 2u);
  EXPECT_EQ(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(5).size(), 2u);   // a vertex
  EXPECT_EQ(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(-3).size(), 2u);  // an edge
  const auto cuts = calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(1);
  ASSERT_EQ(cuts.size(), 2u);
  expectPoint(cuts[0], Point2D(1, -3), 1e-12);
  expectPoint(cuts[1], Point2D(1, 5 - 2 / 3.0), 1e-12);
  // The reference by its corners, without arcs.
  expectPoint(calculator.intersectionsAtGivenUpOffsetOfReferenceProfile(1).at(0), Point2D(-1, 1),
              1e-12);
  expectPoint(calculator.intersectionsAtGivenRightOffsetOfReferenceProfile(0.5).at(0),
              Point2D(0.5, 1.5), 1e-12);
  EXPECT_TRUE(calculator.intersectionsAtGivenRightOffsetOfReferenceProfile(2.1).empty());
  // Filtered corners are bridged.
  calculator.setFilterExcludeAbove(4.0);
  EXPECT_TRUE(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(3.5).empty());
  calculator.setFilterExcludeAbove(0.0);
  // Two points are no outline.
  EXPECT_TRUE(calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(1).empty());
}

TEST(LineCuts, ReachWithinAKilometreOfTheOrigin) {
  const MeasuredPtr square = measuredThrough({{-1, -1}, {-1, 1}, {1, 1}, {1, -1}});
  for (const Point2D& centre : {Point2D(1000, 0), {-1000, 0}, {0, 1000}, {0, -1000}}) {
    const MeasuredPtr moved = measuredThrough({});
    for (unsigned int i = 0; i < 4; ++i) {
      moved->addPoint(square->getPointAt(i) + centre);
    }
    const MeasuredProfileCalculator calculator(moved, moved);
    const auto cuts = centre.y == 0.0
                          ? calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(0.5)
                          : calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(0.5);
    ASSERT_EQ(cuts.size(), 1u) << centre.x << ", " << centre.y;
    expectPoint(cuts[0],
                centre * 0.999 + Point2D(0, 0.5) * (centre.y == 0.0 ? 1.0 : 0.0) +
                    Point2D(0.5, 0) * (centre.y == 0.0 ? 0.0 : 1.0),
                1e-9);
  }
}

}  // namespace
