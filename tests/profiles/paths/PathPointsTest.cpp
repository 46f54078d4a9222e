// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/PathPoints.h"

#include "testing/Paths.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Of 2 m2 and of 1 m2.
Pathes twoOutlines() {
  Pathes paths(box(0, 0, 2, 1));
  paths.addPath(box(5, 0, 6, 1));
  return paths;
}

TEST(PathPoints, RepeatTheFirstPointOfAClosedPath) {
  const std::vector<Polygon> polygons = polygonsOf(twoOutlines(), 0.0);
  ASSERT_EQ(polygons.size(), 2u);
  ASSERT_EQ(polygons[0].points().size(), 5u);
  EXPECT_EQ((polygons[0].points().front() - polygons[0].points().back()).length(), 0.0);
  EXPECT_EQ(polylinesOf(twoOutlines()).at(1).points().size(), 5u);
  EXPECT_TRUE(polygonOf(Path()).points().empty());
}

TEST(PathPoints, LeaveOutWhatIsSmallerThanTheLeastArea) {
  EXPECT_EQ(polygonsOf(twoOutlines(), 1.0).size(), 2u);  // of exactly that
  EXPECT_EQ(polygonsOf(twoOutlines(), 1.0001).size(), 1u);
  EXPECT_EQ(polygonsOf(twoOutlines(), 2.0001).size(), 0u);
}

}  // namespace
