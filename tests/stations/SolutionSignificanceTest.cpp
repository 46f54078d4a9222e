// SPDX-License-Identifier: BSL-1.0
#include "stations/SolutionSignificance.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Ruv::Calculations;

TEST(SolutionSignificance, AsksForADistanceInScoreOrTheSamePlaces) {
  const std::vector<ENHPoint> fixPoints = {{0, 0, 0}, {9, 0, 0}, {9, 0, 0.001}, {9, 0, 0.0011}};
  const auto isSignificant = [&fixPoints](const std::vector<MatchedSolution>& solutions) {
    return isFirstSolutionSignificant(solutions, fixPoints);
  };
  const MatchedSolution best{{0, 1}, 0.004};
  EXPECT_FALSE(isSignificant({}));
  EXPECT_TRUE(isSignificant({best}));
  EXPECT_TRUE(isSignificant({best, {{1, 0}, 0.0141}}));
  EXPECT_FALSE(isSignificant({best, {{1, 0}, 0.0139}}));
  EXPECT_FALSE(isSignificant({{{0, 1}, 0.0}, {{1, 0}, 0.01}}));
  EXPECT_TRUE(isSignificant({best, {{0, 2}, 0.013}}));
  EXPECT_FALSE(isSignificant({best, {{0, 3}, 0.013}})) << "1.1 mm apart";
  EXPECT_FALSE(isSignificant({best, {{0, 2}, 0.013}, {{1, 0}, 0.9}})) << "all others count";
  EXPECT_FALSE(isSignificant({best, {{0, kNotAssigned}, 0.005}}));
  EXPECT_FALSE(isSignificant({best, {{0, 1, 1}, 0.005}})) << "one measurement more";
}

}  // namespace
