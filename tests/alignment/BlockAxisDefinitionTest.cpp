#include "support/Axes.h"
#include "support/Random.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisMapper.h>
#include <Calculations/BlockAxisDefinition.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using namespace Ruv::Calculations;
using TestSupport::AxisPtr;
using TestSupport::ChainBuilder;
using TestSupport::newAxis;
using TestSupport::Random;

using BlockPtr = boost::shared_ptr<const BlockAxisDefinition>;

BlockPtr blockOf(const boost::shared_ptr<const AxisDefinition>& axis, double start, double end) {
  return BlockPtr(new BlockAxisDefinition(axis, start, end));
}

double transSlopeAt(const AxisCalculator& calculator, double stationing) {
  double azimuth = 0, radius = 0, rad = 0, percent = 0, transRad = 0, transPercent = 0;
  EXPECT_TRUE(calculator.axisPropertiesAtStationing(stationing, azimuth, radius, rad, percent,
                                                    transRad, transPercent));
  return transPercent;
}

TEST(BlockAxisDefinition, IsTheChordBetweenTwoPointsOfTheAxis) {
  Random random(71);
  for (int i = 0; i < 20; ++i) {
    const AxisPtr axis = TestSupport::randomSmoothAxis(random);
    const double start = random.uniform(axis->minimumStng2d(), axis->maximumStng2d() - 40);
    const double end = start + random.uniform(1.0, 40.0);
    const BlockPtr block = blockOf(axis, start, end);
    const AxisCalculator reference(axis);
    const AxisCalculator chord(block);
    ENHPoint first, last, point;
    ASSERT_TRUE(reference.axisPointToEnhPointVertical(AxisPoint(start, 0, 0), first));
    ASSERT_TRUE(reference.axisPointToEnhPointVertical(AxisPoint(end, 0, 0), last));
    EXPECT_EQ(block->blockStartStng2d(), start);
    EXPECT_EQ(block->blockEndStng2dOnRefAxis(), end);
    EXPECT_NEAR(block->blockLength2d(), (last - first).lengthOfEastNorthProjection(), 1e-9);
    EXPECT_NEAR(block->blockLength3d(), (last - first).length(), 1e-9);
    EXPECT_DOUBLE_EQ(block->blockEndStng2d(), start + block->blockLength2d());
    ASSERT_TRUE(chord.axisPointToEnhPointVertical(AxisPoint(start, 0, 0), point));
    EXPECT_LT((point - first).length(), 1e-9);
    ASSERT_TRUE(chord.axisPointToEnhPointVertical(AxisPoint(block->blockEndStng2d(), 0, 0), point));
    EXPECT_LT((point - last).length(), 1e-9);
    // Two metres more at both ends, straight on.
    ASSERT_TRUE(chord.axisPointToEnhPointVertical(AxisPoint(start - 2, 0, 0), point));
    const ENHPoint direction = (last - first) / block->blockLength2d();
    EXPECT_LT((point - (first - direction * 2)).length(), 1e-8);
    ASSERT_TRUE(chord.axisPointToEnhPointVertical(
        AxisPoint(block->asAxisDefinition()->maximumStng2d(), 0, 0), point));
    EXPECT_LT((point - (last + direction * 2)).length(), 1e-8);
    EXPECT_NEAR(block->asAxisDefinition()->maximumStng2d(), block->blockEndStng2d() + 2, 1e-9);
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
    EXPECT_EQ(block->blockLength2d(), 10.0);
    EXPECT_EQ(block->blockLength3d(), 10.0);
    EXPECT_EQ(block->blockStartStng3d(), 15.0);
    ENHPoint onShaft, onBlock;
    ASSERT_TRUE(AxisCalculator(shaft).axisPointToEnhPointVertical(AxisPoint(18, 1, 2), onShaft));
    ASSERT_TRUE(AxisCalculator(block).axisPointToEnhPointVertical(AxisPoint(18, 1, 2), onBlock));
    EXPECT_EQ(onShaft, onBlock);
  }
}

