// SPDX-License-Identifier: BSL-1.0
#include "shapes/StationingIndex.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using Ruv::CStationingIndex;
using TestSupport::Random;

TEST(StationingIndex, FindsWhatASearchByHalvesFinds) {
  Random random(37);
  for (int round = 0; round < 300; ++round) {
    std::vector<double> all;
    for (std::size_t count = random.index(40); count > 0; --count) {
      // Crowded, far apart, repeated.
      const double reach = random.index(2) == 0 ? 1.0 : 1e6;
      all.push_back(random.index(4) == 0 && !all.empty() ? all.back() : random.uniform(0, reach));
    }
    std::sort(all.begin(), all.end());
    const CStationingIndex index(random.index(2) == 0 ? 0.0 : -5.0, all);
    std::vector<double> asked = {-9.0, 0.0, 2e6, 1e300, -1e300, HUGE_VAL, -HUGE_VAL};
    for (const double stationing : all) {
      asked.insert(asked.end(), {stationing, std::nextafter(stationing, -1.0),
                                 std::nextafter(stationing, 1e9), random.uniform(0, 1e6)});
    }
    for (const double stationing : asked) {
      const auto expected = std::lower_bound(all.begin(), all.end(), stationing) - all.begin();
      EXPECT_EQ(index.firstNotLess(stationing), static_cast<std::size_t>(expected)) << stationing;
      const std::size_t guess = random.index(all.size() + 2);
      EXPECT_EQ(index.firstNotLess(stationing, guess), static_cast<std::size_t>(expected));
    }
  }
}

}  // namespace
