// SPDX-License-Identifier: BSL-1.0
#include <Calculations/AxisMapper.h>

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

TEST(AxisMapper, CarriesStationingsBetweenAxesAndBlocks) {
  Random random(72);
  const AxisPtr axis = randomSmoothAxis(random);
  const double start = axis->minimumStng2d() + 30;
  const BlockPtr block(new BlockAxisDefinition(axis, start, start + 60));
  const AxisMapper same(axis, axis);
  const AxisMapper toBlock(axis, block);
  const AxisMapper fromBlock(block, axis);
  const BlockPtr longer(new BlockAxisDefinition(axis, start - 10, start + 90));
  const AxisMapper betweenBlocks(block, longer);
  const AxisCalculator reference(axis);
  const AxisCalculator chord(block);
  for (double s = start; s <= start + 60; s += 4) {
    const AxisPoint expected = axisPoint(chord, axisPointAt(reference, s));
    double tunnelmeter = 0, expectedTunnelmeter = 0;
    ASSERT_TRUE(reference.stationingToTunnelmeter(s, tunnelmeter));
    ASSERT_TRUE(chord.stationingToTunnelmeter(expected.stationing, expectedTunnelmeter));
    EXPECT_NEAR(same.mapStationing(tunnelmeter, true, true), tunnelmeter, 1e-9);
    EXPECT_TRUE(toBlock.canMap(s, false));
    EXPECT_EQ(toBlock.mapStationing(s, false, false), expected.stationing);
    EXPECT_NEAR(toBlock.mapStationing(tunnelmeter, true, false), expected.stationing, 1e-9);
    EXPECT_EQ(toBlock.mapStationing(s, false, true), expectedTunnelmeter);
    EXPECT_EQ(betweenBlocks.mapStationing(s, false, false),
              axisPoint(AxisCalculator(longer), axisPointAt(chord, s)).stationing);
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
