// SPDX-License-Identifier: BSL-1.0
#include "shapes/ChainIntersections.h"

#include "shapes/RandomNodes.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

TEST(ChainIntersections, MeetTheLineAndTheChain) {
  Random random(92);
  for (int round = 0; round < 200; ++round) {
    const std::vector<CChainSegment> chain = CCurveChain(randomNodes(random, 12)).segments();
    const Point2D a(random.uniform(-7, 7), random.uniform(-7, 7));
    const Point2D b(random.uniform(-7, 7), random.uniform(-7, 7));
    // Changes of side along a dense walk.
    std::size_t expected = 0;
    const auto sideOf = [&](const Point2D& p) {
      return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
    };
    const auto isBeside = [&](const Point2D& p) {
      const double along = (b.x - a.x) * (p.x - a.x) + (b.y - a.y) * (p.y - a.y);
      return along > 0 && along < (b - a).length() * (b - a).length();
    };
    for (const CChainSegment& segment : chain) {
      constexpr int kSteps = 2000;
      Point2D before = segment.start;
      for (int step = 1; step <= kSteps && segment.hasExtent(); ++step) {
        const Point2D now = segment.at(segment.length * step / kSteps).position;
        if (sideOf(before) * sideOf(now) < 0 && isBeside(now)) ++expected;
        before = now;
      }
    }
    const std::vector<Point2D> hits = intersectionsOf(chain, a, b);
    EXPECT_EQ(hits.size(), expected) << round;
    for (const Point2D& hit : hits) {
      EXPECT_NEAR(sideOf(hit) / (b - a).length(), 0.0, 1e-10);
    }
  }
}

TEST(ChainIntersections, CountTouchesJointsAndOverlapsOnce) {
  const std::vector<CChainNode> nodes = {{{-1, 0}, 0, 0}, {{1, 0}, 0, 1},   {{3, 0}, 0, 0},
                                         {{3, -2}, 0, 0}, {{-1, -2}, 0, 0}, {{-1, 0}, 0, 0}};
  const std::vector<CChainSegment> chain = CCurveChain(nodes).segments();
  const auto count = [&](const Point2D& a, const Point2D& b) {
    return intersectionsOf(chain, a, b).size();
  };
  EXPECT_EQ(count({-9, 1}, {9, 1}), 1u);    // touches the arc
  EXPECT_EQ(count({-9, -2}, {9, -2}), 2u);  // runs along the bottom
  EXPECT_EQ(count({0, -2}, {1, -2}), 2u);   // inside it
  EXPECT_EQ(count({1, -1}, {1, 1}), 1u);    // through a joint
  EXPECT_EQ(count({-1, -9}, {-1, 9}), 2u);  // along the closing side
  EXPECT_EQ(count({-2, 1}, {0, -1}), 1u);   // through the first node
  EXPECT_EQ(count({0, 0.5}, {0, 0.9}), 0u);
  EXPECT_EQ(count({0, 0.5}, {0, 1}), 1u);  // ends on the arc
  EXPECT_EQ(count({0, 0}, {0, 0}), 0u);
  const std::vector<Point2D> ordered = intersectionsOf(chain, {9, 0.5}, {-9, 0.5});
  ASSERT_EQ(ordered.size(), 2u);
  EXPECT_LT(ordered[0].x, ordered[1].x);  // along the arc, not along the line
}

}  // namespace
