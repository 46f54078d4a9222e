// SPDX-License-Identifier: BSL-1.0
#include "testing/Axes.h"
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Promises.h"
#include "testing/Random.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/Utilities.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

double difference(const AxisPoint& a, const AxisPoint& b) {
  return std::max({std::abs(a.stationing - b.stationing), std::abs(a.offset - b.offset),
                   std::abs(a.height - b.height)});
}

void expectReturn(const AxisCalculator& calculator, const AxisPoint& in, bool inSpace,
                  bool withTransSlope) {
  SCOPED_TRACE(testing::Message() << in.stationing << " " << in.offset << " " << in.height);
  const ENHPoint point = gridPoint(calculator, in, inSpace, withTransSlope);
  EXPECT_LT(difference(in, axisPoint(calculator, point, inSpace, withTransSlope)),
            Promise::kGridPoint);
}

TEST(AxisCalculator, ReturnsEveryPoint) {
  Random random(61);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    const AxisPtr axis = randomSmoothAxis(random, round % 3 == 0 ? 0.003 : 0.0);
    const AxisCalculator calculator(axis);
    std::vector<double> stationings = {axis->minimumStng2d(), axis->maximumStng2d()};
    for (unsigned i = 0; i + 1 < axis->getNumHoralSegments(); ++i) {
      stationings.push_back(axis->getHoralSegmentAt(i)->getStationing());
    }
    for (int i = 0; i < 60; ++i) {
      stationings.push_back(random.uniform(axis->minimumStng2d(), axis->maximumStng2d()));
    }
    for (const double stationing : stationings) {
      const AxisPoint in(stationing, random.uniform(-20, 20), random.uniform(-10, 10));
      expectReturn(calculator, in, round % 2 == 0, round % 4 < 2);
    }
  }
}

/// A level axis north with one kink in the grade: level, then the given grade from 50 on.
AxisPtr kinkedAxis(double grade) {
  AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 600000, 200000, 0).straight(100);
  axis->addVeralPointKink(0, 500);
  axis->addVeralPointKink(50, 500);
  axis->addVeralPointKink(100, 500 + 50 * grade);
  return axis;
}

TEST(AxisCalculator, LaysOutTheSectionInThePlaneAskedFor) {
  Random random(62);
  const AxisPtr axis = randomSmoothAxis(random);
  const AxisCalculator calculator(axis);
  for (int i = 0; i < 200; ++i) {
    const double s = random.uniform(axis->minimumStng2d(), axis->maximumStng2d());
    const AxisPoint in(s, random.uniform(-9, 9), random.uniform(-9, 9));
    const AxisProperties axisAt(calculator, s);
    ASSERT_TRUE(axisAt.ok);
    const ENHPoint origin = gridPoint(calculator, AxisPoint(s, 0, 0));
    ENHPoint point;
    ASSERT_TRUE(calculator.axisPointToEnhPointVertical(in, point));
    EXPECT_EQ(point, gridPoint(calculator, in, false));
    ASSERT_TRUE(calculator.axisPointToEnhPointPerpendicular(in, point));
    EXPECT_EQ(point, gridPoint(calculator, in, true));
    // Guidance works with the rotations of Utilities, so both must agree.
    for (const bool inSpace : {false, true}) {
      const double slope = inSpace ? axisAt.slopeRad : 0.0;
      const ENHPoint aside = Utilities::rotateAxisDirectionComponentsToENHdiff(
          AxisPoint(0, in.offset, in.height), axisAt.azimuth, slope, axisAt.transPercent);
      EXPECT_LT((origin + aside - gridPoint(calculator, in, inSpace)).length(), 1e-9);
    }
    ENHPoint tangent;
    ASSERT_TRUE(calculator.tangentAtStationingPerpendicular(s, tangent));
    EXPECT_NEAR(tangent.length(), 1.0, 1e-14);
    EXPECT_NEAR(tangent.elevationAngle(), axisAt.slopeRad, 1e-13);
    ASSERT_TRUE(calculator.tangentAtStationingVertical(s, tangent));
    EXPECT_EQ(tangent.height, 0.0);
    EXPECT_NEAR(std::remainder(tangent.azimuthAngle() - axisAt.azimuth, 2 * kPi), 0.0, 1e-13);
  }
}

