// SPDX-License-Identifier: BSL-1.0
#include "shapes/ChainSegment.h"

#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv;
using TestSupport::kPi;
using TestSupport::Random;

TEST(ChainSegment, LeadsFromStartToEndOnTheSideOfItsRadius) {
  Random random(36);
  for (int i = 0; i < 300; ++i) {
    const Point2D start(random.uniform(-9, 9), random.uniform(-9, 9));
    const Point2D end(random.uniform(-9, 9), random.uniform(-9, 9));
    const double chord = (end - start).length();
    const double radius = i % 3 == 0 ? 0.0 : random.sign() * chord * random.uniform(0.5, 3.0);
    const CChainSegment segment = CChainSegment::between(start, end, radius);
    EXPECT_LT((segment.at(0.0).position - start).length(), 1e-13);
    EXPECT_LT((segment.at(segment.length).position - end).length(), 1e-12);
    const Point2D middle = segment.at(segment.length / 2).position;
    const Point2D half = (end - start) / 2.0;
    const Point2D ray = middle - start;
    const double toTheLeft = (half.x * ray.y - half.y * ray.x) / half.length();
    const double rise = std::abs(radius) - std::sqrt(radius * radius - chord * chord / 4);
    EXPECT_NEAR(toTheLeft, radius == 0.0 ? 0.0 : std::copysign(rise, radius), 1e-6);
    const CCurveFoot foot = segment.footOf(middle);
    EXPECT_NEAR(foot.length, segment.length / 2, 1e-7);
    // What the chord cuts off a circle.
    const double turning = radius == 0.0 ? 0.0 : segment.length / radius;
    const double doubledArea = radius * radius * (turning - std::sin(turning));
    EXPECT_NEAR(segment.doubledAreaFrom(start), -doubledArea, 1e-9);
  }
}

TEST(ChainSegment, HasNoLengthWithoutAChordAndNoNumberBeyondItsDiameter) {
  EXPECT_EQ(CChainSegment::between({5, 5}, {5, 5 + 1e-7}, 3).length, 0.0);
  EXPECT_TRUE(std::isnan(CChainSegment::between({-1, 0}, {1, 0}, 0.99).length));
  EXPECT_FALSE(CChainSegment::between({-1, 0}, {1, 0}, 0.99).hasExtent());
  EXPECT_NEAR(CChainSegment::between({-1, 0}, {1, 0}, 1 - 1e-13).length, kPi, 1e-12);
}

}  // namespace
