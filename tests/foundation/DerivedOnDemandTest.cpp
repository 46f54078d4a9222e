// SPDX-License-Identifier: BSL-1.0
#include "foundation/DerivedOnDemand.h"

#include <gtest/gtest.h>

namespace {

TEST(DerivedOnDemand, KeepsWhatWasPublishedFirst) {
  const Ruv::DerivedOnDemand<int> value;
  const auto second = [&] {
    // Another thread asks, and is quicker, while this one works its value out.
    EXPECT_EQ(value.get([] { return 1; }), 1);
    return 2;
  };
  EXPECT_EQ(value.get(second), 1);
  EXPECT_EQ(value.get([] { return 3; }), 1);
}

TEST(DerivedOnDemand, WorksOutAnewWhatItForgot) {
  Ruv::DerivedOnDemand<int> value;
  EXPECT_EQ(value.get([] { return 1; }), 1);
  value.forget();
  EXPECT_EQ(value.get([] { return 2; }), 2);
}

}  // namespace
