#include "shapes/HoralAlignment.h"

#include "testing/Numbers.h"
#include "testing/Random.h"

#include <Calculations/ShapeElements.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// Appends a segment that continues the chain; the azimuth is its true start azimuth, and its
/// stored end lies beside the true one.
void append(std::vector<CHoralSegmentData>& chain, std::int32_t typeId, double radiusStart,
            double radiusEnd, double length, double azimuth, bool tellsAzimuth,
            const Point2D& misclosure = Point2D()) {
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
  data.end = data.start + turnedTo(directionOfBearing(azimuth), curve.end().position) + misclosure;
  data.definedAzimuth = tellsAzimuth ? azimuth : kUnknown;
  chain.push_back(data);
}

Point2D randomPoint(Random& random, double reach) {
  return {random.uniform(-reach, reach), random.uniform(-reach, reach)};
}

/// None, that of printed azimuths, one on either side of the limit of a smooth joint, a corner.
double randomBreak(Random& random) {
  const double limits[] = {0.0, 0.0, 3e-5, 1.1e-3, 1.0, 1.0};
  const double limit = limits[random.index(6)];
  return limit == 1.1e-3 ? random.uniform(0.9e-3, limit) : random.uniform(-limit, limit);
}

/// A chain with printing errors, corners, gaps and elements without geometry.
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
    append(chain, type, radius, type == CShapeType::Arc ? radius : other, length, azimuth, true,
           randomPoint(random, random.index(2) == 0 ? 0.003 : 0.0));
    const CPlaneCurve curve = curveOfType(type, radius, other, length);
    if (curve.isDefined()) azimuth += curve.end().heading;
    azimuth += randomBreak(random);
  }
  return chain;
}

