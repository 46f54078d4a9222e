// SPDX-License-Identifier: BSL-1.0
#include "testing/Paths.h"

#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Left to itself the clipper finds no area in the first two cases and 4.2 m of line in the last.
TEST(Union, TakesOutlinesThatShareEdges) {
  Pathes adjoining(ring({{3, 3}, {2, 3}, {1, 2}, {2, 2}, {2, 1}, {2.5, 1.5}, {3, 1}}));
  adjoining.addPath(ring({{2, 1}, {3, 1}, {3, 2}, {2.5, 1.5}, {2, 2}}));
  EXPECT_NEAR(Pathes::within(box(2, 1, 3, 2), adjoining).area(), 0.5, 1e-7);
  Pathes halfTwice(box(0, 1, 2, 2));
  halfTwice.addPath(box(1, 1, 2, 2));
  halfTwice.addPath(box(1, 1, 2, 2));
  EXPECT_NEAR(Pathes::without(halfTwice, box(1, 0, 2, 1)).area(), 2.0, 1e-7);
  Pathes overlapping(ring({{3, 1}, {4, 0}, {4, 6}, {0, 6}, {0, 2}, {2, 0}}));
  overlapping.addPath(ring({{1, 5}, {0, 4}, {0, 0}, {2, 0}, {3, 1}, {1, 3}, {2, 4}}));
  const Path line = lineThrough({{4, 2}, {2, 0}, {2, 2}, {0, 2}, {2, 4}});
  const Pathes inside = Pathes::linesWithin(line, overlapping, false);
  EXPECT_LT(inside.linesLength(), 2 * std::sqrt(2.0) + 1e-3);  // half of it along an outline
  EXPECT_GT(inside.linesLength(), std::sqrt(2.0) - 1e-3);
}

}  // namespace
