// SPDX-License-Identifier: BSL-1.0
#include "stations/RigidPlacement.h"

#include <gtest/gtest.h>
#include <Eigen/Core>

#include <cmath>

namespace {

using namespace Ruv::Calculations;

TEST(RigidPlacement, ComparesStrictlyWithTheTolerances) {
  // A saddle: its best fit is the unturned square below it.
  Eigen::Matrix3Xd measured(3, 4);
  measured << 4, -4, -4, 4, 4, 4, -4, -4, 0, 0, 0, 0;
  Eigen::Matrix3Xd fixPoints(3, 4);
  fixPoints << 4, -4, -4, 4, 4, 4, -4, -4, 0.25, -0.25, 0.25, -0.25;
  MatchSettings settings;
  settings.toleranceHeightDifference = 0.25;
  EXPECT_FALSE(RigidPlacement(settings).score(measured, fixPoints));
  settings.toleranceHeightDifference = std::nextafter(0.25, 1.0);
  ASSERT_TRUE(RigidPlacement(settings).score(measured, fixPoints));
  EXPECT_NEAR(*RigidPlacement(settings).score(measured, fixPoints), 8.0 * 0.0625, 1e-14);
}

}  // namespace
