// SPDX-License-Identifier: BSL-1.0
#include "stations/PointPairs.h"

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;

TEST(PointPairs, KeepTheOrderOfIdsAndMeasuringAndTheirDigits) {
  const ENHPoint a(5000000.25, 400000.5, 500.125);
  const ENHPoint b = a + ENHPoint(8, 16, 32);
  const PointPairs pairs =
      pairMeasurementsWithFixPoints({{L"b", {PolarPoint(0, 0, 1), PolarPoint(0, 0, 2)}},
                                     {L"a", {PolarPoint(0, 0, 4)}},
                                     {L"c", {PolarPoint()}}},
                                    {{L"a", a}, {L"b", b}, {L"unseen", ENHPoint()}});
  ASSERT_EQ(pairs.size(), 3u);
  EXPECT_EQ(pairs.local[0].height, 4.0);
  EXPECT_EQ(pairs.local[1].height, 1.0);
  EXPECT_EQ(pairs.local[2].height, 2.0);
  EXPECT_TRUE(pairs.origin + pairs.global[0] == a && pairs.origin + pairs.global[2] == b);
  EXPECT_LT(pairs.global[0].length(), 40.0);
  // The quotient of the sum differs from equal points by rounding.
  const ENHPoint place(0.1, 0.2, 0.3);
  EXPECT_TRUE(centroidOf({place, place, place}) == place);
}

}  // namespace
