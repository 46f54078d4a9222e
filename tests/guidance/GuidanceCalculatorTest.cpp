// SPDX-License-Identifier: BSL-1.0
#include "guidance/Guidance.h"
#include "testing/Axes.h"
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/GuidanceCalculator.h>
#include <Calculations/GuidanceVectorDefinition.h>

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

using BlockPtr = boost::shared_ptr<const BlockAxisDefinition>;

TEST(GuidanceCalculator, MeasuresFromAxisParallelVectors) {
  const AxisPtr axis = risingAxis(0.75);  // 1.25 m of tunnel to each metre in plan
  axis->setStationingMappingValues(100, 1000);
  axis->addTransSlopeSegmentConstant(100, 300, 8);
  const AxisCalculator onAxis(axis);
  const AxisPoint ahead(122, -0.5, 3);
  const VectorPtr vector(Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(110, 0.5, 1)));
  const GuidanceCalculator inPlan(vector, axis, false);
  const GuidanceCalculator inSpace(vector, axis, true);
  expectOffsets(inPlan.calculateOffsets(gridPoint(onAxis, ahead, false)), 12, -1, 2, 1e-9);
  expectOffsets(inSpace.calculateOffsets(gridPoint(onAxis, ahead, true)), 15, -1, 2, 1e-9);
  expectGrid(inPlan.absolutePointAtForwardValue(8),
             gridPoint(onAxis, AxisPoint(118, 0.5, 1), false), 1e-9);
  expectGrid(inSpace.absolutePointAtForwardValue(10),
             gridPoint(onAxis, AxisPoint(118, 0.5, 1), true), 1e-9);
  expectOffsets(inPlan.calculateOffsets(ENHPoint(-1, 0, 50)), 0, 0, 0, 0);
  EXPECT_EQ(inPlan.absolutePointAtForwardValue(191), ENHPoint());
}

TEST(GuidanceCalculator, MeasuresFromStraightVectors) {
  const AxisPtr axis = risingAxis(0.0);
  const VectorPtr ahead(Factory::createAsStraightFromAxisCoordinateAndVectorComponents(
      AxisPoint(110, 1, 2), GuidanceOffsets(1, 0, 0)));
  const GuidanceCalculator level(ahead, axis, false);
  expectOffsets(level.calculateOffsets(ENHPoint(15, -2, 52)), 5, 1, 0, 1e-12);
  expectGrid(level.absolutePointAtForwardValue(5), ENHPoint(15, -1, 52), 1e-12);
  expectGrid(level.absolutePointAtForwardValue(0), ENHPoint(10, -1, 52), 1e-12);
  // On a gradient the same components mean the tangent, or the horizontal.
  const AxisPtr rising = risingAxis(0.75);
  const GuidanceCalculator inPlan(ahead, rising, false);
  const GuidanceCalculator inSpace(ahead, rising, true);
  expectGrid(inPlan.absolutePointAtForwardValue(5) - inPlan.absolutePointAtForwardValue(0),
             ENHPoint(5, 0, 0), 1e-12);
  expectGrid(inSpace.absolutePointAtForwardValue(5) - inSpace.absolutePointAtForwardValue(0),
             ENHPoint(4, 0, 3), 1e-12);
  const ENHPoint start = inSpace.absolutePointAtForwardValue(0);
  expectOffsets(inSpace.calculateOffsets(start + ENHPoint(4, 0, 3) + ENHPoint(-0.6, -2, 0.8)), 5, 2,
                1, 1e-12);
}

