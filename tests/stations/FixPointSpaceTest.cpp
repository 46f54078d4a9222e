// SPDX-License-Identifier: BSL-1.0
#include "stations/FixPointSpace.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;

TEST(FixPointSpace, IsThatOfThePartsInWhichPointsLie) {
  TestSupport::Random random(45);
  for (const double height : {3.0, 0.0}) {
    // Two heaps of 16 points, 4 m wide and 10 m long, 300 m apart.
    std::vector<ENHPoint> points = {ENHPoint(std::nan(""), 0, 0)};
    for (int i = 0; i < 32; ++i) {
      const auto within = [&](double extent) {
        return i < 2 ? 0.0 : i < 4 ? extent : random.uniform(0.0, extent);
      };
      const double across = within(4.0);
      const double along = within(10.0);
      const double up = within(height);
      points.emplace_back(6e5 + across, 2e5 + along + i % 2 * 300.0, up);
    }
    points.push_back(points.back());
    const FixPointSpace space(points, {0.01, 0.01, 0.5});
    EXPECT_EQ(space.points.size(), 32u);
    EXPECT_LT((space.extents - Eigen::Vector3d(4, 310, std::max(height, 0.5))).norm(), 1e-9);
    // 16 points at random have on average 15/17 of the extents of their space.
    const double larger = 17.0 / 15.0;
    EXPECT_NEAR(space.volume, 80.0 * larger * larger * std::max(height * larger, 0.5), 1e-6);
  }
}

}  // namespace
