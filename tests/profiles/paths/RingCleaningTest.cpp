// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/RingCleaning.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace {

using namespace Ruv::Calculations;
using ClipperLib::IntPoint;
using TestSupport::Random;

TEST(RingCleaning, LeavesOutWhatTheClipperDoes) {
  Random random(71);
  for (int round = 0; round < 20000; ++round) {
    // In a quarter of the rounds doubles do not hold the coordinates.
    const ClipperLib::cInt origin = random.index(4) == 0 ? 9007199254740993 : 6000000000;
    const std::size_t reach = random.index(2) == 0 ? 7 : 25;
    const auto coordinate = [&] {
      return origin + static_cast<ClipperLib::cInt>(random.index(reach));
    };
    ClipperLib::Path ring(random.index(15));
    for (IntPoint& p : ring) {
      p.X = coordinate();
      p.Y = coordinate();
    }
    ClipperLib::Path expected = ring;
    ClipperLib::CleanPolygon(expected, kCleaningDistanceUnits);
    cleanRing(ring);
    ASSERT_EQ(ring, expected) << round;
  }
}

}  // namespace