TEST(BlockAxisDefinition, StaysNeutralWhereTheAxisCannotBeEvaluated) {
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 100, 100, 1).straight(50);
  axis->addVeralPointKink(0, 7);
  axis->addVeralPointKink(50, 8);
  const BlockPtr nothing = blockOf(boost::shared_ptr<const AxisDefinition>(), 1, 2);
  EXPECT_FALSE(nothing->asAxisDefinition());
  EXPECT_EQ(nothing->blockLength2d(), 0.0);
  EXPECT_EQ(nothing->blockLength3d(), 0.0);
  EXPECT_EQ(nothing->blockStartStng3d(), 1.0);
  const BlockPtr before = blockOf(axis, -20, -10);
  EXPECT_EQ(before->blockLength3d(), 0.0);
  EXPECT_EQ(before->asAxisDefinition()->getStationingMappingValue3dAtOrigin(), 0.0);
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

TEST(AxisMapper, CarriesStationingsBetweenAxesAndBlocks) {
  Random random(72);
  const AxisPtr axis = TestSupport::randomSmoothAxis(random);
  const double start = axis->minimumStng2d() + 30;
  const BlockPtr block = blockOf(axis, start, start + 60);
  const AxisMapper same(axis, axis);
  const AxisMapper toBlock(axis, block);
  const AxisMapper fromBlock(block, axis);
  const AxisMapper acrossBlock(block, block);
  const AxisCalculator reference(axis);
  const AxisCalculator chord(block);
  for (double s = start; s <= start + 60; s += 4) {
    ENHPoint point;
    AxisPoint expected;
    double tunnelmeter = 0, expectedTunnelmeter = 0;
    ASSERT_TRUE(reference.axisPointToEnhPointVertical(AxisPoint(s, 0, 0), point));
    ASSERT_TRUE(chord.enhPointToAxisPointVertical(point, expected));
    ASSERT_TRUE(reference.stationingToTunnelmeter(s, tunnelmeter));
    ASSERT_TRUE(chord.stationingToTunnelmeter(expected.stationing, expectedTunnelmeter));
    EXPECT_NEAR(same.mapStationing(s, false, false), s, 1e-9);
    EXPECT_NEAR(same.mapStationing(tunnelmeter, true, true), tunnelmeter, 1e-9);
    EXPECT_TRUE(toBlock.canMap(s, false));
    EXPECT_EQ(toBlock.mapStationing(s, false, false), expected.stationing);
    EXPECT_NEAR(toBlock.mapStationing(tunnelmeter, true, false), expected.stationing, 1e-9);
    EXPECT_EQ(toBlock.mapStationing(s, false, true), expectedTunnelmeter);
    EXPECT_TRUE(fromBlock.canMap(expected.stationing, false));
    EXPECT_NEAR(acrossBlock.mapStationing(expected.stationing, false, false), expected.stationing,
                1e-9);
  }
  EXPECT_NEAR(fromBlock.mapStationing(block->blockEndStng2d(), false, false), start + 60, 1e-9);
  EXPECT_FALSE(toBlock.canMap(axis->maximumStng2d(), false));  // on the axis, beyond the block
  EXPECT_EQ(toBlock.mapStationing(axis->maximumStng2d(), false, false), 0.0);
  EXPECT_FALSE(same.canMap(axis->maximumStng2d() + 1, false));
  EXPECT_FALSE(same.canMap(1e300, true));
  EXPECT_EQ(same.mapStationing(std::nan(""), true, true), 0.0);
  // A target without tunnel meters.
  axis->setStationingMappingValues(std::nan(""), 0.0);
  EXPECT_TRUE(same.canMap(start, false));
  EXPECT_EQ(same.mapStationing(start, false, true), 0.0);
}

}  // namespace
