// SPDX-License-Identifier: BSL-1.0
#include "shapes/BoxTree.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace {

using namespace Ruv;
using TestSupport::Random;

/// The distance of a point outside a box.
double distanceTo(const CBox& box, const Point2D& p) {
  return Point2D(std::max({box.low.x - p.x, p.x - box.high.x, 0.0}),
                 std::max({box.low.y - p.y, p.y - box.high.y, 0.0}))
      .length();
}

TEST(BoxTree, LooksAtAllBoxesThatMayBeNearer) {
  Random random(38);
  for (std::size_t count = 0; count < 200; ++count) {
    std::vector<CBox> boxes(count);
    // So far from one of them that single precision tells the others hardly apart.
    const Point2D shift = count % 4 != 1 ? Point2D() : Point2D(-2e6, 1e6);
    // Or so long that their middles are known to decimetres only.
    const Point2D length = count % 4 == 2 ? Point2D(3e6, 0) : Point2D(0, 3e6);
    for (CBox& box : boxes) {
      if (random.index(9) == 0) continue;  // empty
      box.low = Point2D(random.uniform(-9, 9), random.uniform(-9, 9));
      if (&box != &boxes.front()) box.low = box.low + shift;
      box.high = box.low + Point2D(random.uniform(0, 1), random.uniform(0, 1));
      if (count % 4 < 2) continue;
      CBox far;
      far.low = far.high = box.low + length * random.uniform(-1, 1);
      box.include(far);
    }
    const CBoxTree tree(boxes);
    const Point2D p = shift + Point2D(random.uniform(-12, 12), random.uniform(-12, 12));
    double expected = std::numeric_limits<double>::max();
    for (const CBox& box : boxes) {
      if (!box.isEmpty()) expected = std::min(expected, distanceTo(box, p));
    }
    double nearest = std::numeric_limits<double>::max();
    const auto reach = [&nearest] { return std::min(nearest, 1e9); };
    const auto look = [&](std::size_t index) {
      ASSERT_LT(index, count);
      nearest = std::min(nearest, distanceTo(boxes[index], p));
    };
    tree.visitNear(p, reach, look);
    EXPECT_EQ(nearest, expected);
    nearest = std::numeric_limits<double>::max();
    tree.visitWithin(p, reach, look);
    EXPECT_EQ(nearest, expected);
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
