// SPDX-License-Identifier: BSL-1.0
#include "guidance/Guidance.h"
#include "testing/Expectations.h"

#include <Calculations/GuidanceCalculator.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(ContinuedTunnelMeter, CountsOnBeyondTheAxis) {
  // From 1000 at stationing 100 to 1250 at 300; by one metre per metre outside.
  const AxisPtr axis = risingAxis(0.75);
  axis->setStationingMappingValues(100, 1000);
  const ENHPoint place = gridPoint(AxisCalculator(axis), AxisPoint(120, 0.5, 1), true);
  const struct {
    double origin, tunnelmeter;
  } cases[] = {{90, 990}, {110, 1012.5}, {300, 1250}, {350, 1300}, {1e6, 1250 + 1e6 - 300}};
  for (const auto& c : cases) {
    const VectorPtr vector(
        Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(c.origin, 0.5, 1)));
    const GuidanceCalculator guidance(vector, axis, true);
    expectOffsets(guidance.calculateOffsets(place), 1025 - c.tunnelmeter, 0, 0, 1e-9);
    expectGrid(guidance.absolutePointAtForwardValue(1025 - c.tunnelmeter), place, 1e-9);
    for (const double outside : {995.0, 1251.0, 1e9}) {  // of the axis, so there is no point
      EXPECT_EQ(guidance.absolutePointAtForwardValue(outside - c.tunnelmeter), ENHPoint());
    }
  }
  // Values of the tunnel meter that are stationings of the axis as well, which once mixed them up.
  const AxisPtr level = straightAxis(0, 0, 200, 0, 0);
  level->setStationingMappingValues(0, -100);
  const VectorPtr from150(Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(150, 0, 0)));
  const VectorPtr from250(Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(250, 0, 0)));
  for (const double beyond : {100.0, 140.0}) {
    EXPECT_EQ(GuidanceCalculator(from150, level, true).absolutePointAtForwardValue(beyond),
              ENHPoint());
  }
  expectOffsets(GuidanceCalculator(from250, level, true).calculateOffsets(ENHPoint(0, 180, 0)), -70,
                0, 0, 1e-12);
  // A shaft goes straight on.
  const AxisPtr shaft(AxisDefinitionFactory::createShaftAxis(7, 8, 700, 500, 0));
  expectGrid(GuidanceCalculator(from150, shaft, true).absolutePointAtForwardValue(60),
             ENHPoint(7, 8, 490), 1e-12);
  EXPECT_EQ(GuidanceCalculator(from250, shaft, true).calculateOffsets(ENHPoint(7, 8, 690)).forward,
            -240.0);
  EXPECT_EQ(GuidanceCalculator(from250, shaft, true).absolutePointAtForwardValue(10), ENHPoint())
      << "between two places beyond it";
}

TEST(ContinuedTunnelMeter, IsNoneWhereItEndsOnTheAxis) {
  const AxisPtr axis = straightAxis(0, 0, 100, 0, 0);
  axis->addVeralPointKink(40, 0);
  axis->addVeralPointArc(60, 1, 50);  // cannot be computed
  axis->addVeralPointKink(60, 5);
  for (const double origin : {50.0, 150.0}) {
    const VectorPtr vector(
        Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(origin, 0, 0)));
    const GuidanceCalculator guidance(vector, axis, true);
    EXPECT_TRUE(std::isnan(guidance.calculateOffsets(ENHPoint(0, 0, 0)).forward));
    EXPECT_EQ(guidance.absolutePointAtForwardValue(10 - origin), ENHPoint());
    expectOffsets(guidance.calculateOffsets(ENHPoint(0, 80, 2.5)), 0, 0, 0, 0);
  }
}

}  // namespace
