// SPDX-License-Identifier: BSL-1.0
#include "testing/Paths.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Ruv::Calculations;
using ClipperLib::IntPoint;
using namespace TestSupport;

/// Such points come from callers who make paths of the clipper's own.
TEST(FailsafeClipper, RefusesWhatTheClipperCannotHold) {
  const ClipperLib::cInt limit = ClipperLib::hiRange;
  for (const ClipperLib::cInt far : {limit + 1, std::numeric_limits<ClipperLib::cInt>::max()}) {
    for (const IntPoint& p : {IntPoint(far, 0), IntPoint(0, -far)}) {
      const Path path = PathHelper::pathFromClipperLibPath({{0, 0}, {10, 0}, p, {0, 10}});
      EXPECT_THROW(Path::within(path, box(0, 0, 1, 1)), ClipperLib::clipperException);
      EXPECT_THROW(Path::expand(path, 1), ClipperLib::clipperException);
      EXPECT_THROW(Path::expandLine(path, 1), ClipperLib::clipperException);
      EXPECT_THROW(Path::linesWithin(path, box(0, 0, 1, 1)), ClipperLib::clipperException);
      EXPECT_THROW(PathHelper::convertRingToSimplePaths(
                       {{{0, 0}, {9, 0}, {9, 9}}, PathHelper::clipperLibPathFromPath(path)}),
                   ClipperLib::clipperException);
    }
  }
  const ClipperLib::cInt most = limit - 100000;  // room to grow
  const Path wide = PathHelper::pathFromClipperLibPath({{0, 0}, {most, 0}, {0, most}});
  EXPECT_GT(Path::expand(wide, 1).area(), wide.area());
}

}  // namespace
