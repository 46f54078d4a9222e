// SPDX-License-Identifier: BSL-1.0
#include "testing/Axes.h"
#include "testing/Expectations.h"
#include "testing/Random.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/BlockAxisDefinition.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

using BlockPtr = boost::shared_ptr<const BlockAxisDefinition>;

BlockPtr blockOf(const boost::shared_ptr<const AxisDefinition>& axis, double start, double end) {
  return BlockPtr(new BlockAxisDefinition(axis, start, end));
}

double transSlopeAt(const AxisCalculator& calculator, double stationing) {
  return AxisProperties(calculator, stationing).transPercent;
}

TEST(BlockAxisDefinition, IsTheChordBetweenTwoPointsOfTheAxis) {
  Random random(71);
  for (int i = 0; i < 20; ++i) {
    const AxisPtr axis = randomSmoothAxis(random);
    const double start = random.uniform(axis->minimumStng2d(), axis->maximumStng2d() - 40);
    const double end = start + random.uniform(1.0, 40.0);
    const BlockPtr block = blockOf(axis, start, end);
    const AxisCalculator reference(axis);
    const AxisCalculator chord(block);
    const ENHPoint first = axisPointAt(reference, start);
    const ENHPoint last = axisPointAt(reference, end);
    EXPECT_EQ(block->blockStartStng2d(), start);
    EXPECT_EQ(block->blockEndStng2dOnRefAxis(), end);
    EXPECT_NEAR(block->blockLength2d(), (last - first).lengthOfEastNorthProjection(), 1e-9);
    EXPECT_NEAR(block->blockLength3d(), (last - first).length(), 1e-9);
    EXPECT_DOUBLE_EQ(block->blockEndStng2d(), start + block->blockLength2d());
    EXPECT_LT((axisPointAt(chord, start) - first).length(), 1e-9);
    EXPECT_LT((axisPointAt(chord, block->blockEndStng2d()) - last).length(), 1e-9);
    // Two metres more at both ends, straight on.
    const ENHPoint twoMetres = (last - first) * (2 / block->blockLength2d());
    EXPECT_LT((axisPointAt(chord, start - 2) - (first - twoMetres)).length(), 1e-8);
    const double maximum = block->asAxisDefinition()->maximumStng2d();
    EXPECT_LT((axisPointAt(chord, maximum) - (last + twoMetres)).length(), 1e-8);
    EXPECT_NEAR(maximum, block->blockEndStng2d() + 2, 1e-9);
    // Cross fall and tunnel meter continue those of the axis.
    EXPECT_DOUBLE_EQ(transSlopeAt(chord, start - 1), transSlopeAt(reference, start));
    EXPECT_NEAR(transSlopeAt(chord, start + block->blockLength2d() / 4),
                0.75 * transSlopeAt(reference, start) + 0.25 * transSlopeAt(reference, end), 1e-9);
    EXPECT_DOUBLE_EQ(transSlopeAt(chord, block->blockEndStng2d() + 1),
                     transSlopeAt(reference, end));
    double expected = 0, actual = 0;
    ASSERT_TRUE(reference.stationingToTunnelmeter(start, expected));
    ASSERT_TRUE(chord.stationingToTunnelmeter(start, actual));
    EXPECT_DOUBLE_EQ(actual, expected);
    EXPECT_EQ(block->blockStartStng3d(), expected);
    EXPECT_DOUBLE_EQ(block->blockEndStng3d(), expected + block->blockLength3d());
  }
}

TEST(BlockAxisDefinition, ReachesTwoMetresBeyondBothEnds) {
  // Whatever the last digits of the sums are.
  Random random(73);
  ENHPoint point;
  for (int round = 0; round < 20; ++round) {
    const AxisPtr axis = randomSmoothAxis(random);
    axis->addTransSlopeSegmentConstant(axis->minimumStng2d() + 200, axis->maximumStng2d(), 3.0);
    const double top = random.uniform(100.0, 900.0);
    const AxisPtr shaft(AxisDefinitionFactory::createShaftAxis(
        1, 2, top, top + (round % 2 == 0 ? 100 : -100), random.uniform(0.0, 9000.0)));
    for (const AxisPtr& reference : {axis, shaft}) {
      for (int i = 0; i < 100; ++i) {
        const double start =
            random.uniform(reference->minimumStng2d(), reference->maximumStng2d() - 10);
        const BlockPtr block = blockOf(reference, start, start + random.uniform(0.5, 10.0));
        const AxisCalculator chord(block);
        const double end = block->blockEndStng2d();
        for (const double limit : {start - 2, end + 2, start + (block->blockLength2d() + 2)}) {
          EXPECT_TRUE(chord.axisPointToEnhPointVertical(AxisPoint(limit, 0, 0), point));
        }
        EXPECT_EQ(transSlopeAt(chord, block->asAxisDefinition()->maximumStng2d()),
                  transSlopeAt(chord, end + 1));
        EXPECT_FALSE(chord.axisPointToEnhPointVertical(AxisPoint(end + 2 + 1e-9, 0, 0), point));
      }
    }
  }
}

TEST(BlockAxisDefinition, OfAShaftIsAShaft) {
  for (const bool topDown : {true, false}) {
    const AxisPtr shaft(
        AxisDefinitionFactory::createShaftAxis(10, 20, topDown ? 100 : 60, topDown ? 60 : 100, 5));
    const BlockPtr block = blockOf(shaft, 15, 25);
    ASSERT_TRUE(block->asAxisDefinition());
    EXPECT_TRUE(block->asAxisDefinition()->isShaftAxis());
    EXPECT_EQ(block->asAxisDefinition()->isShaftAxisTopDown(), topDown);
    EXPECT_EQ(block->asAxisDefinition()->minimumStng2d(), 13.0);
    EXPECT_EQ(block->asAxisDefinition()->maximumStng2d(), 27.0);
    EXPECT_EQ(block->blockLength3d(), 10.0);
    EXPECT_EQ(block->blockStartStng3d(), 15.0);
    EXPECT_EQ(gridPoint(AxisCalculator(shaft), AxisPoint(18, 1, 2)),
              gridPoint(AxisCalculator(block), AxisPoint(18, 1, 2)));
  }
}

TEST(BlockAxisDefinition, StaysNeutralWhereTheAxisCannotBeEvaluated) {
  const AxisPtr axis = straightAxis(1, 0, 50, 7, 8);
  const BlockPtr nothing = blockOf(boost::shared_ptr<const AxisDefinition>(), 1, 2);
  EXPECT_FALSE(nothing->asAxisDefinition());
  EXPECT_EQ(nothing->blockLength2d(), 0.0);
  EXPECT_EQ(nothing->blockLength3d(), 0.0);
  EXPECT_EQ(nothing->blockStartStng3d(), 1.0);
  const BlockPtr before = blockOf(axis, -20, -10);
  EXPECT_EQ(before->blockLength3d(), 0.0);
  const BlockPtr empty = blockOf(axis, 20, 20);
  ENHPoint point;
  EXPECT_TRUE(AxisCalculator(empty).axisPointToEnhPointVertical(AxisPoint(21, 0, 0), point));
  EXPECT_TRUE(std::isfinite(point.height));
  EXPECT_EQ(empty->blockLength2d(), 0.0);
  for (const double value : {std::nan(""), 1e300}) {
    EXPECT_FALSE(AxisCalculator(blockOf(axis, value, 10))
                     .axisPointToEnhPointVertical(AxisPoint(0, 0, 0), point));
  }
}

}  // namespace
