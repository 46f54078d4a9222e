// SPDX-License-Identifier: BSL-1.0
#include <Calculations/Utilities.h>

#include "foundation/Opened.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Ruv {
namespace Calculations {

/// Opens the private angle tests.
struct AngleTests {
  using Test = bool (*)(double);

  struct ZeroOrMultipleOfPi {
    using Member = Test;
    friend Member memberOf(ZeroOrMultipleOfPi name);
  };
  struct PlusOrMinusPi {
    using Member = Test;
    friend Member memberOf(PlusOrMinusPi name);
  };
  struct NegativeCosine {
    using Member = Test;
    friend Member memberOf(NegativeCosine name);
  };
  struct NegativeSine {
    using Member = Test;
    friend Member memberOf(NegativeSine name);
  };

  static bool isZeroOrMultipleOfPi(double a) { return memberOf(ZeroOrMultipleOfPi())(a); }
  static bool isPlusOrMinusPi(double a) { return memberOf(PlusOrMinusPi())(a); }
  static bool hasNegativeCosine(double a) { return memberOf(NegativeCosine())(a); }
  static bool hasNegativeSine(double a) { return memberOf(NegativeSine())(a); }
};

template struct Opened<AngleTests::ZeroOrMultipleOfPi, &Utilities::angleIsZeroOrMultipleOfPi>;
template struct Opened<AngleTests::PlusOrMinusPi, &Utilities::angleIsPlusOrMinusPi>;
template struct Opened<AngleTests::NegativeCosine, &Utilities::angleInThirdOrFourthQuadrant>;
template struct Opened<AngleTests::NegativeSine, &Utilities::angleInSecondOrThirdQuadrant>;

}  // namespace Calculations
}  // namespace Ruv

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

void expectNear(const ENHPoint& actual, const ENHPoint& expected, double tolerance) {
  EXPECT_NEAR(actual.east, expected.east, tolerance);
  EXPECT_NEAR(actual.north, expected.north, tolerance);
  EXPECT_NEAR(actual.height, expected.height, tolerance);
}

void expectNear(const AxisPoint& actual, const AxisPoint& expected, double tolerance) {
  EXPECT_NEAR(actual.stationing, expected.stationing, tolerance);
  EXPECT_NEAR(actual.offset, expected.offset, tolerance);
  EXPECT_NEAR(actual.height, expected.height, tolerance);
}

TEST(AngleNormalisation, CountsTurnsOffOneByOne) {
  EXPECT_TRUE(std::signbit(Utilities::getAngleAsZeroToTwoPi(-0.0)));
  EXPECT_EQ(Utilities::getAngleAsZeroToTwoPi(2 * kPi), 0.0);
  // Rounds up to a full turn on the way, which is never returned.
  EXPECT_EQ(Utilities::getAngleAsZeroToTwoPi(-1e-17), 0.0);
  EXPECT_EQ(Utilities::getangleAsMinusPiToPi(kPi), -kPi);
  EXPECT_EQ(Utilities::getangleAsMinusPiToPi(-kPi), -kPi);
  double counted = 999999.0;  // a remainder has other digits
  while (counted >= 2 * kPi) {
    counted -= 2 * kPi;
  }
  EXPECT_EQ(Utilities::getAngleAsZeroToTwoPi(999999.0), counted);
  EXPECT_NE(std::fmod(999999.0, 2 * kPi), counted);
}

TEST(AngleNormalisation, EndsForEveryNumber) {
  for (const double angle : {1e6, -1e6, 1e16, -1e300, 1e300}) {
    const double turn = Utilities::getAngleAsZeroToTwoPi(angle);
    EXPECT_TRUE(turn >= 0.0 && turn < 2 * kPi) << angle;
    EXPECT_NEAR(std::sin(turn), std::sin(std::fmod(angle, 2 * kPi)), 1e-12) << angle;
    const double half = Utilities::getangleAsMinusPiToPi(angle);
    EXPECT_TRUE(half >= -kPi && half < kPi) << angle;
  }
  EXPECT_TRUE(std::isnan(Utilities::getAngleAsZeroToTwoPi(kInfinity)));
  EXPECT_TRUE(std::isnan(Utilities::getangleAsMinusPiToPi(-kInfinity)));
  EXPECT_TRUE(std::isnan(Utilities::getangleAsMinusPiToPi(std::nan(""))));
}

