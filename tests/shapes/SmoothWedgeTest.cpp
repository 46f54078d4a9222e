// SPDX-License-Identifier: BSL-1.0
#include "shapes/SmoothWedge.h"

#include "shapes/HoralChain.h"
#include "shapes/ShapeTolerances.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

TEST(SmoothWedge, OpensBetweenTouchingSegmentsOnTheNearSideOfTheirCentres) {
  // An arc, a break, another arc; the wedge opens to the right of a break to the left.
  const auto wedgeAfter = [](double breakAngle, double gap) {
    std::vector<CHoralSegmentData> chain;
    append(chain, CShapeType::Arc, 20, 20, 20, 0.0, true);
    append(chain, CShapeType::Arc, 30, 30, 20, 1.0 + breakAngle, true);
    chain[1].start.x += gap;
    chain[1].end.x += gap;
    const std::vector<CHoralSegment> segments = placedSegments(chain);
    return smoothWedgeBetween(segments[0], segments[1]);
  };
  const auto wedge = wedgeAfter(-0.999 * kSmoothBreak, 0.0);
  ASSERT_TRUE(wedge);
  const auto abeam = [&](double offset) {
    return wedge->tip + rightNormal(directionOfBearing(1.0 - 5e-4)) * offset;
  };
  EXPECT_TRUE(wedge->holds(abeam(19.0)));
  EXPECT_NEAR(wedge->offsetOf(abeam(19.0)), 19.0, 1e-9);
  EXPECT_TRUE(wedge->holds(abeam(29.0)));  // beyond one centre
  EXPECT_FALSE(wedge->holds(abeam(31.0)));
  EXPECT_FALSE(wedge->holds(abeam(-1.0)));
  EXPECT_FALSE(wedge->holds(abeam(19.0) + Point2D(0.02, 0.02)));
  EXPECT_TRUE(wedgeAfter(0.999 * kSmoothBreak, 0.8 * kPrintingError));
  EXPECT_FALSE(wedgeAfter(0.999 * kSmoothBreak, 1.2 * kPrintingError));
  EXPECT_FALSE(wedgeAfter(-1.001 * kSmoothBreak, 0.0));
  EXPECT_FALSE(wedgeAfter(1e-13, 0.0));  // rounding
  EXPECT_TRUE(wedgeAfter(0.0, 0.004)->holds(wedge->tip + Point2D(0.002, 0.0)));
}

}  // namespace
