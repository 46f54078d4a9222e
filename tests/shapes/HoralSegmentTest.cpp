// SPDX-License-Identifier: BSL-1.0
#include "shapes/HoralSegment.h"

#include "shapes/HoralAlignment.h"
#include "shapes/HoralChain.h"
#include "shapes/ShapeTolerances.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

TEST(HoralSegment, IsPlacedBetweenItsEndPoints) {
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

TEST(HoralSegment, SpreadsAPrintingErrorAndKeepsTheAzimuth) {
  Random random(33);
  for (const PrintedCase& c : kPrinted) {
    for (int i = 0; i < 40; ++i) {
      SCOPED_TRACE(testing::Message() << c.radiusStart << " m over " << c.length << ", " << i);
      const double azimuth = random.uniform(-3.0, 3.0);
      const Point2D miss = turnedTo(directionOfBearing(random.uniform(0.0, 6.3)),
                                    Point2D(0.0, i % 2 == 0 ? 0.9998 * kPrintingError : 1e-6));
      std::vector<CHoralSegmentData> chain;
      append(chain, c.typeId, c.radiusStart, c.radiusEnd, c.length, azimuth, true);
      const CPlacedCurve rigid = placedSegments(chain)[0].path;
      chain[0].end = chain[0].end + miss;
      const std::vector<CHoralSegment> segments = placedSegments(chain);
      ASSERT_TRUE(segments[0].isEvaluable());
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

TEST(HoralSegment, TurnsAndScalesASegmentBeyondAPrintingError) {
  for (const double miss : {kPrintingError, 1.002 * kPrintingError}) {
    std::vector<CHoralSegmentData> chain;
    append(chain, CShapeType::Straight, 0, 0, 0.2, kPi / 2, true, {0.0, miss});
    const bool isPrinted = miss == kPrintingError;
    const CAlignmentPosition place = *CHoralAlignment(1000.0, chain).positionAt(1000.1);
    EXPECT_NEAR(place.azimuth, kPi / 2 - (isPrinted ? 0.0 : std::atan(miss / 0.2)), 1e-9);
  }
}

TEST(HoralSegment, OfAClosedCircleTakesItsDirectionFromAzimuthOrNeighbour) {
  // Ends this close together tell no direction.
  for (const double gap : {0.0, 1e-8}) {
    const double circumference = 2 * kPi * 15.0 - gap;
    for (const int how : {0, 1, 2, 3}) {
      SCOPED_TRACE(testing::Message() << how << ", gap " << gap);
      std::vector<CHoralSegmentData> chain;
      if (how == 1) append(chain, CShapeType::Straight, 0, 0, 20, 2.0, false);
      append(chain, CShapeType::Arc, 15, 15, circumference, 2.0, how == 0);
      if (how == 2) append(chain, CShapeType::Straight, 0, 0, 20, 2.0, false);
      const CHoralAlignment alignment(1000.0, chain);
      const double start = chain[how == 1 ? 1 : 0].stationingStart;
      const auto quarter = alignment.positionAt(start + circumference / 4);
      EXPECT_EQ(quarter.has_value(), how != 3);  // nothing tells
      if (!quarter) continue;
      EXPECT_NEAR(quarter->azimuth, 2.0 + kPi / 2, 1e-8);
      EXPECT_NEAR(quarter->radius, 15.0, 1e-9);
    }
  }
}

}  // namespace
