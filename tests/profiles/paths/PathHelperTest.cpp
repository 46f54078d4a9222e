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
  EXPECT_EQ((PathHelper::fromClipperLibPoint({-20000, 5000}) - Point2D(-2.0, 0.5)).length(), 0.0);
  EXPECT_EQ(PathHelper::fromClipperLibArea(1e8), 1.0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(std::nan("")), 0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(1e300), 1000000000000000);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-std::numeric_limits<double>::infinity()),
            -1000000000000000);
}

TEST(PathHelper, ConvertsOnePathAsItConvertsLists) {
  const Path path = box(0, 1, 2, 5);
  const ClipperLib::Path corners = PathHelper::clipperLibPathFromPath(path);
  ASSERT_EQ(corners.size(), path.numDiscretePathPoints());
  const Pathes paths(path);
  for (const auto& points : {PathHelper::profileLineFromPath(path).points(),
                             PathHelper::profileAreaFromPath(path).points(),
                             PathHelper::profileLinesFromPathes(paths).at(0).points(),
                             PathHelper::profileAreasFromPathes(paths, 0.0).at(0).points()}) {
    ASSERT_GE(points.size(), 4u);
    for (unsigned i = 0; i < points.size(); ++i) {
      EXPECT_EQ((points[i] - path.discretePathPointAt(i)).length(), 0.0);
      EXPECT_EQ(PathHelper::asClipperLibPoint(points[i]), corners[i]);
    }
  }
  EXPECT_EQ(PathHelper::clipperLibPathsFromPathes(paths), ClipperLib::Paths(1, corners));
  EXPECT_EQ(PathHelper::pathesFromClipperLibPaths({corners}).area(), path.area());
  EXPECT_EQ(PathHelper::pathFromClipperLibPath(corners).area(), path.area());
  EXPECT_TRUE(PathHelper::pointInPath(corners, PathHelper::asClipperLibPoint({1, 4})));
  EXPECT_FALSE(PathHelper::pointInPath(corners, PathHelper::asClipperLibPoint({3, 4})));
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
