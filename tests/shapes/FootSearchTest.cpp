// SPDX-License-Identifier: BSL-1.0
#include "shapes/FootSearch.h"

#include "testing/Numbers.h"

#include <gtest/gtest.h>

namespace {

using TestSupport::kInfinity;

TEST(FootSearch, StaysBetweenItsEndsWhenDistancesOverflow) {
  const auto forwardAt = [&](double place) {
    EXPECT_TRUE(place >= 3.0 && place <= 5.0);
    return Ruv::CForwardDistance{place < 4.0 ? kInfinity : -kInfinity, -1.0};
  };
  EXPECT_NEAR(Ruv::footBetween(forwardAt, {3.0, forwardAt(3.0)}, {5.0, forwardAt(5.0)}), 4.0, 1e-9);
}

TEST(FootSearch, TakesAsFewPiecesAsTurnNoMoreThanAllowed) {
  for (const double turning : {0.0, 1e-9, 0.39, 0.4, 3.0, 100.0, 117.0, 118.0, 1e300}) {
    const int pieces = Ruv::numSearchedPieces(turning);
    EXPECT_GE(pieces, 1);
    EXPECT_TRUE(turning <= pieces * Ruv::kLargestSearchedTurning || pieces == 300) << turning;
    EXPECT_TRUE(pieces == 1 || turning > (pieces - 1) * Ruv::kLargestSearchedTurning) << turning;
  }
}

}  // namespace
