// SPDX-License-Identifier: BSL-1.0
#include "testing/Paths.h"

#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(Pathes, CombineAreas) {
  const Path a = box(0, 0, 4, 4);
  const Path b = box(2, 1, 6, 3);
  EXPECT_NEAR(Path::within(a, b).area(), 4.0, 1e-7);
  EXPECT_NEAR(Path::without(a, b).area(), 12.0, 1e-7);
  Pathes nested(a);
  nested.addPath(box(1, 1, 3, 3));
  EXPECT_FALSE(nested.pointWithin(Point2D(2, 2)));
  EXPECT_TRUE(nested.pointWithin(Point2D(0.5, 2)));
  nested.addPaths(nested);
  EXPECT_EQ(nested.numPathes(), 4u);
  EXPECT_EQ(nested.area(), 40.0);
  EXPECT_EQ(nested.pathAt(nested.numPathes()).numDiscretePathPoints(), 0u);
  EXPECT_NEAR(Path::linesWithin(a, b).linesLength(), 2.0, 1e-7);
  EXPECT_NEAR(b.borderWithinOtherPathes(Pathes(a)), 6.0, 1e-7);
  EXPECT_EQ(Path::within(Path(), a).numPathes(), 0u);
}

TEST(Pathes, TellFailureFromNothing) {
  const double nan = std::nan("");
  const Path square = box(0, 0, 4, 4);
  EXPECT_EQ(Path::within(square, box(5, 5, 6, 6)).area(), 0.0);
  EXPECT_EQ(Path::expand(square, -3).area(), 0.0);
  // No distance, no offset. What is made of a failure fails too.
  const Pathes failed = Path::expand(square, nan);
  Pathes joined(square);
  joined.addPaths(failed);
  Pathes assigned(square);
  assigned = failed;
  for (const Pathes& each :
       {failed, joined, assigned, Path::expandLine(square, nan), Pathes::expand(failed, 1),
        Path::expand(square, std::numeric_limits<double>::infinity()),
        Pathes::within(failed, Pathes(square)), Pathes::without(Pathes(square), failed),
        Pathes::linesWithin(failed, Pathes(square), true)}) {
    EXPECT_TRUE(std::isnan(each.area()));
    EXPECT_TRUE(std::isnan(each.linesLength()));
    EXPECT_FALSE(each.pointWithin(Point2D(9, 9)));
  }
  EXPECT_EQ(failed.numPathes(), 0u);
  EXPECT_TRUE(std::isnan(square.borderWithinOtherPathes(failed)));
  assigned = Pathes(square);
  EXPECT_EQ(assigned.area(), square.area());
}

}  // namespace
