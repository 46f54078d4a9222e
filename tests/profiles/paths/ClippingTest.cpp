// SPDX-License-Identifier: BSL-1.0
#include "testing/Paths.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using ClipperLib::IntPoint;
using namespace TestSupport;

TEST(Clipping, HasNoPiecesOfNegativeArea) {
  // The clipper makes a hole of a part of this outline, which runs along itself.
  const Path crossed = lineThrough({{2, 1}, {3, 3}, {3, 1}, {0, 1}, {3, 3}, {3, 2}, {0, 1}});
  EXPECT_NEAR(Path::without(crossed, Path()).area(), 1.9, 1e-3);
  // Cleaning turns this common sliver inside out.
  const Path a = PathHelper::pathFromClipperLibPath(
      {IntPoint(-17, 8050), IntPoint(-23, -2920), IntPoint(17, -3218), IntPoint(0, -1923)});
  const Path b = PathHelper::pathFromClipperLibPath(
      {IntPoint(-13, -38), IntPoint(-25, 1095), IntPoint(16, -3796)});
  EXPECT_EQ(Path::within(a, b).area(), 0.0);
}

}  // namespace
