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

TEST(ProfileOutline, SeesChangedProfiles) {
  const MeasuredPtr scan = measuredThrough({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const ProfilePtr design = profileThrough({{0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}, {0, 0, 0}});
  const MeasuredProfileCalculator calculator(design, scan);
  const MeasuredProfileCalculator byScan(scan, scan);
  EXPECT_NEAR(calculator.overProfileArea(), 12.0, 1e-7);
  EXPECT_EQ(byScan.calculateProfilePoint(Point2D(5, 1)).distance, 1.0);
  // As many points and segments as before: the scan smaller, one wall of the design an arc.
  scan->reset();
  for (const Point2D& point : {Point2D(0, 0), {1, 0}, {1, 1}, {0, 1}}) {
    scan->addPoint(point);
  }
  EXPECT_NEAR(calculator.comparisonArea(), 1.0, 1e-7);
  EXPECT_NEAR(calculator.underProfileArea(), 3.0, 1e-7);
  EXPECT_EQ(byScan.calculateProfilePoint(Point2D(5, 1)).distance, 4.0);
  design->resetThProfile();
  EXPECT_EQ(calculator.referenceArea(), 0.0);
  design->addSegmentArc(0, 0, 0, 2, 1.0);
  design->addSegmentStraight(0, 2, 2, 2);
  EXPECT_NEAR(calculator.referenceArea(), 2.0 + kPi / 2, 1e-3);
  design->addSegmentStraight(2, 2, 2, 0);
  design->addSegmentStraight(2, 0, 0, 0);
  EXPECT_NEAR(calculator.referenceArea(), 4.0 + kPi / 2, 1e-3);
  // One coordinate of one point.
  const std::vector<Point2D> before = {{0, 0}, {2, 2}, {4, 0}};
  for (const Point2D& moved : {Point2D(2, 5), Point2D(5, 2)}) {
    for (const Point2D& top : {before[1], moved}) {
      scan->reset();
      scan->addPoint(before[0]);
      scan->addPoint(top);
      scan->addPoint(before[2]);
      EXPECT_NEAR(calculator.comparisonArea(), 2 * top.y, 1e-3);
      const ProfilePointResult atTop = byScan.calculateProfilePoint(top);
      EXPECT_EQ(atTop.distance, 0.0);
    }
  }
  scan->reset();
  EXPECT_EQ(calculator.comparisonArea(), 0.0);
  EXPECT_EQ(byScan.calculateProfilePoint(Point2D(5, 1)).distance, 0.0);
}

/// One such point used to lie in the middle of the section: 1.7 m2 less, and 85 m2 of over profile.
TEST(ProfileOutline, LeavesOutPointsThatAreNotFinite) {
  const double nan = std::nan("");
  const double inf = std::numeric_limits<double>::infinity();
  const auto numbersOf = [](const MeasuredPtr& scan, bool asReference) {
    const MeasuredProfileCalculator c =
        asReference ? MeasuredProfileCalculator(scan, measuredCircle(5.1, 90, 0.0, 4.0))
                    : MeasuredProfileCalculator(circleProfile(5.1, 0.0, 4.0), scan);
    const ProfilePointResult point = c.calculateProfilePoint(Point2D(4, 6));
    const Point2D p(-2, 5.5);
    return std::vector<double>{
        c.comparisonArea(),
        c.referenceArea(),
        c.overProfileArea(),
        c.underProfileArea(),
        c.comparisonCircumference(),
        c.referenceCircumference(),
        point.distance,
        point.derolment,
        c.horizontalDistanceToComparisonProfile(p).x,
        c.verticalDistanceToComparisonProfile(p).y,
        c.radialDistanceToComparisonProfile(p).x,
        c.leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa).radius,
        c.leastSquarePointOfComparisonProfile(FittingMethod::CircleLegacy).center.y,
        static_cast<double>(c.intersectionsAtGivenUpOffsetOfComparisonProfile(5).size())};
  };
  const MeasuredPtr nothing = measuredThrough({{nan, 3}, {1, inf}});
  EXPECT_EQ(numbersOf(nothing, false)[0], 0.0);
  EXPECT_EQ(numbersOf(nothing, true)[1], 0.0);
  const MeasuredPtr sound = measuredCircle(5.2, 100, 0.3, 4.0);
  for (const std::size_t place : {0u, 1u, 40u, 99u, 100u}) {
    for (const Point2D& bad : {Point2D(nan, 3), Point2D(1, inf), Point2D(-inf, nan)}) {
      SCOPED_TRACE(testing::Message() << place << ": " << bad.x << ", " << bad.y);
      const MeasuredPtr spoilt = measuredThrough({});
      for (unsigned i = 0; i <= 100; ++i) {
        if (i == place) spoilt->addPoint(bad);
        if (i < 100) spoilt->addPoint(sound->getPointAt(i));
      }
      EXPECT_EQ(spoilt->getNumPoints(), 101u);
      for (const bool asReference : {false, true}) {
        const std::vector<double> expected = numbersOf(sound, asReference);
        const std::vector<double> found = numbersOf(spoilt, asReference);
        for (std::size_t i = 0; i < expected.size(); ++i) {
          EXPECT_NEAR(found[i], expected[i], 1e-12) << i;
        }
      }
    }
  }
}

TEST(ProfileOutline, JoinsTheNeighboursOfAPointThatIsNotFiniteByAStraight) {
  const MeasuredPtr scan = measuredThrough({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const MeasuredProfileCalculator calculator(
      profileThrough({{0, 0, 0}, {0, 4, 0}, {std::nan(""), 6, 0}, {4, 4, 3}, {4, 0, 0}, {0, 0, 0}}),
      scan);
  EXPECT_EQ(calculator.referenceArea(), calculator.comparisonArea());
  EXPECT_EQ(calculator.calculateProfilePoint(Point2D(2, 3)).distance, -1.0);
}

}  // namespace
