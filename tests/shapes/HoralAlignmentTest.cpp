// SPDX-License-Identifier: BSL-1.0
#include "shapes/HoralAlignment.h"

#include "shapes/HoralChain.h"
#include "shapes/ShapeTolerances.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

Point2D randomPoint(Random& random, double reach) {
  return {random.uniform(-reach, reach), random.uniform(-reach, reach)};
}

/// None, that of printed azimuths, one on either side of the limit of a smooth joint, a corner.
double randomBreak(Random& random) {
  constexpr double kPrintedAzimuth = 3e-5;
  constexpr double kCorner = 1.0;
  const double limits[] = {0.0, 0.0, kPrintedAzimuth, kCorner, kCorner};
  const std::size_t kind = random.index(6);
  if (kind == 5) return random.uniform(0.9, 1.1) * kSmoothBreak;
  return random.uniform(-limits[kind], limits[kind]);
}

/// A chain with printing errors, corners, gaps and elements without geometry.
std::vector<CHoralSegmentData> randomChain(Random& random) {
  std::vector<CHoralSegmentData> chain;
  double azimuth = random.uniform(0.0, 6.0);
  for (int i = 0; i < 40; ++i) {
    const double radius = random.uniform(15.0, 300.0) * random.sign();
    const double other = random.uniform(15.0, 300.0) * random.sign();
    const double length = random.uniform(1.0, 40.0);
    constexpr std::int32_t kNoType = 5;
    const std::int32_t types[] = {CShapeType::Straight, CShapeType::Arc, CShapeType::Clothoid,
                                  CShapeType::Clothoid, CShapeType::Gap, kNoType};
    const std::int32_t type = types[random.index(20) < 18 ? random.index(4) : random.index(6)];
    append(chain, type, radius, type == CShapeType::Arc ? radius : other, length, azimuth, true,
           randomPoint(random, random.index(2) == 0 ? 0.6 * kPrintingError : 0.0));
    const CPlaneCurve curve = curveOfType(type, radius, other, length);
    if (curve.isDefined()) azimuth += curve.end().heading;
    azimuth += randomBreak(random);
  }
  return chain;
}

/// Whether a point has its foot at the joint of two segments that continue each other but for a
/// break that is no corner: beyond the end of the one and before the start of the other.
bool isInSlit(const CHoralSegment& before, const CHoralSegment& after, const Point2D& p) {
  if (!before.isEvaluable() || !after.isEvaluable()) return false;
  const CCurvePoint end = before.path.end();
  const CCurvePoint start = after.path.at(0.0);
  const double turning = std::abs(std::remainder(start.heading - end.heading, 2 * kPi));
  const double lateral = rightComponent(p - end.position, end.tangent);
  constexpr double kRounding = 1e-12;
  return turning > kRounding && turning < kSmoothBreak &&
         forwardComponent(p - end.position, end.tangent) > 0.0 &&
         forwardComponent(p - start.position, start.tangent) < 0.0 &&
         (lateral * end.curvature < 1.0 || lateral * start.curvature < 1.0);
}

struct WalkCounts {
  int corners = 0;
  int slits = 0;
};

/// The projection as a plain walk over all segments.
std::optional<CAlignmentFoot> walk(const std::vector<CHoralSegment>& segments, const Point2D& p,
                                   WalkCounts& counts) {
  double best = kFarthestDistance;
  std::optional<CAlignmentFoot> result;
  bool isAtJoint = false;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const CHoralSegment& segment = segments[i];
    if (segment.isGap || !segment.isEvaluable()) continue;
    const CCurveFoot foot = segment.path.footOf(p);
    if (foot.report == CFootReport::OnCurve && std::abs(foot.lateral) < best) {
      best = std::abs(foot.lateral);
      const double stationing = segment.stationingStart + foot.length;
      result = CAlignmentFoot{std::min(stationing, segment.stationingEnd), foot.lateral};
      isAtJoint = false;
    }
    const double fromEnd = (p - segment.path.end().position).length();
    if (i + 1 < segments.size() && isInSlit(segment, segments[i + 1], p) && fromEnd < best) {
      best = fromEnd;
      result = CAlignmentFoot{segment.stationingEnd, fromEnd};
      isAtJoint = true;
    }
  }
  if (isAtJoint) ++counts.slits;
  if (result) return result;
  CFootReport previous = CFootReport::Unknown;
  for (const CHoralSegment& segment : segments) {
    if (segment.isGap) continue;
    const CFootReport now =
        segment.isEvaluable() ? segment.path.footOf(p).report : CFootReport::Unknown;
    const double distance = (p - segment.start).length();
    // Beyond the one and before the other, or between the two.
    const bool isCorner = (previous == CFootReport::BeyondEnd && now == CFootReport::BeforeStart) ||
                          (previous == CFootReport::BeforeStart && now == CFootReport::BeyondEnd);
    if (isCorner && distance < best) {
      best = distance;
      result = CAlignmentFoot{segment.stationingStart, distance};
    }
    previous = now;
  }
  if (result) ++counts.corners;
  return result;
}

