// SPDX-License-Identifier: BSL-1.0
#include "shapes/AreaCentroid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

using namespace Ruv;

TEST(AreaCentroid, IsThatOfThePartsAndTellsTheSense) {
  // A rectangle of 4 m by 2 m with another of 1 m by 3 m on its left end, far from the origin.
  for (const Point2D& place : {Point2D(0, 0), Point2D(600000, 200000)}) {
    std::vector<Point2D> corners = {{0, 0}, {0, 5}, {1, 5}, {1, 2}, {4, 2}, {4, 0}};
    for (Point2D& corner : corners) {
      corner = corner + place;
    }
    for (std::size_t start = 0; start < corners.size(); ++start) {
      std::rotate(corners.begin(), corners.begin() + 1, corners.end());
      for (const double sense : {1.0, -1.0}) {
        const auto found = areaAndCentroid(corners);
        ASSERT_TRUE(found.has_value());
        EXPECT_NEAR(found->area, sense * 11.0, 1e-9);
        EXPECT_NEAR(found->centroid.x, place.x + (8 * 2.0 + 3 * 0.5) / 11, 1e-9);
        EXPECT_NEAR(found->centroid.y, place.y + (8 * 1.0 + 3 * 3.5) / 11, 1e-9);
        std::reverse(corners.begin(), corners.end());
      }
    }
  }
}

TEST(AreaCentroid, IsNothingWithoutArea) {
  EXPECT_FALSE(areaAndCentroid({}));
  EXPECT_FALSE(areaAndCentroid({{3, 4}}));
  EXPECT_FALSE(areaAndCentroid({{3, 4}, {5, 7}}));
  EXPECT_FALSE(areaAndCentroid({{0, 0}, {1, 1}, {3, 3}}));
}

}  // namespace
