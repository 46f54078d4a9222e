// SPDX-License-Identifier: BSL-1.0
#include "fitting/PointFrame.h"

#include "testing/FitPoints.h"

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(PointFrame, HasItsOriginInTheCentroidAndAUnitOfTheSpread) {
  const Point2D corner(3500000, 5800000);
  constexpr double kSize = 1.0 / 1024;  // squares of the coordinates would swallow it
  const Points points = {corner, corner + Point2D(3 * kSize, 0),
                         corner + Point2D(3 * kSize, 4 * kSize), corner + Point2D(0, 4 * kSize),
                         corner + Point2D(60 * kSize, 2 * kSize)};
  for (const bool usesAll : {true, false}) {
    const PointFrame frame = frameOf(
        usesAll ? PointSubset(points) : PointSubset(points, {true, true, true, true, false}));
    EXPECT_EQ(frame.count, usesAll ? 5u : 4u);
    EXPECT_NEAR(frame.origin.x - corner.x, (usesAll ? 13.2 : 1.5) * kSize, 1e-9);
    EXPECT_NEAR(frame.origin.y - corner.y, 2 * kSize, 1e-9);
    EXPECT_EQ(frame.unit, (usesAll ? 16 : 2) * kSize);  // below 23.5 and 2.5, root mean square
    const Point2D restored = frame.restored(frame.reduced(points[1]));
    EXPECT_NEAR(restored.x, points[1].x, 1e-9);
    EXPECT_NEAR(restored.y, points[1].y, 1e-9);
  }
  EXPECT_EQ(frameOf(PointSubset(Points(3, Point2D(5, 5)))).unit, 1.0);
}

}  // namespace
