// SPDX-License-Identifier: BSL-1.0
#include "shapes/CurveChain.h"

#include "shapes/RandomNodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

TEST(CurveChain, FindsTheNearestPointOfAllSegments) {
  Random random(91);
  for (int round = 0; round < 40; ++round) {
    const CCurveChain chain(randomNodes(random, 2 + static_cast<int>(random.index(120))));
    for (int i = 0; i < 30; ++i) {
      const Point2D p(random.uniform(-9, 9), random.uniform(-9, 9));
      const auto foot = chain.project(p);
      ASSERT_TRUE(foot);
      const auto hinted = chain.project(p, random.index(chain.segments().size()));
      EXPECT_EQ(hinted->station, foot->station);
      EXPECT_EQ(hinted->outside, foot->outside);
      double nearest = 1e9;
      for (const CChainSegment& segment : chain.segments()) {
        constexpr int kSteps = 400;
        for (int step = 0; step <= kSteps && segment.hasExtent(); ++step) {
          const Point2D place = segment.at(segment.length * step / kSteps).position;
          nearest = std::min(nearest, (place - p).length());
        }
      }
      EXPECT_LE(std::abs(foot->outside), nearest + 1e-12);
      EXPECT_GE(std::abs(foot->outside), nearest - 0.03);  // half a step of the samples
      EXPECT_NEAR((foot->point - p).length(), std::abs(foot->outside), 1e-12);
      const Point2D back = foot->offsetPoint(foot->outside);
      EXPECT_LT((back - p).length(), 1e-11);
      EXPECT_LT((*chain.pointAt(foot->station) - foot->point).length(), 1e-9);
    }
  }
}

TEST(CurveChain, GivesSharedPointsToTheLowerStation) {
  const CCurveChain chain({{{0, 0}, 0, 0}, {{2, 0}, 2, 0}, {{2, 2}, 4, 0}, {{2, 0}, 6, 0}});
  EXPECT_EQ(chain.project({3, -1})->station, 2.0);
  EXPECT_EQ(chain.project({3, -1})->point.x, 2.0);
  EXPECT_EQ(chain.project({2.5, 1})->station, 3.0);
  EXPECT_FALSE(chain.project({std::nan(""), 0}));
  EXPECT_FALSE(CCurveChain({{{0, 0}, 0, 0}}).project({1, 1}));
  // Of an arc whose chord exceeds its diameter there are the ends alone.
  const CCurveChain ends({{{0, 0}, 0, 0}, {{10, 0}, 10, 1}});
  for (const double x : {0.0, 10.0}) {
    EXPECT_EQ(std::abs(ends.project({x, 2})->outside), 2.0);
  }
  for (const double outside : {-0.1, 6.1, std::nan("")}) {
    EXPECT_FALSE(chain.pointAt(outside));
  }
}

TEST(CurveChain, TellsOutsideFromInsideAtEveryVertex) {
  // Acute triangles, whose vertices each are the first node once. The nearest point of most points
  // is a vertex, where the sides on both sides of it decide.
  Random random(93);
  for (int round = 0; round < 300; ++round) {
    const Point2D apex(random.uniform(-1, 1), random.uniform(3, 9));
    const Point2D corners[] = {apex, {-0.3, 0}, {random.uniform(-0.2, 0.4), 0}};
    const std::size_t first = random.index(3);
    const std::size_t step = 1 + random.index(2);  // either way round
    std::vector<CChainNode> nodes;
    for (std::size_t i = 0; i < 4; ++i) {
      const Point2D& point = corners[(first + i * step) % 3];
      nodes.push_back({point, static_cast<double>(i), 0.0});
      if (random.index(4) == 0) nodes.push_back(nodes.back());
    }
    const CCurveChain chain(nodes);
    for (int i = 0; i < 30; ++i) {
      const Point2D p =
          corners[i % 3] + Point2D(random.uniform(-0.5, 0.5), random.uniform(-0.5, 0.5));
      bool isInside = true;
      for (int side = 0; side < 3; ++side) {
        const Point2D along = corners[(side + 1) % 3] - corners[side];
        const Point2D ray = p - corners[side];
        if (along.x * ray.y - along.y * ray.x < 0.0) isInside = false;
      }
      EXPECT_EQ(chain.project(p)->outside < 0.0, isInside) << round << ": " << p.x << " " << p.y;
    }
  }
}

TEST(CurveChain, EndsOfAnOpenChainHaveTheSidesOfTheirOwnSegments) {
  const CCurveChain chain({{{0, 0}, 0, 0}, {{4, 0}, 4, 0}, {{7, 4}, 9, 0}});  // anticlockwise
  for (const double side : {1.0, -1.0}) {
    EXPECT_NEAR(chain.project({-1, -0.1 * side})->outside, side * std::hypot(1, 0.1), 1e-15);
    const Point2D beyond(7 + 0.6 + 0.08 * side, 4 + 0.8 - 0.06 * side);
    EXPECT_NEAR(chain.project(beyond)->outside, side * std::hypot(1, 0.1), 1e-15);
  }
}

TEST(CurveChain, HairpinHasTheSidesOfTheWayBack) {
  const CCurveChain chain({{{0, 0}, 0, 0}, {{5, 0}, 5, 0}, {{2, 0}, 8, 0}, {{2, 3}, 11, 0}});
  for (const double side : {0.5, -0.5}) {
    const bool isOutside = chain.project({3, side})->outside > 0.0;  // of the way there
    EXPECT_EQ(chain.project({6, side})->outside > 0.0, !isOutside) << side;
  }
}

}  // namespace