/// The axis heads east; within a millimetre of plumb right is east all the same.
TEST(GuidanceCalculator, TakesSteepVectorsForPlumbWithoutAzimuth) {
  const AxisPtr axis = risingAxis(0.0);
  for (const double forward : {0.0, 0.0009, -0.0009, 0.0011}) {
    const VectorPtr down(new GuidanceVectorDefinition);
    down->setVectorOriginPoint(AxisPoint(110, 0, 0));
    down->setVectorDirectionAsStraight(GuidanceOffsets(forward, 0, -1));
    const GuidanceOffsets offsets =
        GuidanceCalculator(down, axis, false).calculateOffsets(ENHPoint(11, 2, 47));
    const bool isPlumb = std::abs(forward) < 0.001;
    expectOffsets(offsets, 3, isPlumb ? 1 : -2, isPlumb ? 2 : 1, 0.01);
  }
}

TEST(GuidanceCalculator, TurnsStraightVectorsWithTheTransverseSlope) {
  const AxisPtr axis = risingAxis(0.0);
  axis->addTransSlopeSegmentConstant(100, 300, 8);
  const VectorPtr right(Factory::createAsStraightFromAxisCoordinateAndVectorComponents(
      AxisPoint(110, 1, 2), GuidanceOffsets(0, 1, 0)));
  const ENHPoint downhill = ENHPoint(0, -1, -0.08) / std::hypot(1, 0.08);
  const ENHPoint start = gridPoint(AxisCalculator(axis), AxisPoint(110, 1, 2));
  for (const bool perpendicular : {false, true}) {
    const GuidanceCalculator calculator(right, axis, perpendicular);
    expectGrid(calculator.absolutePointAtForwardValue(5), start + downhill * 5, 1e-12);
    expectOffsets(calculator.calculateOffsets(start + downhill * 5), 5, 0, 0, 1e-12);
  }
}

TEST(GuidanceCalculator, AnswersZeroWhereTheOriginIsNotOnTheAxis) {
  const AxisPtr axis = risingAxis(0.1);
  for (const double stationing : {90.0, 310.0}) {
    const VectorPtr straight(
        Factory::createAsStraightInProfilePlaneWithVerticalAngle(AxisPoint(stationing, 1, 2), 0.3));
    for (const bool perpendicular : {false, true}) {
      const GuidanceCalculator calculator(straight, axis, perpendicular);
      expectOffsets(calculator.calculateOffsets(ENHPoint(15, -2, 52)), 0, 0, 0, 0);
      EXPECT_EQ(calculator.absolutePointAtForwardValue(5), ENHPoint());
    }
  }
}

TEST(GuidanceCalculator, PassesThroughBothPointsOfAPair) {
  Random random(121);
  for (int i = 0; i < 60; ++i) {
    const AxisPtr axis = randomSmoothAxis(random);
    const bool perpendicular = i % 2 == 0;
    const auto drawPoint = [&] {
      return AxisPoint(random.uniform(axis->minimumStng2d(), axis->maximumStng2d()),
                       random.uniform(-8, 8), random.uniform(-6, 6));
    };
    const AxisPoint first = drawPoint();
    const AxisPoint second = drawPoint();
    const VectorPtr vector(Factory::createAsStraightFromPairOfAxisCoordinates(axis, first, second,
                                                                              perpendicular, true));
    EXPECT_NEAR(vector->getVectorDirection().length(), 1.0, 1e-12);
    const GuidanceCalculator calculator(vector, axis, perpendicular);
    const ENHPoint a = gridPoint(AxisCalculator(axis), first, perpendicular);
    const ENHPoint b = gridPoint(AxisCalculator(axis), second, perpendicular);
    expectOffsets(calculator.calculateOffsets(a), 0, 0, 0, 1e-9);
    expectOffsets(calculator.calculateOffsets(b), (b - a).length(), 0, 0, 1e-9);
    expectGrid(calculator.absolutePointAtForwardValue((b - a).length()), b, 1e-9);
    // Offsets are those in a frame along the vector, upright.
    const ENHPoint p = a + ENHPoint(random.uniform(-9, 9), random.uniform(-9, 9), 3);
    const GuidanceOffsets offsets = calculator.calculateOffsets(p);
    EXPECT_NEAR(offsets.length(), (p - a).length(), 1e-9);
    const ENHPoint aside = calculator.absolutePointAtForwardValue(offsets.forward);
    EXPECT_NEAR(std::hypot(offsets.horizontal, offsets.vertical), (p - aside).length(), 1e-9);
  }
}

