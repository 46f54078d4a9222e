// SPDX-License-Identifier: BSL-1.0
#include <Calculations/PointLists.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Ruv::Calculations;

template <class List>
void expectToHoldItsOwnCopy() {
  std::vector<Point2D> points = {{1, 2}, {3, 4}};
  const List list(points);
  List other;
  EXPECT_TRUE(other.points().empty());
  other = list;
  points[0].x = 9;
  for (const List& each : {list, other, List(other)}) {
    ASSERT_EQ(each.points().size(), 2u);
    EXPECT_EQ(each.points()[0].x, 1.0);
    EXPECT_EQ(each.points()[1].y, 4.0);
  }
}

TEST(PointLists, HoldTheirOwnCopy) {
  expectToHoldItsOwnCopy<Polyline>();
  expectToHoldItsOwnCopy<Polygon>();
}

}  // namespace