TEST(AxisCalculator, TellsThePropertiesOfAStraightAxis) {
  const AxisPtr axis = straightAxis(kPi / 2, 1000, 200, 50, 60);
  axis->addTransSlopeSegmentConstant(1000, 1200, 100.0);  // right side down 45 degrees
  const AxisCalculator calculator(axis);
  const AxisProperties properties(calculator, 1100);
  EXPECT_DOUBLE_EQ(properties.azimuth, kPi / 2);
  EXPECT_EQ(properties.radius, 0.0);
  EXPECT_DOUBLE_EQ(properties.slopePercent, 5.0);
  EXPECT_DOUBLE_EQ(properties.slopeRad, std::atan(0.05));
  EXPECT_DOUBLE_EQ(properties.transPercent, 100.0);
  EXPECT_DOUBLE_EQ(properties.transRad, -kPi / 4);
  axis->resetTransSlope();
  EXPECT_EQ(AxisProperties(calculator, 1100).transPercent, 0.0);
}

TEST(AxisCalculator, GoesRoundFullCirclesAtAnyStationing) {
  // The end stationing is a rounded sum: taken back, it gives more than a full circle or less.
  for (const double start : {0.0, 987.1, 12345.678, 1e7 / 3}) {
    for (double radius = 5.0; radius < 60.0; radius += 0.7) {
      SCOPED_TRACE(testing::Message() << radius << " m from " << start);
      const double length = 2 * kPi * radius;
      const AxisPtr axis = newAxis();
      axis->addHoralSegmentArc(start, 600000, 200000, 0.3, -radius, length);
      axis->addVeralPointKink(start, 10);
      axis->addVeralPointKink(start + length, 11);
      const AxisCalculator calculator(axis);
      expectReturn(calculator, AxisPoint(start + length / 3, 2, 1), false, true);
      EXPECT_EQ(AxisProperties(calculator, start + length / 3).radius, -radius);
    }
  }
}

TEST(AxisCalculator, GoesRoundMoreThanOnceOnClothoidsOfEqualRadii) {
  for (const double radiusEnd : {-10.0, -10.0000001}) {
    const AxisPtr axis = newAxis();
    ChainBuilder(axis, 0, 600000, 200000, 0.3).clothoid(-10.0, radiusEnd, 80).straight(50);
    axis->addVeralPointKink(0, 10);
    axis->addVeralPointKink(130, 11);
    const AxisCalculator calculator(axis);
    expectReturn(calculator, AxisPoint(30, 2, 1), false, true);
    const ENHPoint second = gridPoint(calculator, AxisPoint(75, 0, 0));
    const ENHPoint first = gridPoint(calculator, AxisPoint(75 - 20 * kPi, 0, 0));
    EXPECT_LT((second - first).lengthOfEastNorthProjection(), 1e-6);
  }
}

TEST(AxisCalculator, TurnsNoOffsetForANegligibleTransverseSlope) {
  // From 2^-23 percent on; on the way back only above it.
  const double limit = 1.1920928955078125e-7;
  for (const double slope : {limit, std::nextafter(limit, 0.0)}) {
    const AxisPtr axis = straightAxis(0, 0, 10, 0, 0);
    axis->addTransSlopeSegmentConstant(0, 10, slope);
    const AxisCalculator calculator(axis);
    EXPECT_EQ(gridPoint(calculator, AxisPoint(5, 1000, 0)).height != 0.0, slope == limit);
    EXPECT_EQ(axisPoint(calculator, ENHPoint(1000, 5, 0)).height, 0.0);
  }
}

