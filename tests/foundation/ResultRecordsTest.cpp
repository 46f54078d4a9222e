// SPDX-License-Identifier: BSL-1.0
#include <Calculations/FittingResult.h>
#include <Calculations/ProfilePointResult.h>

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;

TEST(ResultRecords, HoldNothingAtFirst) {
  const FittingResult result;
  EXPECT_EQ(result.method, 0);
  EXPECT_EQ(result.center.length() + result.radius + result.rotation, 0.0);
  EXPECT_EQ(result.semiAxisA + result.semiAxisB, 0.0);
  const ProfilePointResult place;
  EXPECT_EQ(place.profilePoint.length() + place.distance + place.derolment, 0.0);
}

}  // namespace
