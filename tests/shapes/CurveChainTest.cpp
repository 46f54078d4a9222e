#include "shapes/ChainIntersections.h"
#include "shapes/CurveChain.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

/// A closed or open chain of straights and arcs, with crossings and repeated points.
std::vector<CChainNode> randomNodes(Random& random, int count) {
  std::vector<CChainNode> nodes;
  for (int i = 0; i < count; ++i) {
    Point2D point(random.uniform(-5, 5), random.uniform(-5, 5));
    // Not the last but one: a line cuts a retraced segment in one point, not in two.
    if (i > 2 && random.index(10) == 0) point = nodes[random.index(nodes.size() - 2)].point;
    double radius = 0.0;
    if (i > 0 && random.index(2) == 0) {
      const double chord = (point - nodes.back().point).length();
      radius = random.uniform(0.5, 3.0) * chord * (random.index(2) == 0 ? 1 : -1);
    }
    double station = 0.0;
    if (i > 0) {
      const CChainNode& last = nodes.back();
      station = last.station + CChainSegment::between(last.point, point, radius).length;
    }
    nodes.push_back({point, station, radius});
  }
  return nodes;
}

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