TEST(AxisCalculator, EndsAtItsLimits) {
  const AxisPtr axis = kinkedAxis(0.1);
  const AxisCalculator calculator(axis);
  ENHPoint point(1, 2, 3);
  AxisPoint place(4, 5, 6);
  for (const bool inSpace : {false, true}) {
    for (const double outside : {-1e-9, 100.0 + Promise::kLimitRoom}) {
      EXPECT_FALSE(calculator.axisPointToEnhPoint(AxisPoint(outside, 0, 0), point, inSpace, true));
    }
    EXPECT_EQ(point, ENHPoint(1, 2, 3));
    const ENHPoint before(600000, 200000 - 1.2 * Promise::kLimitRoom, 500);
    EXPECT_FALSE(calculator.enhPointToAxisPoint(before, place, inSpace, true));
    EXPECT_EQ(place.offset, 5.0);
    // What rounding puts outside lies at the limit.
    const ENHPoint rounded(600001, 200000 - 0.9 * Promise::kLimitRoom, 500);
    EXPECT_EQ(axisPoint(calculator, rounded, inSpace).stationing, 0.0);
  }
  // The foot in space of a point beyond the end of a rising axis, and the other way round.
  const AxisPoint end = axisPoint(calculator, ENHPoint(600000, 200100.3, 500), true);
  EXPECT_NEAR(end.stationing, 100 + (0.3 - 0.5) / 1.01, 1e-9);
  EXPECT_FALSE(calculator.enhPointToAxisPointPerpendicular(ENHPoint(600000, 200099.7, 510), place));
}

TEST(AxisCalculator, TakesTheBreakAboveACrestAndTheCornerOfAKinkInPlan) {
  const AxisPoint crest =
      axisPoint(AxisCalculator(kinkedAxis(-0.2)), ENHPoint(600003, 200050.3, 504), true);
  // The distance is kept.
  EXPECT_LT(difference(crest, AxisPoint(50, 3, std::sqrt(16 + 0.09))), 1e-9);
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0).straight(50).turn(kPi / 2).straight(50);
  axis->addVeralPointKink(0, 10);
  axis->addVeralPointKink(100, 10);
  const AxisCalculator calculator(axis);
  for (const bool inSpace : {false, true}) {
    for (const double scale : {1.0, 0.01}) {
      const ENHPoint outside(-3 * scale, 50 + 4 * scale, 12);
      const AxisPoint corner = axisPoint(calculator, outside, inSpace);
      EXPECT_LT(difference(corner, AxisPoint(50, -5 * scale, 2)), 1e-12);
    }
    // On the inner side both straights are equally near.
    const AxisPoint first = axisPoint(calculator, ENHPoint(20, 30, 12), inSpace);
    EXPECT_LT(difference(first, AxisPoint(30, 20, 2)), 1e-12);
  }
}

TEST(AxisCalculator, PrintedAxesHaveAFootAtEveryJoint) {
  // Printed azimuths leave slits between the normals of a joint, in which no element has a foot
  // although the axis passes by; on a winding axis another part of it has one, far away.
  Random random(65);
  for (int round = 0; round < 30; ++round) {
    const AxisPtr axis = newAxis();
    ChainBuilder chain(axis, 0, 600000, 200000, random.uniform(0.0, 6.0));
    chain.printedTo(0.0005, random);
    for (int i = 0; i < 5; ++i) {
      const double radius = random.uniform(200.0, 400.0);
      chain.straight(random.uniform(30.0, 150.0)).turn(random.uniform(-1e-5, 1e-5));
      if (i % 2 == 0) chain.arc(radius, 0.0);
      chain.arc(radius, radius * random.uniform(0.5, 2.5)).turn(random.uniform(-5e-4, 5e-4));
    }
    axis->addVeralPointKink(0, 10);
    axis->addVeralPointKink(chain.stationing(), 10);
    const AxisCalculator calculator(axis);
    int numAtJoint = 0;
    for (unsigned i = 0; i + 1 < axis->getNumHoralSegments(); ++i) {
      const double stationing = axis->getHoralSegmentAt(i)->getStationing();
      for (int k = 0; k < 20; ++k) {
        const AxisPoint aside(stationing, random.uniform(-20, 20), 0);
        const double azimuth = AxisProperties(calculator, stationing).azimuth;
        const double ahead = std::abs(aside.offset) * random.uniform(-1e-3, 1e-3);
        const ENHPoint p = gridPoint(calculator, aside) +
                           ENHPoint(std::sin(azimuth), std::cos(azimuth), 0) * ahead;
        for (const bool inSpace : {false, true}) {
          const AxisPoint found = axisPoint(calculator, p, inSpace);
          EXPECT_LT(std::abs(found.offset), std::abs(aside.offset) + 0.001);
          if (difference(found, aside) < 0.03) ++numAtJoint;
        }
      }
    }
    EXPECT_GT(numAtJoint, 300);  // but where the axis passes by once more
  }
}

