// SPDX-License-Identifier: BSL-1.0
#include "shapes/PlaneCurve.h"

#include "testing/Axes.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace {

using Ruv::CCurveFoot;
using Ruv::CCurvePoint;
using Ruv::CFootReport;
using Ruv::CPlaneCurve;
using Ruv::Calculations::Point2D;
using namespace TestSupport;

double reciprocal(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

struct CurveCase {
  double radiusStart, radiusEnd, length;
};

std::ostream& operator<<(std::ostream& out, const CurveCase& c) {
  return out << "radius " << c.radiusStart << " to " << c.radiusEnd << " over " << c.length;
}

/// Straights and arcs, also nearly a full circle; into, out of and between curves; curves of both
/// senses; nearly equal radii; almost 2 rad from a straight, and farther out of and into a curve;
/// many turns, of one radius too; kilometres.
const CurveCase kCurves[] = {{0, 0, 3000},
                             {250, 250, 1500},
                             {-4e6, -4e6, 5000},
                             {-30, -30, 188.4},
                             {0, 400, 100},
                             {-400, 0, 100},
                             {-1000, -300, 100},
                             {100, -200, 90},
                             {-100, 100, 90},
                             {500, 499.9, 10},
                             {500, 500.000000001, 200},
                             {0, 60, 235},
                             {20, 0, 235},
                             {0, -20, 235},
                             {20, 30, 900},
                             {0, -2500, 4000},
                             {12, 12, 100}};

class PlaneCurve : public testing::TestWithParam<CurveCase> {};

TEST_P(PlaneCurve, FollowsItsLinearCurvature) {
  const CurveCase& c = GetParam();
  const CPlaneCurve curve = CPlaneCurve::clothoid(c.radiusStart, c.radiusEnd, c.length);
  ASSERT_TRUE(curve.isDefined());
  constexpr double kScale = 1e-3;
  const CPlaneCurve model =
      CPlaneCurve::clothoid(kScale * c.radiusStart, kScale * c.radiusEnd, kScale * c.length);
  const double k0 = reciprocal(c.radiusStart);
  const double k1 = reciprocal(c.radiusEnd);
  for (int i = 0; i <= 16; ++i) {
    const double l = c.length * i / 16;
    SCOPED_TRACE(l);
    const CCurvePoint point = curve.at(l);
    EXPECT_LT((point.position - referencePoint(k0, k1, c.length, l)).length(), 1e-11);
    EXPECT_LT((model.at(kScale * l).position - point.position * kScale).length(), 1e-13);
    EXPECT_NEAR(point.heading, k0 * l + (k1 - k0) * l * l / (2 * c.length), 1e-13);
    EXPECT_NEAR(point.tangent.x, std::sin(point.heading), 1e-13);
    EXPECT_NEAR(point.tangent.y, std::cos(point.heading), 1e-13);
    EXPECT_NEAR(point.curvature, k0 + (k1 - k0) * i / 16, 1e-15);
  }
  EXPECT_EQ(curve.end().position.x, curve.at(c.length).position.x);
}

/// The nearest place of a curve by brute force, and whether the curve is nearest at an end.
struct BruteForceFoot {
  double length = 0.0;
  double distance = 0.0;
};

BruteForceFoot nearestPlace(const CPlaneCurve& curve, const Point2D& p) {
  constexpr int kSteps = 3000;
  const auto distanceAt = [&](double l) { return (p - curve.at(l).position).length(); };
  const double step = curve.length() / kSteps;
  int best = 0;
  double least = distanceAt(0.0);
  for (int i = 1; i <= kSteps; ++i) {
    const double distance = distanceAt(step * i);
    if (distance < least) best = i;
    least = std::min(least, distance);
  }
  double low = std::max(0.0, step * (best - 1));
  double high = std::min(curve.length(), step * (best + 1));
  for (int i = 0; i < 100; ++i) {
    const double a = low + (high - low) / 3;
    const double b = high - (high - low) / 3;
    (distanceAt(a) < distanceAt(b) ? high : low) = distanceAt(a) < distanceAt(b) ? b : a;
  }
  return {(low + high) / 2, distanceAt((low + high) / 2)};
}

TEST_P(PlaneCurve, FindsTheNearestFoot) {
  const CurveCase& c = GetParam();
  Random random(21);
  for (int i = 0; i < 80; ++i) {
    const Point2D drift = i < 60 ? Point2D() : Point2D(0.003, -0.004) / c.length;
    const CPlaneCurve curve =
        CPlaneCurve::clothoid(c.radiusStart, c.radiusEnd, c.length).drifting(drift);
    const double reach = i % 3 == 0 ? c.length : 12.0;
    const Point2D p = curve.at(random.uniform(0.0, c.length)).position +
                      Point2D(random.uniform(-reach, reach), random.uniform(-reach, reach));
    SCOPED_TRACE(testing::Message() << "point " << i << ": " << p.x << ", " << p.y);
    const CCurveFoot foot = curve.footOf(p);
    const BruteForceFoot expected = nearestPlace(curve, p);
    const bool endsNearest =
        expected.length < 1e-6 * c.length || expected.length > c.length * (1 - 1e-6);
    if (foot.report == CFootReport::OnCurve) {
      const CCurvePoint place = curve.at(foot.length);
      const Point2D ray = p - place.position;
      EXPECT_NEAR(Ruv::forwardComponent(ray, place.tangent), 0.0, 1e-9);
      EXPECT_NEAR(Ruv::rightComponent(ray, place.tangent), foot.lateral, 1e-9);
      // Feet are square to the azimuth, which a drift leaves: off the nearest by its square.
      if (!endsNearest) {
        const double oblique = drift.length() * drift.length() * c.length * 10;
        EXPECT_NEAR(std::abs(foot.lateral), expected.distance, 1e-9 + oblique);
      }
    } else {
      EXPECT_TRUE(endsNearest) << "misses a foot at " << expected.length;
      const bool isBefore = Ruv::forwardComponent(p, curve.at(0).tangent) < 0.0;
      const bool isBeyond =
          Ruv::forwardComponent(p - curve.end().position, curve.end().tangent) > 0.0;
      const bool isNearerStart = p.length() <= (p - curve.end().position).length();
      const bool saysBefore = foot.report == CFootReport::BeforeStart;
      EXPECT_TRUE(saysBefore ? isBefore : isBeyond || isBefore);
      if (isBefore && isBeyond && c.radiusStart != c.radiusEnd) {
        EXPECT_EQ(saysBefore, isNearerStart);
      }
      EXPECT_EQ(foot.length, foot.report == CFootReport::BeforeStart ? 0.0 : c.length);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Curves, PlaneCurve, testing::ValuesIn(kCurves));

TEST(PlaneCurveFoot, AtTheStartOfAClothoidIsSeenWhenTheEndIsNearer) {
  const CCurveFoot foot = CPlaneCurve::clothoid(-40, -20, 40).footOf(Point2D(-30, -1e-15));
  EXPECT_EQ(foot.report, CFootReport::BeforeStart);
  EXPECT_LT(foot.outside, 1e-14);
}

TEST(PlaneCurveFoot, AnEndMissedByRoundingCountsBeforeAFootOnAnotherTurn) {
  // Points abeam of the end of spirals that have turned by some rounds.
  int numOtherFeet = 0;
  for (double length = 100.0; length < 400.0; length += 7.0) {
    const CPlaneCurve curve = CPlaneCurve::clothoid(60, 15, length);
    const CCurvePoint end = curve.end();
    for (double offset = -12.0; offset < 13.0; offset += 0.5) {
      const Point2D abeam = end.position + Ruv::rightNormal(end.tangent) * offset;
      const Point2D ahead(end.tangent.x, end.tangent.y);
      const CCurveFoot before = curve.footOf(abeam - ahead * 1e-8);
      if (before.report != CFootReport::OnCurve || before.length < length - 0.1) continue;
      const CCurveFoot beyond = curve.footOf(abeam + ahead * 1e-8);
      EXPECT_EQ(beyond.report, CFootReport::BeyondEnd);
      EXPECT_LE(beyond.outside, 2e-7);
      if (curve.footOf(abeam + ahead * 1e-5).report == CFootReport::OnCurve) ++numOtherFeet;
    }
  }
  EXPECT_GT(numOtherFeet, 100);
}

TEST(PlaneCurveFoot, OfAnArcThatGoesRoundAgainLiesOnTheFirstRound) {
  const CPlaneCurve curve = CPlaneCurve::clothoid(-20, -20, 900);
  ASSERT_TRUE(curve.isDefined());
  EXPECT_EQ(curve.radiusAt(700), -20.0);
  EXPECT_LT((curve.at(300 + 40 * kPi).position - curve.at(300).position).length(), 1e-12);
  for (double l = 0.3; l < 120.0; l += 7.0) {
    const CCurvePoint place = curve.at(l + 80 * kPi);
    const CCurveFoot foot = curve.footOf(place.position + Ruv::rightNormal(place.tangent) * 3.0);
    EXPECT_NEAR(foot.length, l, 1e-11);
    EXPECT_NEAR(foot.lateral, 3.0, 1e-12);
  }
  EXPECT_TRUE(CPlaneCurve::clothoid(10, 10, 999).isDefined());
  EXPECT_FALSE(CPlaneCurve::clothoid(10, 10, 1001).isDefined());  // as nearly equal radii
  EXPECT_FALSE(CPlaneCurve::clothoid(10, 10.001, 1001).isDefined());
}

TEST(PlaneCurve, RefusesWhatHasNoShape) {
  const double nan = std::nan("");
  EXPECT_FALSE(CPlaneCurve().isDefined());
  EXPECT_FALSE(CPlaneCurve::arc(0.0, 10.0).isDefined());
  EXPECT_FALSE(CPlaneCurve::arc(10.0, 62.9).isDefined());
  EXPECT_TRUE(CPlaneCurve::arc(10.0, 62.8).isDefined());
  EXPECT_FALSE(CPlaneCurve::arc(nan, 10.0).isDefined());
  EXPECT_FALSE(CPlaneCurve::straight(nan).isDefined());
  EXPECT_FALSE(CPlaneCurve::clothoid(0.0, 100.0, 1e300).isDefined());
  EXPECT_FALSE(CPlaneCurve::clothoid(0.0, 1e-6, 1e3).isDefined());
  EXPECT_FALSE(CPlaneCurve::clothoid(0.0, 100.0, 0.0).isDefined());
  EXPECT_FALSE(CPlaneCurve::clothoid(nan, 100.0, 10.0).isDefined());
}

}  // namespace
