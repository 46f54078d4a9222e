// SPDX-License-Identifier: BSL-1.0
#include "guidance/AxisAttitude.h"

#include "guidance/Guidance.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(AxisAttitude, IsThatOfTheAxisAndZeroBesideIt) {
  const AxisPtr axis = risingAxis(0.75);
  axis->addTransSlopeSegmentConstant(100, 300, 8);
  const AxisAttitude on(AxisCalculator(axis), 150);
  EXPECT_TRUE(on.isKnown);
  EXPECT_DOUBLE_EQ(on.azimuth, kPi / 2);
  EXPECT_DOUBLE_EQ(on.longSlope, std::atan(0.75));
  EXPECT_DOUBLE_EQ(on.transSlopePercent, 8.0);
  const AxisAttitude beyond(AxisCalculator(axis), 301);
  EXPECT_FALSE(beyond.isKnown);
  EXPECT_EQ(beyond.azimuth + beyond.longSlope + beyond.transSlopePercent, 0.0);
}

}  // namespace
