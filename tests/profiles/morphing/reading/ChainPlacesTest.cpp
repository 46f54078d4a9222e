// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/ChainPlaces.h"

#include "profiles/morphing/reading/ChainParts.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ruv::Calculations;

constexpr double kHalfTurn = 3.141592653589793;

TEST(ChainPlaces, AreWhereAnArcIsAtAHeightFirst) {
  TestSupport::Random random(44);
  for (int i = 0; i < 2000; ++i) {
    // Clockwise it may pass its crown; either way it may lead down before it leads up.
    const bool isClockwise = i % 2 == 0;
    const double first = random.uniform(-1.0, 0.5) * (isClockwise ? kHalfTurn : -kHalfTurn);
    const double part = random.uniform();
    const double turning =
        part * (isClockwise ? kHalfTurn : -std::min(kHalfTurn, first + kHalfTurn / 2));
    const double bearing = first + turning / 2;
    const TurningChord arc{{}, Point2D(std::sin(bearing), std::cos(bearing)) * 5.0, turning};
    const double y = arc.pointAt(random.uniform(0.0, 1.1)).y;
    const double found = fractionUpwards(arc, y);
    EXPECT_NEAR(arc.pointAt(found).y, std::max(y, 0.0), 1e-9);
    double top = 0.0;
    for (double fraction = 0.0; fraction <= 1.0; fraction += 0x1p-9) {
      const double height = arc.pointAt(fraction).y;
      EXPECT_TRUE(fraction >= found || height < y + 1e-9);
      top = std::max(top, height);
    }
    if (top == 0.0) continue;
    EXPECT_TRUE(comesUpTo(arc, top - 1e-9));
    EXPECT_FALSE(comesUpTo(arc, top + 1e-3));
    EXPECT_EQ(placeUpwards({arc}, top + 1e-3).fraction, 1.0);
  }
}

TEST(ChainPlaces, AreBridgedByHalfACircleAtMost) {
  for (const double turning : {1.2, -1.2}) {
    const TurningChord arc{{0, 0}, {0, 2}, turning};
    const double diameter = 2.0 * std::abs(arc.radius());
    const Ruv::Calculations::Point2D beyond(0, 2.5 + diameter);
    EXPECT_NEAR(continuedTo(beyond, arc).turning, std::copysign(kHalfTurn, turning), 1e-12);
    EXPECT_NEAR(continuedTo({0, 4}, arc).turning, turning, 1e-12);
  }
}

}  // namespace
