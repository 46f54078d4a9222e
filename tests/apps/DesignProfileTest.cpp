// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/DesignProfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

namespace {

/// A room 10 m wide and 5 m high, whose roof is an arc.
double areaUnderRoof(double radius) {
  std::ostringstream text;
  text.precision(17);
  text << "start_x,start_y,end_x,end_y,radius\n"
       << "-5,0,-5,5,0\n-5,5,5,5," << radius << "\n5,5,5,0,0\n5,0,-5,0,0\n";
  std::istringstream in(text.str());
  return Exchange::readDesignProfile(in).value->area();
}

TEST(DesignProfile, AreaUnderArcsOfAnyRadius) {
  for (const double radius : {5.0, 7.5, 100.0, 49999.0, 50001.0, 1e7}) {
    const long double r = radius;
    // The cap as the integral of the heights above the chord, by the midpoint rule.
    long double cap = 0;
    constexpr int kParts = 200000;
    for (int i = 0; i < kParts; ++i) {
      const long double x = (i + 0.5L) * 5 / kParts;
      cap += (25 - x * x) / (std::sqrt(r * r - x * x) + std::sqrt(r * r - 25)) * 10 / kParts;
    }
    EXPECT_NEAR(areaUnderRoof(radius), static_cast<double>(50 + cap), 1e-6) << radius;
    EXPECT_NEAR(areaUnderRoof(-radius), static_cast<double>(50 - cap), 1e-6) << radius;
  }
  EXPECT_EQ(areaUnderRoof(7e200), 50.0);  // whose square overflows
}

}  // namespace
