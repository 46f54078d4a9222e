// SPDX-License-Identifier: BSL-1.0
#include "testing/Axes.h"
#include "testing/Expectations.h"
#include "testing/Numbers.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/Utilities.h>

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(Shaft, GoesStraightDownOrUp) {
  const struct {
    double start, end, east, height, azimuth, slope;
  } cases[] = {{500, 460, 1001, 490, 0, -kPi / 2}, {460, 500, 999, 470, kPi, kPi / 2}};
  for (const auto& c : cases) {
    const AxisCalculator shaft(
        AxisPtr(AxisDefinitionFactory::createShaftAxis(1000, 2000, c.start, c.end, 0)));
    for (const bool flag : {false, true}) {
      ENHPoint point = gridPoint(shaft, AxisPoint(10, 1, 2), flag, !flag);
      EXPECT_EQ(point, ENHPoint(c.east, 2002, c.height));
      AxisPoint back = axisPoint(shaft, point, flag, !flag);
      EXPECT_TRUE(back.stationing == 10 && back.offset == 1 && back.height == 2);
      EXPECT_FALSE(shaft.axisPointToEnhPoint(AxisPoint(41, 1, 2), point, flag, flag));
      EXPECT_NE(point.height, c.height);  // written all the same
      EXPECT_FALSE(shaft.enhPointToAxisPoint(ENHPoint(1000, 2000, 501), back, flag, flag));
      EXPECT_TRUE(back.stationing == -1.0 || back.stationing == 41.0);
    }
    for (const double stationing : {40.0, 41.0}) {
      const bool isInside = stationing == 40.0;
      const AxisProperties properties(shaft, stationing);
      EXPECT_EQ(properties.ok, isInside);
      EXPECT_EQ(properties.azimuth, c.azimuth);
      EXPECT_EQ(properties.slopeRad, c.slope);
      EXPECT_EQ(properties.slopePercent, Utilities::angleRadToPercent(c.slope));
      EXPECT_EQ(properties.radius + properties.transRad + properties.transPercent, 0.0);
      ENHPoint vertical, perpendicular;
      EXPECT_EQ(shaft.tangentAtStationingVertical(stationing, vertical), isInside);
      EXPECT_EQ(shaft.tangentAtStationingPerpendicular(stationing, perpendicular), isInside);
      EXPECT_EQ(vertical, isInside ? ENHPoint(0, 0, c.start > c.end ? -1 : 1) : ENHPoint());
      EXPECT_EQ(perpendicular, vertical);
      double result = 0;
      EXPECT_EQ(shaft.stationingToTunnelmeter(stationing, result), isInside);
      EXPECT_EQ(result, stationing);
      EXPECT_EQ(shaft.tunnelmeterToStationing(stationing, result), isInside);
    }
  }
}

}  // namespace