TEST(AxisCalculator, AnElementOfLengthZeroHidesNoCorner) {
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0).straight(50).arc(20, 0).turn(kPi / 2).straight(50);
  axis->addVeralPointKink(0, 10);
  axis->addVeralPointKink(100, 10);
  for (const bool inSpace : {false, true}) {
    const AxisPoint corner = axisPoint(AxisCalculator(axis), ENHPoint(-3, 54, 12), inSpace);
    EXPECT_LT(difference(corner, AxisPoint(50, -5, 2)), 1e-12);
  }
}

TEST(AxisCalculator, RoundingDoesNotChooseThePlaceAbeamOfACornerInSpace) {
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0).straight(50).turn(-kPi / 4).straight(50);
  axis->addVeralPointKink(0, 0);
  axis->addVeralPointKink(100, 10);
  const AxisCalculator calculator(axis);
  const double diagonal = std::sqrt(0.5);
  for (const double ahead : {-1e-13, 0.0, 1e-13}) {
    for (const double height : {0.0, -1.0}) {
      // Outside of the corner, abeam of the start of the second straight.
      const ENHPoint outer(diagonal * (3 - ahead), 50 + diagonal * (3 + ahead), 5 + height);
      EXPECT_LT(difference(axisPoint(calculator, outer, true), AxisPoint(50, 3, height)), 1e-12);
    }
    // Inside of it, and behind the start of the first one.
    const ENHPoint inner(diagonal * (-80 - ahead), 50 + diagonal * (-80 + ahead), 5);
    EXPECT_LT(difference(axisPoint(calculator, inner, true), AxisPoint(50, -80, 0)), 1e-12);
  }
}

TEST(AxisCalculator, FindsTheNearestFootInSpace) {
  // Against dense sampling, on an axis with kinks in plan and grade.
  Random random(63);
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0.2).straight(30).turn(0.1).arc(-60, 50).clothoid(-60, 40, 40);
  axis->addVeralPointKink(0, 0);
  axis->addVeralPointArc(30, 4, 100);
  axis->addVeralPointKink(70, -3);
  axis->addVeralPointKink(120, 2);
  const AxisCalculator calculator(axis);
  std::vector<ENHPoint> samples;
  for (int i = 0; i <= 120000; ++i) {
    samples.push_back(gridPoint(calculator, AxisPoint(i / 1000.0, 0, 0)));
  }
  int numFound = 0;
  for (int i = 0; i < 150; ++i) {
    const ENHPoint p =
        samples[random.index(samples.size())] +
        ENHPoint(random.uniform(-15, 15), random.uniform(-15, 15), random.uniform(-15, 15));
    const auto nearest = std::min_element(
        samples.begin(), samples.end(),
        [&](const ENHPoint& a, const ENHPoint& b) { return (a - p).length() < (b - p).length(); });
    if (nearest == samples.begin() || nearest + 1 == samples.end()) continue;
    ++numFound;
    const AxisPoint place = axisPoint(calculator, p, true);
    EXPECT_NEAR(place.stationing, static_cast<double>(nearest - samples.begin()) / 1000, 0.002);
    EXPECT_NEAR(std::hypot(place.offset, place.height), (*nearest - p).length(), 1e-6);
  }
  EXPECT_GT(numFound, 100);
}