TEST(AngleTests, FollowTheirFormulas) {
  using Access = AngleTests;
  for (const double a : {0.9e-10, -0.9e-10, kPi - 0.9e-10, -kPi + 0.9e-10}) {
    EXPECT_TRUE(Access::isZeroOrMultipleOfPi(a)) << a;
  }
  EXPECT_FALSE(Access::isZeroOrMultipleOfPi(1.1e-10));
  EXPECT_FALSE(Access::isZeroOrMultipleOfPi(-1.1e-10));
  EXPECT_FALSE(Access::isZeroOrMultipleOfPi(2 * kPi));
  EXPECT_TRUE(Access::isPlusOrMinusPi(3 * kPi));
  EXPECT_FALSE(Access::isPlusOrMinusPi(2 * kPi));
  EXPECT_FALSE(Access::hasNegativeCosine(kPi / 2) || Access::hasNegativeCosine(-kPi / 2));
  EXPECT_FALSE(Access::hasNegativeSine(kPi) || Access::hasNegativeSine(0.0));
  for (double a = -9.95; a < 10.0; a += 0.1) {
    EXPECT_EQ(Access::hasNegativeCosine(a), std::cos(a) < 0.0) << a;
    EXPECT_EQ(Access::hasNegativeSine(a), std::sin(a) < 0.0) << a;
  }
}

TEST(Units, ConvertBothWays) {
  EXPECT_DOUBLE_EQ(Utilities::gon2rad(100.0), kPi / 2);
  EXPECT_DOUBLE_EQ(Utilities::rad2gon(kPi), 200.0);
  EXPECT_DOUBLE_EQ(Utilities::deg2rad(180.0), kPi);
  EXPECT_DOUBLE_EQ(Utilities::rad2deg(kPi / 4), 45.0);
  EXPECT_DOUBLE_EQ(Utilities::anglePercentToRad(100.0), kPi / 4);
  EXPECT_DOUBLE_EQ(Utilities::longSlopeRadToPercent(Utilities::longSlopePercentToRad(-7.0)), -7.0);
  EXPECT_DOUBLE_EQ(Utilities::transSlopePercentClockwiseToRadAntiClockwise(100.0), -kPi / 4);
  EXPECT_DOUBLE_EQ(Utilities::transSlopeRadAntiClockwiseToPercentClockwise(-kPi / 4), 100.0);
}

TEST(ForceInRange, AppliesTheUpperLimitLast) {
  double d = 5.0;
  Utilities::forceInRange(d, 10.0, 0.0);
  EXPECT_EQ(d, 0.0);
  for (const int value : {-5, -3, 4, 9, 12}) {
    const int expected = value == -5 ? -3 : value == 12 ? 9 : value;
    int i = value;
    Utilities::forceInRange(i, -3, 9);
    EXPECT_EQ(i, expected);
    d = value;
    Utilities::forceInRange(d, -3.0, 9.0);
    EXPECT_EQ(d, expected);
  }
  double nothing = std::nan("");
  Utilities::forceInRange(nothing, 0.0, 1.0);
  EXPECT_TRUE(std::isnan(nothing));
}

