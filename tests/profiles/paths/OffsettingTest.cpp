// SPDX-License-Identifier: BSL-1.0
#include "testing/Numbers.h"
#include "testing/Paths.h"

#include <Calculations/Paths.h>

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(Offsetting, HasRoundCornersAndFlatEnds) {
  EXPECT_NEAR(Path::expand(box(0, 0, 4, 4), 0.5).area(), 16 + 8 + kPi * 0.25, 1e-3);
  const Path line = lineThrough({{0, 0}, {3, 0}, {3, 3}});
  // The outer side of the corner is round.
  EXPECT_NEAR(Path::expandLine(line, 0.5).area(), 3 + 3 - 0.25 + kPi * 0.25 / 4, 1e-3);
  EXPECT_EQ(Path::expandLine(line, 0.0).numPathes(), 0u);
  // Around a closed line: a ring, in pieces without a hole.
  const Path closed = box(0, 0, 4, 4);
  const Pathes band = Path::expandLine(closed, 0.1);
  EXPECT_GE(band.numPathes(), 2u);
  EXPECT_NEAR(band.area(), 16 * 0.2, 0.03);
}

/// Bands of kilometres round an outline took the clipper seconds, at 4500 points for each corner.
TEST(Offsetting, HugeOffsetsHaveFewPointsForTheirCorners) {
  for (const double d : {1e3, 1e5, 1e8}) {
    const Pathes grown = Path::expand(box(0, 0, 4, 4), d);
    ASSERT_EQ(grown.numPathes(), 1u) << d;
    EXPECT_LT(grown.pathAt(0).numDiscretePathPoints(), 1500u) << d;
    EXPECT_NEAR(grown.area() / (16 + 16 * d + kPi * d * d), 1.0, 3e-4) << d;
  }
}

TEST(Offsetting, GrownOutlinesMayHoldHolesAndBandsNoSpurs) {
  // The arms of the C meet and close round a hole.
  const Pathes grown = Path::expand(ring({{0, 0},
                                          {0, 10},
                                          {10, 10},
                                          {10, 6},
                                          {9, 6},
                                          {9, 9},
                                          {1, 9},
                                          {1, 1},
                                          {9, 1},
                                          {9, 5},
                                          {10, 5},
                                          {10, 0}}),
                                    0.6);
  ASSERT_EQ(grown.numPathes(), 2u);
  EXPECT_NEAR(grown.pathAt(1).area(), -(8 - 1.2) * (8 - 1.2), 0.1);
  EXPECT_NEAR(grown.area(), grown.pathAt(0).area() + grown.pathAt(1).area(), 1e-12);
  // What leads back along itself goes when the line is cleaned.
  const Path spur = lineThrough({{0, 0}, {1, 0}, {3, 0}, {2, 0}});
  EXPECT_NEAR(Path::expandLine(spur, 0.5).area(), 2.0, 1e-3);
}

}  // namespace