TEST(AxisCalculator, FindsTheNearestFootInSpaceBesideSharpRoundings) {
  // About the centre of curvature of a vertex there are three feet, and tight arcs in plan have
  // their own. Feet that are equally near to 0.1 mm count as one.
  Random random(88);
  int numFound = 0;
  for (int round = 0; round < 600; ++round) {
    const double radius = std::pow(10.0, random.uniform(0.7, 2.0));
    const double gradeIn = random.uniform(-1.5, 1.5);
    const double gradeOut = random.uniform(-1.5, 1.5);
    const double half = radius * std::abs(gradeOut - gradeIn) / 2 + 2;
    const double planRadius = round % 3 == 0 ? 1e5 : std::max(random.uniform(8, 60), half / 3);
    const AxisPtr axis = newAxis();
    ChainBuilder(axis, 0, 0, 0, 0.2).arc(planRadius, 2 * half);
    axis->addVeralPointKink(0, -half * gradeIn);
    if (round % 4 == 0) axis->addVeralPointArc(half, 0, radius);
    if (round % 4 != 0) axis->addVeralPointParabola(half, 0, radius);
    axis->addVeralPointKink(2 * half, half * gradeOut);
    const AxisCalculator calculator(axis);
    std::vector<ENHPoint> samples;
    for (int i = 0; i <= 1000; ++i) {
      samples.push_back(gridPoint(calculator, AxisPoint(2 * half * (i / 1000.0), 0, 0)));
    }
    for (int i = 0; i < 60; ++i) {
      const double offset =
          round % 3 == 0 ? random.uniform(-1, 1) : random.uniform(-1.5, 1.5) * planRadius;
      AxisPoint in(random.uniform(0, 2 * half), offset, random.uniform(-2, 2) * radius);
      if (i % 4 == 0 && gradeIn * gradeOut < 0) {  // about the centre of curvature of the vertex
        const double vertex =
            half - radius * (gradeIn + gradeOut) / 2 * (gradeOut > gradeIn ? 1 : -1);
        const double above = random.uniform(0.97, 1.2) * (gradeOut > gradeIn ? radius : -radius);
        in = AxisPoint(vertex + random.uniform(-0.01, 0.01) * radius, 0.01 * offset, above);
      }
      const ENHPoint p = gridPoint(calculator, in, true);
      double nearest = 1e300;
      std::size_t place = 0;
      for (std::size_t k = 0; k < samples.size(); ++k) {
        const double distance = (samples[k] - p).length();
        if (distance < nearest) place = k;
        nearest = std::min(nearest, distance);
      }
      if (place == 0 || place + 1 == samples.size()) continue;
      ++numFound;
      const AxisPoint foot = axisPoint(calculator, p, true);
      EXPECT_LE(std::hypot(foot.offset, foot.height), nearest + 1e-4) << round << " " << i;
    }
  }
  EXPECT_GT(numFound, 25000);
}

TEST(AxisCalculator, FindsNoFootInSpaceWhereTheHeightIsUndefined) {
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0).straight(100);
  axis->addVeralPointKink(0, 0);
  axis->addVeralPointKink(20, 0);
  axis->addVeralPointArc(60, 1, 50);  // a rounding that cannot be computed
  axis->addVeralPointKink(60, 5);
  axis->addVeralPointKink(100, 5);
  const AxisCalculator calculator(axis);
  AxisPoint place;
  EXPECT_FALSE(calculator.enhPointToAxisPointPerpendicular(ENHPoint(1, 70, 2), place));
  EXPECT_TRUE(calculator.enhPointToAxisPointPerpendicular(ENHPoint(1, 10, 2), place));
}