/// Whether a point has its foot at the joint of two segments that continue each other but for a
/// break that is no corner: beyond the end of the one and before the start of the other.
bool isInSlit(const CHoralSegment& before, const CHoralSegment& after, const Point2D& p) {
  if (!before.isEvaluable || !after.isEvaluable) return false;
  const CCurvePoint end = before.path.end();
  const CCurvePoint start = after.path.at(0.0);
  const double turning = std::abs(std::remainder(start.heading - end.heading, 2 * kPi));
  const double lateral = rightComponent(p - end.position, end.tangent);
  return turning > 1e-12 && turning < 1e-3 &&
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
  double best = 3.4028234663852886e+38;
  std::optional<CAlignmentFoot> result;
  bool isAtJoint = false;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const CHoralSegment& segment = segments[i];
    if (segment.isGap || !segment.isEvaluable) continue;
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
      if (segments[index].isEvaluable && random.index(3) == 0) {  // all but abeam of the joint
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

TEST(SmoothWedge, OpensBetweenTouchingSegmentsOnTheNearSideOfTheirCentres) {
  // An arc, a break, another arc; the wedge opens to the right of a break to the left.
  const auto wedgeAfter = [](double breakAngle, double gap) {
    std::vector<CHoralSegmentData> chain;
    append(chain, CShapeType::Arc, 20, 20, 20, 0.0, true);
    append(chain, CShapeType::Arc, 30, 30, 20, 1.0 + breakAngle, true);
    chain[1].start.x += gap;
    chain[1].end.x += gap;
    const std::vector<CHoralSegment> segments = placedSegments(chain);
    return smoothWedgeBetween(segments[0], segments[1]);
  };
  const auto wedge = wedgeAfter(-9.99e-4, 0.0);
  ASSERT_TRUE(wedge);
  const auto abeam = [&](double offset) {
    return wedge->tip + rightNormal(directionOfBearing(1.0 - 5e-4)) * offset;
  };
  EXPECT_TRUE(wedge->holds(abeam(19.0)));
  EXPECT_NEAR(wedge->offsetOf(abeam(19.0)), 19.0, 1e-9);
  EXPECT_TRUE(wedge->holds(abeam(29.0)));  // beyond one centre
  EXPECT_FALSE(wedge->holds(abeam(31.0)));
  EXPECT_FALSE(wedge->holds(abeam(-1.0)));
  EXPECT_FALSE(wedge->holds(abeam(19.0) + Point2D(0.02, 0.02)));
  EXPECT_TRUE(wedgeAfter(9.99e-4, 0.004));
  EXPECT_FALSE(wedgeAfter(9.99e-4, 0.006));
  EXPECT_FALSE(wedgeAfter(-1.001e-3, 0.0));
  EXPECT_FALSE(wedgeAfter(1e-13, 0.0));  // rounding
  EXPECT_TRUE(wedgeAfter(0.0, 0.004)->holds(wedge->tip + Point2D(0.002, 0.0)));
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

/// A segment that misses its stored end by a printing error.
struct PrintedCase {
  std::int32_t typeId;
  double radiusStart, radiusEnd, length;
};

/// Nearly closed arcs, short elements, transition curves, circles that go round more than once.
const PrintedCase kPrinted[] = {{CShapeType::Straight, 0, 0, 0.2},
                                {CShapeType::Straight, 0, 0, 900},
                                {CShapeType::Arc, 15, 15, 0.3},
                                {CShapeType::Arc, -15, -15, 15 * 2 * kPi * 0.99},
                                {CShapeType::Arc, 15, 15, 15 * 6.28},
                                {CShapeType::Arc, 400, 400, 150},
                                {CShapeType::Clothoid, 0, -150, 80},
                                {CShapeType::Clothoid, 30, 20, 180},
                                {CShapeType::Clothoid, 500, 499.999, 100},
                                {CShapeType::Clothoid, 12, 12, 200}};

TEST(HoralAlignment, SpreadsAPrintingErrorAndKeepsTheAzimuth) {
  Random random(33);
  for (const PrintedCase& c : kPrinted) {
    for (int i = 0; i < 40; ++i) {
      SCOPED_TRACE(testing::Message() << c.radiusStart << " m over " << c.length << ", " << i);
      const double azimuth = random.uniform(-3.0, 3.0);
      const Point2D miss = turnedTo(directionOfBearing(random.uniform(0.0, 6.3)),
                                    Point2D(0.0, i % 2 == 0 ? 4.999e-3 : 1e-6));
      std::vector<CHoralSegmentData> chain;
      append(chain, c.typeId, c.radiusStart, c.radiusEnd, c.length, azimuth, true);
      const CPlacedCurve rigid = placedSegments(chain)[0].path;
      chain[0].end = chain[0].end + miss;
      const std::vector<CHoralSegment> segments = placedSegments(chain);
      ASSERT_TRUE(segments[0].isEvaluable);
      const CPlacedCurve& path = segments[0].path;
      EXPECT_LT((path.at(0.0).position - chain[0].start).length(), 1e-12);
      EXPECT_LT((path.end().position - chain[0].end).length(), 3e-10);
      for (int part = 0; part <= 8; ++part) {
        const double l = c.length * part / 8;
        const CCurvePoint place = path.at(l);
        EXPECT_EQ(place.heading, rigid.at(l).heading);
        EXPECT_LE((place.position - rigid.at(l).position - miss * (part / 8.0)).length(), 3e-10);
        // What is laid off square to the curve comes back.
        const double offset = random.uniform(-9.0, 9.0);
        const CCurveFoot foot = path.footOf(place.position + rightNormal(place.tangent) * offset);
        const bool hasOtherTurns = c.length > 6.0 * std::abs(c.radiusEnd) && c.radiusEnd != 0.0;
        if (part == 0 || part == 8 || (hasOtherTurns && std::abs(foot.length - l) > 1.0)) continue;
        EXPECT_NEAR(foot.length, l, 1e-9);
        EXPECT_NEAR(foot.lateral, offset, 1e-9);
      }
    }
  }
}

TEST(HoralAlignment, TurnsAndScalesASegmentBeyondAPrintingError) {
  for (const double miss : {0.005, 0.00501}) {
    std::vector<CHoralSegmentData> chain;
    append(chain, CShapeType::Straight, 0, 0, 0.2, kPi / 2, true, {0.0, miss});
    const bool isPrinted = miss == 0.005;
    const CAlignmentPosition place = *CHoralAlignment(1000.0, chain).positionAt(1000.1);
    EXPECT_NEAR(place.azimuth, kPi / 2 - (isPrinted ? 0.0 : std::atan(miss / 0.2)), 1e-9);
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
