// SPDX-License-Identifier: BSL-1.0
#include "testing/Paths.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(PathHelper, ConvertsUnitsByTruncation) {
  EXPECT_EQ(PathHelper::asClipperLibUnits(1.23456), 12346);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-1.23456), -12345);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-0.00004), 0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-5.0), -49999);
  EXPECT_EQ(PathHelper::fromClipperLibUnits(-12345), -1.2345);
  EXPECT_EQ(PathHelper::fromClipperLibArea(1e8), 1.0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(std::nan("")), 0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(1e300), 1000000000000000);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-std::numeric_limits<double>::infinity()),
            -1000000000000000);
}

TEST(PathHelper, LeavesOutSmallAreas) {
  Pathes paths(box(0, 0, 0.7, 0.7));
  ClipperLib::Path negative = PathHelper::clipperLibPathFromPath(box(2, 0, 2.5, 1));
  ClipperLib::ReversePath(negative);
  paths.addPath(PathHelper::pathFromClipperLibPath(negative));
  const std::vector<Polygon> areas = PathHelper::profileAreasFromPathes(paths, 0.5);
  ASSERT_EQ(areas.size(), 1u);
  EXPECT_GE(areas[0].points()[0].x, 2.0);
  EXPECT_EQ(PathHelper::profileLinesFromPathes(paths).size(), 2u);
  // A hole in nothing is not cut.
  EXPECT_EQ(PathHelper::convertRingToSimplePaths({negative}), ClipperLib::Paths(1, negative));
  EXPECT_EQ(PathHelper::convertRingToSimplePaths({ClipperLib::Path(), negative}).size(), 2u);
}

}  // namespace