TEST(HoralAlignment, ProjectsLikeAPlainWalk) {
  Random random(31);
  WalkCounts counts;
  int numNothing = 0;
  for (int round = 0; round < 60; ++round) {
    const std::vector<CHoralSegmentData> chain = randomChain(random);
    const CHoralAlignment alignment(1000.0, chain);
    const std::vector<CHoralSegment> segments = placedSegments(chain);
    for (int i = 0; i < 80; ++i) {
      const std::size_t index = random.index(chain.size());
      Point2D p = chain[index].end + randomPoint(random, random.index(4) == 0 ? 300.0 : 15.0);
      if (segments[index].isEvaluable() && random.index(3) == 0) {  // all but abeam of the joint
        const CCurvePoint end = segments[index].path.end();
        const Point2D aside(random.uniform(-15.0, 15.0), random.uniform(-0.001, 0.001));
        p = end.position + turnedTo(end.tangent, aside);
      }
      SCOPED_TRACE(testing::Message() << "round " << round << ", point " << i);
      const auto foot = alignment.project(p);
      const auto expected = walk(segments, p, counts);
      ASSERT_EQ(foot.has_value(), expected.has_value());
      if (!foot) {
        ++numNothing;
        continue;
      }
      EXPECT_EQ(foot->stationing, expected->stationing);
      EXPECT_EQ(std::abs(foot->offset), std::abs(expected->offset));
    }
  }
  EXPECT_GT(counts.corners, 20);
  EXPECT_GT(counts.slits, 20);
  EXPECT_GT(numNothing, 20);
  EXPECT_LT(numNothing, 1000);
}

TEST(HoralAlignment, EvaluatesByTheFirstElementNotBeforeTheStationing) {
  std::vector<CHoralSegmentData> chain;
  append(chain, CShapeType::Straight, 0, 0, 0.0, 0.1, true);  // met only at the very start
  append(chain, CShapeType::Straight, 0, 0, 50, 0.1, true);
  append(chain, CShapeType::Arc, 0, 0, 50, 0.1, true);  // has no geometry
  append(chain, CShapeType::Arc, -80, -80, 50, 0.1, true);
  const CHoralAlignment alignment(1000.0, chain);
  ASSERT_TRUE(alignment.positionAt(1000.0));
  EXPECT_NEAR(alignment.positionAt(1000.0)->azimuth, 0.1, 1e-15);
  EXPECT_TRUE(alignment.positionAt(1050.0));
  EXPECT_FALSE(alignment.positionAt(1050.1));
  EXPECT_FALSE(alignment.positionAt(1100.0));
  EXPECT_EQ(alignment.positionAt(1100.1)->radius, -80.0);
  EXPECT_TRUE(alignment.positionAt(1150.0));
  EXPECT_FALSE(alignment.positionAt(1150.0001));
  EXPECT_FALSE(alignment.positionAt(999.9999));
  EXPECT_FALSE(alignment.positionAt(kNaN));
  chain.resize(1);
  EXPECT_FALSE(CHoralAlignment(1000.0, chain).positionAt(1000.0));  // nothing follows
}

TEST(ReportedAzimuth, ReadsDueNorthAsZero) {
  EXPECT_EQ(reportedAzimuth(-1e-13), 0.0);
  EXPECT_EQ(reportedAzimuth(2 * kPi - 1e-13), 0.0);
  EXPECT_GT(reportedAzimuth(-1e-11), 6.28);
  EXPECT_EQ(reportedAzimuth(1e-13), 1e-13);
}

}  // namespace