TEST(AxisCalculator, EndsWithTheProfile) {
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0).straight(100);
  axis->addVeralPointKink(20, 5);
  axis->addVeralPointKink(80, 5);
  const AxisCalculator calculator(axis);
  AxisPoint place;
  for (const bool inSpace : {false, true}) {
    for (const double outside : {19.0, 19.9999, 80.0001, 81.0}) {
      EXPECT_FALSE(calculator.enhPointToAxisPoint(ENHPoint(1, outside, 5), place, inSpace, true));
    }
    EXPECT_EQ(
        axisPoint(calculator, ENHPoint(1, 80 + 0.9 * Promise::kLimitRoom, 5), inSpace).stationing,
        80.0);
  }
}

TEST(AxisCalculator, ConvertsTunnelMetersUpToWhereTheHeightCannotBeComputed) {
  for (const double height : {5.0, std::nan("")}) {
    const AxisPtr axis = newAxis();
    ChainBuilder(axis, 0, 0, 0, 0).straight(100);
    axis->addVeralPointKink(0, 0);
    axis->addVeralPointParabola(20, 1, 200);
    axis->addVeralPointKink(40, 4);
    if (height == 5.0) axis->addVeralPointArc(60, 4, 50);  // stands where the next point does
    axis->addVeralPointKink(60, height);
    for (double stationing = 70.0; stationing <= 100.0; stationing += 2.0) {
      axis->addVeralPointKink(stationing, 5);
    }
    const AxisCalculator calculator(axis);
    double tunnelmeter = 0;
    double back = 0;
    int numConverted = 0;
    for (double stationing = 0.0; stationing <= 100.0; stationing += 0.25) {
      if (!calculator.stationingToTunnelmeter(stationing, tunnelmeter)) continue;
      ++numConverted;
      ASSERT_TRUE(calculator.tunnelmeterToStationing(tunnelmeter, back)) << stationing;
      EXPECT_NEAR(back, stationing, 1e-11);
    }
    EXPECT_EQ(numConverted, 161);
    ASSERT_TRUE(calculator.stationingToTunnelmeter(40.0, tunnelmeter));
    EXPECT_FALSE(calculator.tunnelmeterToStationing(tunnelmeter + 1e-6, back));
  }
}

TEST(AxisCalculator, ConvertsTunnelMeters) {
  const AxisPtr axis = straightAxis(0, 1000, 100, 0, 75);
  const AxisCalculator rising(axis);
  double result = 0;
  const auto expectPair = [&](double stationing, double tunnelmeter) {
    ASSERT_TRUE(rising.stationingToTunnelmeter(stationing, result));
    EXPECT_DOUBLE_EQ(result, tunnelmeter);
    ASSERT_TRUE(rising.tunnelmeterToStationing(tunnelmeter, result));
    EXPECT_DOUBLE_EQ(result, stationing);
  };
  expectPair(1100, 1125);  // from an origin before the axis as if it were level there
  axis->setStationingMappingValues(1020, 5000);
  EXPECT_EQ(axis->getStationingMappingOrigin2d(), 1020.0);
  EXPECT_EQ(axis->getStationingMappingValue3dAtOrigin(), 5000.0);
  for (const double stationing : {1000.0, 1020.0, 1060.0, 1100.0}) {
    expectPair(stationing, 5000 + 1.25 * (stationing - 1020));
  }
  // From an origin behind the axis as if it were level there too.
  axis->setStationingMappingValues(1150, 5000);
  expectPair(1100, 4950);
  expectPair(1000, 4825);
  axis->setStationingMappingValues(1020, 5000);
  // A limit that a caller has rounded is the limit.
  ASSERT_TRUE(rising.tunnelmeterToStationing(5100 + 9e-10, result));
  EXPECT_EQ(result, 1100.0);
  EXPECT_FALSE(rising.tunnelmeterToStationing(5100 + 2e-9, result));
  axis->setStationingMappingValues(1020, 5e6);
  EXPECT_TRUE(rising.tunnelmeterToStationing(5000100 + 1e-9, result));
  EXPECT_FALSE(rising.tunnelmeterToStationing(5000100 + 1e-7, result));
  axis->setStationingMappingValues(1020, 5000);
  for (const double outside : {999.0, 1101.0}) {
    EXPECT_FALSE(rising.stationingToTunnelmeter(outside, result));
    EXPECT_EQ(result, outside);
    const double tunnelmeter = 5000 + 1.25 * (outside - 1020);
    EXPECT_FALSE(rising.tunnelmeterToStationing(tunnelmeter, result));
    EXPECT_EQ(result, tunnelmeter);
  }
}

