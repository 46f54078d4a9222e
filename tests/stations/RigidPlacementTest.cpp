// SPDX-License-Identifier: BSL-1.0
#include "stations/RigidPlacement.h"

#include "testing/Random.h"

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

/// Pairs are left out before they are placed when their distances differ by more.
TEST(RigidPlacement, AcceptsNoLargerChangeOfADistanceThanItTells) {
  TestSupport::Random random(46);
  const RigidPlacement placement{MatchSettings()};
  const Eigen::Vector3d worst(0.05, 0.05, 0.02);  // the tolerances
  for (int i = 0; i < 300; ++i) {
    const Eigen::Vector3d end = worst * random.uniform(1e2, 1e3);
    const Eigen::Vector3d longer = end + worst * random.uniform(1.0 - 1e-6, 1.0 + 1e-6);
    const Eigen::Vector3d place(1e8 * random.uniform(), 0.0, 0.0);
    Eigen::Matrix3Xd measured(3, 2);
    measured << -end, end;
    Eigen::Matrix3Xd fixPoints(3, 2);
    fixPoints << place - longer, place + longer;
    if (!placement.score(measured, fixPoints)) continue;
    const double change = (fixPoints.col(1) - fixPoints.col(0)).norm() - 2.0 * end.norm();
    EXPECT_NEAR(change, placement.largestChangeOfDistance(), 2e-6);
    EXPECT_LE(change, placement.largestChangeOfDistance());
  }
}

}  // namespace
