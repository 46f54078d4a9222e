// SPDX-License-Identifier: BSL-1.0
// This file is compiled as C++20, which reads comparisons from right to left as well.

#include <Calculations/AxisCalculator.h>
#include <Calculations/FittingResult.h>
#include <Calculations/PointLists.h>
#include <Calculations/Points.h>
#include <Calculations/ThProfileCalculator.h>

#include "testing/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using TestSupport::kPi;

TEST(ENHPoint, ArithmeticIsComponentWise) {
  const ENHPoint a(1.0, 2.0, 4.0);
  ENHPoint c = a;
  (((c += ENHPoint(8.0, 16.0, 32.0)) *= 2.0) -= a) /= 0.5;
  EXPECT_EQ(c, ENHPoint(34.0, 68.0, 136.0));
  EXPECT_EQ(-a, ENHPoint(-1.0, -2.0, -4.0));
  // Division is a true division, not a multiplication by a reciprocal.
  EXPECT_EQ((ENHPoint(5.0, 5.0, 5.0) / 49.0).east, 5.0 / 49.0);
  EXPECT_FALSE(ENHPoint(1, 2, 3) == ENHPoint(1, 2, 3 + 1e-15));
  EXPECT_TRUE(ENHPoint(1, 2, 3) != ENHPoint(1 + 1e-15, 2, 3));
  EXPECT_EQ(ENHPoint::infinity(), ENHPoint::infinity());
  EXPECT_TRUE(std::isinf(XYZPoint::infinity().length()));
  EXPECT_TRUE(std::isnan(GuidanceOffsets().normalized().forward));
  EXPECT_EQ(GuidanceOffsets(2, -3, 6).length(), 7.0);
  EXPECT_EQ(GuidanceOffsets(2, -3, 6).normalized().vertical, 6.0 / 7.0);
  EXPECT_EQ(GuidanceOffsets(2, -3, 6).normalized().horizontal, -3.0 / 7.0);
}

TEST(ENHPoint, DirectionsBelowAMillimetreAreZero) {
  EXPECT_EQ(ENHPoint(0.0009, -0.0009, 5).azimuthAngle(), 0.0);
  EXPECT_EQ(ENHPoint(0.0009, -0.001, 5).azimuthAngle(), std::atan2(0.0009, -0.001));
  EXPECT_EQ(ENHPoint(0.001, 0.0009, 5).azimuthAngle(), std::atan2(0.001, 0.0009));
  EXPECT_EQ(ENHPoint(0, -1, 0).azimuthAngle(), kPi);
  EXPECT_DOUBLE_EQ(ENHPoint(-1, 0, 0).azimuthAngle(), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(ENHPoint(0, 0, 1).elevationAngle(), kPi / 2);
  EXPECT_DOUBLE_EQ(ENHPoint(0, 0, -1).elevationAngle(), -kPi / 2);
  EXPECT_DOUBLE_EQ(ENHPoint(-3, 0, 3).elevationAngle(), kPi / 4);
  EXPECT_EQ(ENHPoint(0.0005, 0, 0.0005).elevationAngle(), 0.0);
  EXPECT_DOUBLE_EQ(ENHPoint(0.0009, 0, 0.001).elevationAngle(), std::atan2(0.001, 0.0009));
  EXPECT_DOUBLE_EQ(ENHPoint(0, 0.001, -0.0009).elevationAngle(), std::atan2(-0.0009, 0.001));
  EXPECT_DOUBLE_EQ(ENHPoint(3, 4, 9).lengthOfEastNorthProjection(), 5.0);
}

TEST(XYZPoint, ComparesExactly) {
  EXPECT_TRUE(XYZPoint(1, 2, 3) == XYZPoint(1, 2, 3));
  EXPECT_TRUE(XYZPoint(1, 2, 3) != XYZPoint(1, 2, 3 + 1e-15));
}

template <class From, class To>
constexpr bool kConverts = std::is_convertible_v<From, To>;
template <class T>
using Shared = boost::shared_ptr<const T>;

static_assert(kConverts<FittingMethod::Method, FittingResult>);
static_assert(kConverts<std::vector<Point2D>, Polyline> &&
              kConverts<std::vector<Point2D>, Polygon>);
static_assert(kConverts<Shared<AxisDefinition>, AxisCalculator>);
static_assert(kConverts<Shared<BlockAxisDefinition>, AxisCalculator>);
static_assert(kConverts<Shared<ThProfileDefinition>, ThProfileCalculator>);

}  // namespace
