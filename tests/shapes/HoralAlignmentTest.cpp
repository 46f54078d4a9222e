#include "shapes/HoralAlignment.h"

#include "support/Random.h"

#include <Calculations/ShapeElements.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

constexpr double kPi = 3.141592653589793;
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// Appends a segment that continues the chain; the azimuth is its true start azimuth.
void append(std::vector<CHoralSegmentData>& chain, std::int32_t typeId, double radiusStart,
            double radiusEnd, double length, double azimuth, bool tellsAzimuth) {
  CHoralSegmentData data;
  data.typeId = typeId;
  data.hasStart = true;
  if (chain.empty()) {
    data.stationingStart = 1000.0;
    data.start = {600000.0, 200000.0};
  } else {
    data.stationingStart = chain.back().stationingEnd;
    data.start = chain.back().end;
  }
  data.stationingEnd = data.stationingStart + length;
  data.radiusStart = radiusStart;
  data.radiusEnd = radiusEnd;
  const CPlaneCurve curve = curveOfType(typeId, radiusStart, radiusEnd, length);
  data.end = data.start + turnedTo(directionOfBearing(azimuth), curve.end().position);
  data.definedAzimuth = tellsAzimuth ? azimuth : kUnknown;
  chain.push_back(data);
}

/// A chain with corners, gaps and elements without geometry.
std::vector<CHoralSegmentData> randomChain(Random& random) {
  std::vector<CHoralSegmentData> chain;
  double azimuth = random.uniform(0.0, 6.0);
  for (int i = 0; i < 40; ++i) {
    const double radius = random.uniform(15.0, 300.0) * (random.index(2) == 0 ? 1 : -1);
    const double other = random.uniform(15.0, 300.0) * (random.index(2) == 0 ? 1 : -1);
    const double length = random.uniform(1.0, 40.0);
    const std::int32_t types[] = {CShapeType::Straight, CShapeType::Arc, CShapeType::Clothoid,
                                  CShapeType::Clothoid, CShapeType::Gap, 5};
    const std::int32_t type = types[random.index(20) < 18 ? random.index(4) : random.index(6)];
    append(chain, type, radius, type == CShapeType::Arc ? radius : other, length, azimuth, true);
    const CPlaneCurve curve = curveOfType(type, radius, other, length);
    if (curve.isDefined()) azimuth += curve.end().heading;
    if (random.index(3) == 0) azimuth += random.uniform(-1.0, 1.0);
  }
  return chain;
}

/// The projection as a plain walk over all segments.
std::optional<CAlignmentFoot> walk(const std::vector<CHoralSegment>& segments, const Point2D& p,
                                   int& numCorners) {
  double best = 3.4028234663852886e+38;
  std::optional<CAlignmentFoot> result;
  for (const CHoralSegment& segment : segments) {
    if (segment.isGap || !segment.isEvaluable) continue;
    const CCurveFoot foot = segment.path.footOf(p);
    if (foot.report != CFootReport::OnCurve || !(std::abs(foot.lateral) < best)) continue;
    best = std::abs(foot.lateral);
    result = CAlignmentFoot{std::min(segment.stationingStart + foot.length, segment.stationingEnd),
                            foot.lateral};
  }
  if (result) return result;
  int previous = 3;
  for (const CHoralSegment& segment : segments) {
    if (segment.isGap) continue;
    const int now = segment.isEvaluable ? static_cast<int>(segment.path.footOf(p).report) : 3;
    const double distance = (p - segment.start).length();
    if (((previous == 2 && now == 1) || (previous == 1 && now == 2)) && distance < best) {
      best = distance;
      result = CAlignmentFoot{segment.stationingStart, distance};
    }
    previous = now;
  }
  if (result) ++numCorners;
  return result;
}