TEST(Angles, BetweenPoints) {
  const ENHPoint v(10, 20, 30);
  EXPECT_DOUBLE_EQ(Utilities::angle3dBetween(v, v + ENHPoint(2, 0, 0), v + ENHPoint(0, 0, 3)),
                   kPi / 2);
  EXPECT_DOUBLE_EQ(Utilities::angle3dBetween(ENHPoint(1, 1, 0), ENHPoint(0, 5, 0)), kPi / 4);
  EXPECT_DOUBLE_EQ(Utilities::angle3dBetween(ENHPoint(-1, 1, 0), ENHPoint(3, 0, 0)), 0.75 * kPi);
  EXPECT_DOUBLE_EQ(Utilities::angle3dBetween(ENHPoint(1, 2, 2), ENHPoint(2, -2, 1)), kPi / 2);
  EXPECT_DOUBLE_EQ(Utilities::angle3dBetween(v, v + ENHPoint(1, 2, 2), v + ENHPoint(3, 6, -6)),
                   std::acos(1 / 9.0));
  // The cosine of these parallel vectors exceeds 1 by rounding.
  EXPECT_EQ(Utilities::angle3dBetween(ENHPoint(3, 3, 3), ENHPoint(0.1, 0.1, 0.1)), 0.0);
  EXPECT_TRUE(std::isnan(Utilities::angle3dBetween(v, v, v + ENHPoint(1, 0, 0))));
  EXPECT_EQ(Utilities::horAngleBetween(v, v), 0.0);
  EXPECT_DOUBLE_EQ(Utilities::horAngleBetween(ENHPoint(), ENHPoint(0.0005, 0.0005, 9)), kPi / 4);
  EXPECT_DOUBLE_EQ(Utilities::horAngleBetween(v, v + ENHPoint(-1, 0, 0)), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(Utilities::distance3dBetween(v, v + ENHPoint(2, 3, 6)), 7.0);
  EXPECT_EQ(Utilities::heightDiffBetween(v, v + ENHPoint(1, 1, -2)), -2.0);
  expectNear(Utilities::averageCordinates({v, ENHPoint(0, 0, 0)}), ENHPoint(5, 10, 15), 0.0);
  EXPECT_TRUE(std::isnan(Utilities::averageCordinates({}).north));
}

TEST(Rotations, TurnAnticlockwiseSeenFromTheTip) {
  const double right = kPi / 2;
  expectNear(Utilities::rotateAroundEastXaxis({5, 1, 0}, right), ENHPoint(5, 0, 1), 1e-15);
  expectNear(Utilities::rotateAroundNorthYaxis({0, 5, 1}, right), ENHPoint(1, 5, 0), 1e-15);
  expectNear(Utilities::rotateAroundHeightZaxis({1, 0, 5}, right), ENHPoint(0, 1, 5), 1e-15);
}

TEST(Polar, LocalAndGlobalCoordinatesAreInverse) {
  const PolarPoint east(kPi / 2, kPi / 2, 10);
  expectNear(Utilities::convertToLocalCoordinates(east), ENHPoint(10, 0, 0), 1e-14);
  Random random(11);
  for (int i = 0; i < 200; ++i) {
    const auto draw = [&] { return random.uniform(-100.0, 100.0); };
    const ENHPoint local(draw(), draw(), draw());
    const ENHPoint origin(6e5 + draw(), 2e5 + draw(), draw());
    const double orientation = random.uniform(-9.0, 9.0);
    const double scale = random.uniform(0.5, 2.0);
    const PolarPoint polar = Utilities::convertToPolarMeasurement(local);
    expectNear(Utilities::convertToLocalCoordinates(polar), local, 1e-12);
    const ENHPoint global = Utilities::transformLocalToGlobal(local, origin, orientation, scale);
    expectNear(Utilities::transformLocalToGlobal(polar, origin, orientation, scale), global, 1e-9);
    expectNear(Utilities::transformGlobalToLocal(global, origin, orientation, scale), local, 1e-9);
    // The orientation is what has to be added to a direction to get an azimuth.
    EXPECT_NEAR(Utilities::getangleAsMinusPiToPi(Utilities::horAngleBetween(origin, global) -
                                                 polar.horizontalAngle - orientation),
                0.0, 1e-9);
    const PolarPoint seen = Utilities::convertToPolarMeasurement(origin, global);
    EXPECT_NEAR(Utilities::calculateOrientationFromBacksight(
                    polar, 0.0, Utilities::horAngleBetween(origin, global), false),
                Utilities::getAngleAsZeroToTwoPi(seen.horizontalAngle - polar.horizontalAngle),
                1e-9);
  }
}

TEST(Polar, AnglesOfMeasurementsAreInOneTurn) {
  const PolarPoint west = Utilities::convertToPolarMeasurement(ENHPoint(-3, 0, -4));
  EXPECT_DOUBLE_EQ(west.horizontalAngle, 1.5 * kPi);
  EXPECT_DOUBLE_EQ(west.verticalAngle, kPi - std::atan(0.75));
  EXPECT_DOUBLE_EQ(west.slopeDistance, 5.0);
  EXPECT_EQ(Utilities::convertToPolarMeasurement(ENHPoint()).horizontalAngle, 0.0);
}

TEST(Polar, BacksightInTheSecondFaceTurnsHalf) {
  const auto orientationFrom = [](const PolarPoint& sight, bool flag) {
    return Utilities::calculateOrientationFromBacksight(sight, 0.25, 2.0, flag);
  };
  EXPECT_NEAR(orientationFrom(PolarPoint(1.0, 1.5, 9), false), 1.25, 1e-14);
  const PolarPoint secondFace(1.0 + kPi, 2 * kPi - 1.5, 9);
  EXPECT_NEAR(orientationFrom(secondFace, false), 1.25, 1e-14);
  EXPECT_NEAR(orientationFrom(secondFace, true), 1.25, 1e-14);
  // Straight down is no reading in the second face yet.
  EXPECT_NEAR(orientationFrom(PolarPoint(1.0, kPi, 9), false), 1.25, 1e-14);
}

TEST(AxisDirections, HaveTheirComponentsWhereTheyBelong) {
  // Heading east, rising 45 degrees: forward is east and up, right is south.
  const double slope = kPi / 4;
  const double r = std::sqrt(0.5);
  expectNear(Utilities::rotateAxisDirectionComponentsToENHdiffWithoutTransSlope(AxisPoint(1, 0, 0),
                                                                                kPi / 2, slope),
             ENHPoint(r, 0, r), 1e-15);
  expectNear(
      Utilities::rotateAxisDirectionComponentsToENHdiff(AxisPoint(0, 1, 0), kPi / 2, slope, 0.0),
      ENHPoint(0, -1, 0), 1e-15);
  // A positive transverse slope lowers the right side.
  expectNear(Utilities::rotateAxisDirectionComponentsToENHdiff(AxisPoint(0, 1, 0), 0.0, 0.0, 100.0),
             ENHPoint(r, 0, -r), 1e-15);
  Random random(12);
  for (int i = 0; i < 100; ++i) {
    const AxisPoint in(random.uniform(-9, 9), random.uniform(-9, 9), random.uniform(-9, 9));
    const double azimuth = random.uniform(-9, 9);
    const double rise = random.uniform(-1.5, 1.5);
    const double percent = random.uniform(-90, 90);
    const AxisPoint back = Utilities::rotateENHdiffToAxisDirectionComponents(
        Utilities::rotateAxisDirectionComponentsToENHdiff(in, azimuth, rise, percent), azimuth,
        rise, percent);
    const AxisPoint level = Utilities::rotateENHdiffToAxisDirectionComponentsWithoutTransSlope(
        Utilities::rotateAxisDirectionComponentsToENHdiffWithoutTransSlope(in, azimuth, rise),
        azimuth, rise);
    for (const AxisPoint& out : {back, level}) {
      expectNear(out, in, 1e-13);
    }
  }
}

TEST(GuidanceAngles, RebuildTheDirectionFromAnyTwoViews) {
  Random random(13);
  for (int i = 0; i < 500; ++i) {
    const auto draw = [&] { return random.uniform(0.1, 1.0) * random.sign(); };
    const AxisPoint v(draw(), draw(), draw());
    const double length = ENHPoint(v.stationing, v.offset, v.height).length();
    const double front = Utilities::getGuidanceAngleInFrontView(v);
    const double top = Utilities::getGuidanceAngleInTopView(v);
    const double side = Utilities::getGuidanceAngleInSideView(v);
    for (const AxisPoint& w :
         {Utilities::getGuidanceVectorFromFrontAndTopViewAngles(front, top, length),
          Utilities::getGuidanceVectorFromTopAndSideViewAngles(top, side, length),
          Utilities::getGuidanceVectorFromFrontAndSideViewAngles(front, side, length)}) {
      expectNear(w, v, 1e-12);
    }
  }
}

TEST(GuidanceAngles, TakeRoundingBelowZeroForZero) {
  // Level directions: the square of the upward component is noise of either sign.
  for (double top = 0.05; top < 6.28; top += 0.1) {
    const AxisPoint level(3.0 * std::cos(top), 3.0 * std::sin(top), 0.0);
    const AxisPoint v = Utilities::getGuidanceVectorFromFrontAndTopViewAngles(
        Utilities::getGuidanceAngleInFrontView(level), top, 3.0);
    EXPECT_NEAR(v.height, 0.0, 1e-7) << top;
    expectNear(AxisPoint(v.stationing, v.offset, 0.0), level, 1e-12);
  }
}

TEST(GuidanceAngles, KnowTheSpecialDirections) {
  const auto frontAndTop = &Utilities::getGuidanceVectorFromFrontAndTopViewAngles;
  const auto frontAndSide = &Utilities::getGuidanceVectorFromFrontAndSideViewAngles;
  expectNear(frontAndTop(0, 0, 2), AxisPoint(2, 0, 0), 0);
  expectNear(frontAndTop(0, kPi, 2), AxisPoint(-2, 0, 0), 0);
  expectNear(frontAndTop(0, -kPi, 2), AxisPoint(-2, 0, 0), 0);
  expectNear(frontAndSide(0, 0, 2), AxisPoint(2, 0, 0), 0);
  expectNear(frontAndSide(1.5 * kPi, 0, 2), AxisPoint(0, -2, 0), 0);
  expectNear(frontAndSide(kPi / 2, 0, 2), AxisPoint(0, 2, 0), 0);
  EXPECT_DOUBLE_EQ(Utilities::getGuidanceAngleInFrontView(AxisPoint(0, -1, 0)), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(Utilities::getGuidanceAngleInTopView(AxisPoint(0, 1, 0)), kPi / 2);
  EXPECT_DOUBLE_EQ(Utilities::getGuidanceAngleInSideView(AxisPoint(1, 0, -1)), -kPi / 4);
}

}  // namespace