/// Every operation fails, and none touches its output but as promised.
void expectNothingWorks(const AxisCalculator& calculator) {
  for (const double value : {0.0, 5.0, std::nan("")}) {
    ENHPoint point(1, 2, 3);
    AxisPoint place(1, 2, 3);
    for (const bool inSpace : {false, true}) {
      EXPECT_FALSE(calculator.axisPointToEnhPoint(AxisPoint(value, 0, 0), point, inSpace, true));
      EXPECT_FALSE(calculator.enhPointToAxisPoint(ENHPoint(value, 0, 0), place, inSpace, true));
    }
    EXPECT_FALSE(calculator.tangentAtStationingVertical(value, point));
    EXPECT_FALSE(calculator.tangentAtStationingPerpendicular(value, point));
    EXPECT_EQ(point, ENHPoint(1, 2, 3));
    EXPECT_EQ(place.height, 3.0);
    double result = 7;
    EXPECT_FALSE(calculator.stationingToTunnelmeter(value, result));
    EXPECT_TRUE(result == value || std::isnan(value));
    EXPECT_FALSE(calculator.tunnelmeterToStationing(value, result));
    const AxisProperties properties(calculator, value);
    EXPECT_FALSE(properties.ok);
    EXPECT_EQ(properties.azimuth + properties.radius + properties.slopeRad +
                  properties.slopePercent + properties.transRad + properties.transPercent,
              0.0);
  }
}

TEST(AxisCalculator, FailsOnIncompleteAxes) {
  const AxisPtr axis = newAxis();
  expectNothingWorks(AxisCalculator(axis));
  axis->addVeralPointKink(0, 0);
  axis->addVeralPointKink(10, 0);
  expectNothingWorks(AxisCalculator(axis));
  axis->resetVeral();
  axis->addHoralSegmentStraight(0, 0, 0, 0, 10);
  axis->addVeralPointKink(0, 0);
  expectNothingWorks(AxisCalculator(axis));
  // One that ends nowhere has no range.
  axis->addHoralSegmentStraight(10, 0, 10, 0, std::nan(""));
  axis->addVeralPointKink(10, 0);
  expectNothingWorks(AxisCalculator(axis));
  // Elements that are gone leave nothing behind in a calculator that has used them.
  for (void (AxisDefinition::*reset)() :
       {&AxisDefinition::resetHoral, &AxisDefinition::resetVeral}) {
    const AxisPtr shaft(AxisDefinitionFactory::createShaftAxis(0, 0, 0, 10, 0));
    for (const AxisPtr& emptied : {kinkedAxis(0.1), shaft}) {
      const AxisCalculator calculator(emptied);
      gridPoint(calculator, AxisPoint(5, 0, 0));
      (*emptied.*reset)();
      expectNothingWorks(calculator);
      const bool hasHeights = emptied == shaft && reset == &AxisDefinition::resetHoral;
      EXPECT_EQ(emptied->minimumStng2d(), 0.0);
      EXPECT_EQ(emptied->maximumStng2d(), hasHeights ? 10.0 : 0.0);
    }
  }
  expectNothingWorks(AxisCalculator(boost::shared_ptr<const AxisDefinition>()));
  expectNothingWorks(AxisCalculator(boost::shared_ptr<const BlockAxisDefinition>()));
}

}  // namespace
