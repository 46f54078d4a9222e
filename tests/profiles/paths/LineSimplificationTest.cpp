// SPDX-License-Identifier: BSL-1.0
#include "testing/Polygons.h"
#include "testing/Random.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using namespace Ruv::Calculations;
using ClipperLib::IntPoint;
using namespace TestSupport;

TEST(LineSimplification, KeepsEndsAndCorners) {
  const auto pointOf = &PathHelper::fromClipperLibPoint;
  ClipperLib::Path line;
  for (int i = 0; i <= 40; ++i) {
    line.emplace_back(i * 100, i > 1 && i < 40 ? i % 2 : 0);  // within the tolerance
  }
  for (int i = 1; i <= 40; ++i) {
    line.emplace_back(4000, i * 100);
  }
  const ClipperLib::Path kept = PathHelper::simplyfyLine(line, 1.415);
  ASSERT_EQ(kept.size(), 3u);
  EXPECT_EQ(kept[1], IntPoint(4000, 0));
  EXPECT_EQ(PathHelper::simplyfyLine({{0, 0}, {1, 0}, {2, 0}}, 5).size(), 3u);
  // Products of these overflow.
  const ClipperLib::cInt far = 1000000000000000;
  const ClipperLib::Path wide = {{-far, -far}, {far, far}, {-far, far}, {far, -far}, {0, 0}};
  EXPECT_GE(PathHelper::simplyfyLine(wide, 1).size(), 4u);
  // So do their differences.
  const ClipperLib::cInt lowest = std::numeric_limits<ClipperLib::cInt>::min();
  const ClipperLib::cInt highest = std::numeric_limits<ClipperLib::cInt>::max();
  const ClipperLib::Path widest = {
      {lowest, lowest}, {highest, highest}, {lowest, highest}, {highest, lowest}, {lowest, 0}};
  EXPECT_EQ(PathHelper::simplyfyLine(widest, 1), widest);
  // Points in one place give no direction, and what is no tolerance allows nothing.
  const ClipperLib::Path corner = {{0, 0}, {0, 0}, {9, 0}, {9, 9}, {18, 9}};
  EXPECT_EQ(PathHelper::simplyfyLine(corner, 0.0).size(), 4u);
  EXPECT_EQ(PathHelper::simplyfyLine(corner, std::nan("")).size(), 4u);
  Random random(102);
  for (int round = 0; round < 50; ++round) {
    ClipperLib::Path walk(1, IntPoint(0, 0));
    for (int i = 0; i < 200; ++i) {
      walk.emplace_back(walk.back().X + static_cast<int>(random.index(7)) - 1,
                        walk.back().Y + static_cast<int>(random.index(5)) - 2);
    }
    const ClipperLib::Path simple = PathHelper::simplyfyLine(walk, 3.0);
    EXPECT_EQ(simple.front(), walk.front());
    EXPECT_EQ(simple.back(), walk.back());
    // Every point left out lies near the simplified line.
    for (const IntPoint& p : walk) {
      double nearest = 1e9;
      for (std::size_t i = 1; i < simple.size(); ++i) {
        nearest = std::min(nearest,
                           distanceToEdge(pointOf(p), pointOf(simple[i - 1]), pointOf(simple[i])));
      }
      EXPECT_LE(nearest, 2 * 3e-4 + 1e-12);
    }
  }
}

}  // namespace
