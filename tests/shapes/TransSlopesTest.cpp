// SPDX-License-Identifier: BSL-1.0
#include "shapes/TransSlopes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv;

TEST(TransSlopes, InterpolateBetweenTheEndsOfIntervals) {
  const CTransSlopes slopes({{0, 2}, {10, 2}, {10, -3}, {20, -3}, {30, 1}, {30, 1}});
  EXPECT_EQ(slopes.at(-0.001), 0.0);
  EXPECT_EQ(slopes.at(0.0), 2.0);
  EXPECT_EQ(slopes.at(10.0), 2.0);
  EXPECT_EQ(slopes.at(10.5), -3.0);
  EXPECT_EQ(slopes.at(25.0), -1.0);  // a gap between intervals
  EXPECT_EQ(slopes.at(30.0), 1.0);
  EXPECT_EQ(slopes.at(30.001), 0.0);
  EXPECT_EQ(CTransSlopes({{5, 7}, {5, 8}}).at(5.0), 7.0);  // an interval of length 0
  EXPECT_EQ(CTransSlopes({{5, 7}}).at(5.0), 0.0);
  EXPECT_EQ(CTransSlopes().at(0.0), 0.0);
  EXPECT_EQ(slopes.at(std::nan("")), 0.0);
}

}  // namespace