TEST(HoralAlignment, ProjectsLikeAPlainWalk) {
  Random random(31);
  int numCorners = 0;
  int numNothing = 0;
  for (int round = 0; round < 60; ++round) {
    const std::vector<CHoralSegmentData> chain = randomChain(random);
    const CHoralAlignment alignment(1000.0, chain);
    const std::vector<CHoralSegment> segments = placedSegments(chain);
    for (int i = 0; i < 80; ++i) {
      const Point2D near = chain[random.index(chain.size())].end;
      const double reach = random.index(4) == 0 ? 300.0 : 15.0;
      const Point2D p =
          near + Point2D(random.uniform(-reach, reach), random.uniform(-reach, reach));
      SCOPED_TRACE(testing::Message() << "round " << round << ", point " << i);
      const auto foot = alignment.project(p);
      const auto expected = walk(segments, p, numCorners);
      ASSERT_EQ(foot.has_value(), expected.has_value());
      if (!foot) {
        ++numNothing;
        continue;
      }
      EXPECT_EQ(foot->stationing, expected->stationing);
      EXPECT_EQ(std::abs(foot->offset), std::abs(expected->offset));
    }
  }
  EXPECT_GT(numCorners, 20);
  EXPECT_GT(numNothing, 20);
  EXPECT_LT(numNothing, 1000);
}

TEST(HoralAlignment, PlacesSegmentsBetweenTheirEndPoints) {
  // Coordinates printed in millimetres, no azimuth told: exact at both ends, tangent within the
  // rounding.
  Random random(32);
  for (int i = 0; i < 200; ++i) {
    std::vector<CHoralSegmentData> chain;
    const double azimuth = random.uniform(-3.0, 3.0);
    const double radius = random.uniform(50.0, 900.0) * (i % 2 == 0 ? 1 : -1);
    append(chain, i % 3 == 0 ? CShapeType::Arc : CShapeType::Clothoid, radius,
           i % 3 == 0 ? radius : random.uniform(50.0, 900.0), random.uniform(20.0, 150.0), azimuth,
           false);
    CHoralSegmentData& data = chain.back();
    data.end = {std::round(data.end.x * 1000) / 1000, std::round(data.end.y * 1000) / 1000};
    const CHoralAlignment alignment(1000.0, chain);
    const auto start = alignment.positionAt(1000.0);
    const auto end = alignment.positionAt(data.stationingEnd);
    ASSERT_TRUE(start && end);
    EXPECT_LT((end->position - data.end).length(), 2e-10);
    EXPECT_LT((start->position - data.start).length(), 1e-12);
    EXPECT_NEAR(std::remainder(start->azimuth - azimuth, 2 * kPi), 0.0,
                0.001 / (data.end - data.start).length());
  }
}

TEST(HoralAlignment, ClosedCirclesTakeTheirDirectionFromAzimuthOrNeighbour) {
  const double circumference = 2 * kPi * 15.0;
  for (const int how : {0, 1, 2, 3}) {
    SCOPED_TRACE(how);
    std::vector<CHoralSegmentData> chain;
    if (how == 1) append(chain, CShapeType::Straight, 0, 0, 20, 2.0, false);
    append(chain, CShapeType::Arc, 15, 15, circumference, 2.0, how == 0);
    if (how == 2) append(chain, CShapeType::Straight, 0, 0, 20, 2.0, false);
    const CHoralAlignment alignment(1000.0, chain);
    const double start = chain[how == 1 ? 1 : 0].stationingStart;
    const auto quarter = alignment.positionAt(start + circumference / 4);
    EXPECT_EQ(quarter.has_value(), how != 3);  // nothing tells
    if (!quarter) continue;
    EXPECT_NEAR(quarter->azimuth, 2.0 + kPi / 2, 1e-9);
    EXPECT_NEAR(quarter->radius, 15.0, 1e-9);
  }
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
  EXPECT_FALSE(alignment.positionAt(kUnknown));
}

TEST(ReportedAzimuth, ReadsDueNorthAsZero) {
  EXPECT_EQ(reportedAzimuth(-1e-13), 0.0);
  EXPECT_EQ(reportedAzimuth(2 * kPi - 1e-13), 0.0);
  EXPECT_GT(reportedAzimuth(-1e-11), 6.28);
  EXPECT_EQ(reportedAzimuth(1e-13), 1e-13);
}

}  // namespace