TEST(GuidanceCalculator, WorksOnBlocksAndShafts) {
  Random random(122);
  const AxisPtr axis = randomSmoothAxis(random);
  const double start = axis->minimumStng2d() + 50;
  const BlockPtr block(new BlockAxisDefinition(axis, start, start + 20));
  const VectorPtr vector(Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(start, 1, 2)));
  const GuidanceCalculator onBlock(vector, block, false);
  const ENHPoint expected = gridPoint(AxisCalculator(block), AxisPoint(start + 7, 1, 2));
  expectGrid(onBlock.absolutePointAtForwardValue(7), expected, 1e-9);
  const AxisPtr shaft(AxisDefinitionFactory::createShaftAxis(1000, 2000, 500, 460, 0));
  const VectorPtr down(Factory::createAsStraightFromPairOfAxisCoordinates(
      shaft, AxisPoint(5, 1, 2), AxisPoint(15, 1, 2), false, true));
  for (const bool flag : {false, true}) {  // the flag does not count on a shaft
    const GuidanceCalculator calculator(down, shaft, flag);
    expectGrid(calculator.absolutePointAtForwardValue(3), ENHPoint(1001, 2002, 492), 1e-9);
    EXPECT_NEAR(calculator.calculateOffsets(ENHPoint(1001, 2002, 490)).forward, 5.0, 1e-9);
  }
}

TEST(GuidanceCalculator, AnswersNeutrallyWithoutInput) {
  const AxisPtr axis = risingAxis(0.1);
  const AxisPtr none;
  const VectorPtr vector(
      Factory::createAsStraightInProfilePlaneWithVerticalAngle(AxisPoint(150, 0, 0), 1.0));
  EXPECT_EQ(GuidanceCalculator(VectorPtr(), axis, false).absolutePointAtForwardValue(1),
            ENHPoint());
  expectOffsets(GuidanceCalculator(VectorPtr(), axis, true).calculateOffsets({1, 2, 3}), 0, 0, 0,
                0);
  const VectorPtr parallel(Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(150, 0, 0)));
  for (const bool perpendicular : {false, true}) {
    for (const VectorPtr& any : {vector, parallel}) {
      const GuidanceCalculator onNothing(any, none, perpendicular);
      EXPECT_EQ(onNothing.absolutePointAtForwardValue(1), ENHPoint());
      const GuidanceCalculator onNoBlock(any, BlockPtr(), perpendicular);
      expectOffsets(onNoBlock.calculateOffsets(ENHPoint(1, 2, 3)), 0, 0, 0, 0);
    }
  }
  // Nothing to convert, nothing to crash on.
  const AxisPoint nowhere(150, std::nan(""), 1e300);
  const VectorPtr radial(
      Factory::createAsStraightRadialFromAxisCoordinateAndProfile(ProfilePtr(), nowhere));
  const VectorPtr pair(
      Factory::createAsStraightFromPairOfAxisCoordinates(none, nowhere, nowhere, false, true));
  for (const double beyond : {99.0, 301.0}) {
    const AxisPoint on(150, 0, 0);
    const AxisPoint off(beyond, 0, 0);
    for (const auto& [first, second] : {std::pair(on, off), std::pair(off, on)}) {
      const VectorPtr half(
          Factory::createAsStraightFromPairOfAxisCoordinates(axis, first, second, false, true));
      EXPECT_TRUE(std::isnan(half->getVectorDirection().length()));
    }
  }
  EXPECT_TRUE(std::isnan(radial->getVectorDirection().length()));
  EXPECT_TRUE(std::isnan(pair->getVectorDirection().length()));
}

}  // namespace
