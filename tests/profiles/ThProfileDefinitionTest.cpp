// SPDX-License-Identifier: BSL-1.0
#include <Calculations/ThProfileDefinition.h>

#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Profiles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(ThProfileDefinition, ReadsAsAdded) {
  ThProfileDefinition profile;
  EXPECT_EQ(profile.getCircumference(), 0.0);
  EXPECT_FALSE(profile.isDefinedClockwise());
  EXPECT_TRUE(profile.addSegmentStraight(1, 2, 4, 6));
  EXPECT_EQ(profile.getCircumference(), 0.0);              // not before the second segment
  EXPECT_TRUE(profile.addSegmentArc(99, 99, 4, 8, -1.5));  // its start counts for no node
  expectPoint(profile.getSegmentStartAt(1), Point2D(4, 6), 0);
  expectPoint(profile.getSegmentEndAt(1), Point2D(4, 8), 0);
  EXPECT_EQ(profile.getSegmentRadiusAt(1), -1.5);
  EXPECT_DOUBLE_EQ(profile.getCircumference(), 5.0 + 3.0 * std::asin(1 / 1.5));
  for (const unsigned int beyond : {2u, 0xFFFFFFFFu}) {
    expectPoint(profile.getSegmentStartAt(beyond), Point2D(), 0);
    expectPoint(profile.getSegmentEndAt(beyond), Point2D(), 0);
    EXPECT_EQ(profile.getSegmentRadiusAt(beyond), 0.0);
  }
  profile.resetThProfile();
  profile.addSegmentStraight(7, 7, 8, 8);
  EXPECT_EQ(profile.getNumSegments(), 1u);
  expectPoint(profile.getSegmentStartAt(0), Point2D(7, 7), 0);
}

TEST(ThProfileDefinition, MeasuresArcs) {
  const auto lengthOf = [](const Point2D& from, const Point2D& to, double radius) {
    ThProfileDefinition profile;
    profile.addSegmentArc(from.x, from.y, to.x, to.y, radius);
    profile.addSegmentStraight(to.x, to.y, to.x, to.y);
    return profile.getCircumference();
  };
  EXPECT_DOUBLE_EQ(lengthOf({-1, 0}, {1, 0}, 2), 2 * kPi / 3);
  EXPECT_DOUBLE_EQ(lengthOf({-1, 0}, {1, 0}, -2), 2 * kPi / 3);
  EXPECT_DOUBLE_EQ(lengthOf({-1, 0}, {1, 0}, 1), kPi);
  EXPECT_DOUBLE_EQ(lengthOf({-1, 0}, {1, 0}, 1e9), 2.0);
  EXPECT_EQ(lengthOf({5, 5}, {5, 5}, 3), 0.0);
  EXPECT_EQ(lengthOf({5, 5}, {5, 5 + 1e-7}, 3), 0.0);
  EXPECT_TRUE(std::isnan(lengthOf({-1, 0}, {1, 0}, 0.99)));
  // A half circle turned by any angle stays one, although rounding makes its chord too long.
  for (double angle = 0.1; angle < 6; angle += 0.1) {
    const Point2D half(std::cos(angle) * 2.3, std::sin(angle) * 2.3);
    EXPECT_NEAR(lengthOf(Point2D(0.7, 0.4) - half, Point2D(0.7, 0.4) + half, 2.3), kPi * 2.3, 1e-6);
  }
}

}  // namespace
