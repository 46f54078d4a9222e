// SPDX-License-Identifier: BSL-1.0
#include "shapes/BoxTree.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using namespace Ruv;
using TestSupport::Random;

/// m
constexpr double kFarthest = 1e9;

/// The distance of a point outside a box.
double distanceTo(const CBox& box, const Point2D& p) {
  return Point2D(std::max({box.low.x - p.x, p.x - box.high.x, 0.0}),
                 std::max({box.low.y - p.y, p.y - box.high.y, 0.0}))
      .length();
}

double nearestOf(const std::vector<CBox>& boxes, const Point2D& p) {
  double nearest = kFarthest;
  for (const CBox& box : boxes) {
    nearest = std::min(nearest, distanceTo(box, p));
  }
  return nearest;
}

TEST(BoxTree, LooksAtAllBoxesThatMayBeNearer) {
  Random random(38);
  for (std::size_t count = 0; count < 200; ++count) {
    std::vector<CBox> boxes(count);
    // So far from one of them that single precision tells the others hardly apart.
    const Point2D shift = count % 4 != 1 ? Point2D() : Point2D(-2e6, 1e6);
    // Or so long that their middles are known to decimetres only.
    const Point2D length = count % 4 == 2 ? Point2D(3e6, 0) : Point2D(0, 3e6);
    const double size = count % 8 < 4 ? 1.0 : 30.0;
    for (CBox& box : boxes) {
      if (random.index(9) == 0) continue;  // empty
      box.low = Point2D(random.uniform(-9, 9), random.uniform(-9, 9));
      if (&box != &boxes.front()) box.low = box.low + shift;
      box.high = box.low + Point2D(random.uniform(0, size), random.uniform(0, size));
      if (count % 4 < 2) continue;
      CBox far;
      far.low = far.high = box.low + length * random.uniform(-1, 1);
      box.include(far);
    }
    const CBoxTree tree(boxes);
    const Point2D p = shift + Point2D(random.uniform(-12, 12), random.uniform(-12, 12));
    const double expected = nearestOf(boxes, p);
    double nearest = kFarthest;
    const auto reach = [&nearest] { return nearest; };
    const auto look = [&](std::size_t index) {
      ASSERT_LT(index, count);
      nearest = std::min(nearest, distanceTo(boxes[index], p));
    };
    tree.visitNear(p, reach, look);
    EXPECT_EQ(nearest, expected);
    nearest = kFarthest;
    tree.visitWithin(p, reach, look);
    EXPECT_EQ(nearest, expected);
  }
}

/// Boxes of 5 m along a road that winds and leads back to itself.
std::vector<CBox> windingRoad() {
  std::vector<CBox> boxes;
  Point2D place(4e4, -7e4);
  for (int i = 0; i < 3000; ++i) {
    const double bearing = 3.0 * std::sin(i / 300.0);
    const Point2D next = place + Point2D(std::sin(bearing), std::cos(bearing)) * 5.0;
    boxes.push_back(boxAroundCurve(place, next, 5.001));
    place = next;
  }
  return boxes;
}

/// Points along the road, to both sides, and then points in no order.
TEST(BoxTree, LooksAtFewBoxesAlongARoad) {
  Random random(40);
  const std::vector<CBox> boxes = windingRoad();
  const CBoxTree tree(boxes);
  constexpr std::size_t kPoints = 6000;
  for (const bool isWalk : {true, false}) {
    CBoxTree::Neighbourhood around;
    std::size_t near = 0;
    std::size_t within = 0;
    std::size_t walking = 0;
    for (std::size_t i = 0; i < kPoints; ++i) {
      const std::size_t at = isWalk ? i / 3 : random.index(boxes.size());
      const Point2D p = boxes[at].low + Point2D(random.uniform(-9, 9), random.uniform(-9, 9));
      const double expected = nearestOf(boxes, p);
      double nearest = kFarthest;
      const auto reach = [&] { return nearest; };
      const auto look = [&](std::size_t& numLooks) {
        nearest = kFarthest;
        return [&](std::size_t index) {
          ++numLooks;
          nearest = std::min(nearest, distanceTo(boxes[index], p));
        };
      };
      tree.visitNear(p, reach, look(near));
      EXPECT_EQ(nearest, expected);
      tree.visitNear(p, reach, look(walking), around);
      EXPECT_EQ(nearest, expected);
      const auto counting = look(within);
      nearest = expected + 1.0;
      tree.visitWithin(p, reach, counting);
      EXPECT_EQ(nearest, expected);
    }
    EXPECT_LT(near, 1.3 * kPoints);
    EXPECT_LT(walking, 1.4 * kPoints);
    EXPECT_LT(within, 1.1 * kPoints);
  }
}

TEST(BoxTree, TellsHowFarOtherBoxesAre) {
  Random random(41);
  const std::vector<CBox> boxes = windingRoad();
  const CBoxTree tree(boxes);
  for (int i = 0; i < 500; ++i) {
    const std::size_t first = random.index(boxes.size());
    const std::size_t last = std::min(first + random.index(3), boxes.size() - 1);
    std::vector<CBox> others = boxes;
    std::fill(others.begin() + std::ptrdiff_t(first), others.begin() + std::ptrdiff_t(last) + 1,
              CBox());
    const Point2D p = boxes[first].low + Point2D(random.uniform(-9, 9), random.uniform(-9, 9));
    const double expected = std::min(nearestOf(others, p), 6.0);
    EXPECT_LE(tree.clearanceAround(p, first, last, 6.0), expected);
    EXPECT_NEAR(tree.clearanceAround(p, first, last, 6.0), expected, 0.1);
  }
}

TEST(BoxTree, EnclosesEveryCurveOfALength) {
  Random random(39);
  for (int i = 0; i < 200; ++i) {
    // Two straights by way of any third point are the curve that reaches farthest.
    const Point2D a(random.uniform(-9, 9), random.uniform(-9, 9));
    const Point2D b(random.uniform(-9, 9), random.uniform(-9, 9));
    const Point2D via(random.uniform(-9, 9), random.uniform(-9, 9));
    const CBox box = boxAroundCurve(a, b, (via - a).length() + (b - via).length());
    EXPECT_LT(distanceTo(box, via), 1e-12);
  }
}

}  // namespace
