#include "shapes/PlaneCurve.h"

#include "shapes/FootSearch.h"
#include "testing/Axes.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <Calculations/TransitionCurves.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace {

using Ruv::CCurveFoot;
using Ruv::CCurvePoint;
using Ruv::CFootReport;
using Ruv::CPlaneCurve;
using Ruv::Calculations::Point2D;
using namespace TestSupport;

double curvatureOf(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

struct CurveCase {
  double radiusStart, radiusEnd, length;
};

/// Straights and arcs, also nearly a full circle; into, out of and between curves; curves of both
/// senses; nearly equal radii; almost 2 rad from a straight; many turns, of one radius too;
/// kilometres.
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
                             {20, 30, 900},
                             {0, -2500, 4000},
                             {12, 12, 100}};

class PlaneCurve : public testing::TestWithParam<CurveCase> {};

TEST_P(PlaneCurve, FollowsItsLinearCurvature) {
  const CurveCase& c = GetParam();
  const CPlaneCurve curve = CPlaneCurve::clothoid(c.radiusStart, c.radiusEnd, c.length);
  ASSERT_TRUE(curve.isDefined());
  const double k0 = curvatureOf(c.radiusStart);
  const double k1 = curvatureOf(c.radiusEnd);
  for (int i = 0; i <= 16; ++i) {
    const double l = c.length * i / 16;
    SCOPED_TRACE(l);
    const CCurvePoint point = curve.at(l);
    EXPECT_LT((point.position - referencePoint(k0, k1, c.length, l)).length(), 1e-11);
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
  for (int i = 1; i <= kSteps; ++i) {
    if (distanceAt(step * i) < distanceAt(step * best)) best = i;
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

TEST(PlaneCurveFoot, OnArcsCountsOnlyTheNearSide) {
  const CPlaneCurve arc = CPlaneCurve::arc(100.0, 150.0);
  EXPECT_EQ(arc.footOf(Point2D(100, 0)).length, 0.0);  // the centre
  EXPECT_EQ(arc.footOf(Point2D(100, 0)).lateral, 100.0);
  EXPECT_EQ(arc.footOf(Point2D(5, -1)).report, CFootReport::BeforeStart);
  EXPECT_EQ(arc.footOf(Point2D(200, -60)).report, CFootReport::BeyondEnd);
  // On the far side the gap between the ends is halved.
  const double opposite = 0.75 + kPi;
  const auto around = [](double turning) {
    return Point2D(100 - 90 * std::cos(turning), 90 * std::sin(turning));
  };
  EXPECT_EQ(arc.footOf(around(opposite - 0.01)).report, CFootReport::BeyondEnd);
  EXPECT_EQ(arc.footOf(around(opposite + 0.01)).report, CFootReport::BeforeStart);
  const CPlaneCurve circle = CPlaneCurve::arc(-15.0, 2 * kPi * 15.0);
  for (double bearing = 0.05; bearing < 6.3; bearing += 0.1) {
    const Point2D p(-15 + 17 * std::cos(bearing), 17 * std::sin(bearing));
    const CCurveFoot foot = circle.footOf(p);
    EXPECT_NEAR(foot.length, 15 * bearing, 1e-12);
    EXPECT_NEAR(foot.lateral, 2.0, 1e-13);
  }
}

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

TEST(PlaneCurveFoot, OnAStraightThatDriftsBackIsNone) {
  const CPlaneCurve curve = CPlaneCurve::straight(0.001).drifting(Point2D(0.0, -3.0));
  for (const double ahead : {-0.01, -0.001, 0.0, 0.0005, 0.01}) {
    const CFootReport report = curve.footOf(Point2D(5.0, ahead)).report;
    EXPECT_EQ(report, ahead < 0.0 ? CFootReport::BeforeStart : CFootReport::BeyondEnd);
  }
  EXPECT_EQ(CPlaneCurve::straight(1.0).drifting({0.0, -1.0}).footOf({5.0, 0.0}).length, 0.0);
}

TEST(FootSearch, StaysBetweenItsEndsWhenDistancesOverflow) {
  const double infinity = std::numeric_limits<double>::infinity();
  const auto forwardAt = [&](double place) {
    EXPECT_TRUE(place >= 3.0 && place <= 5.0);
    return Ruv::CForwardDistance{place < 4.0 ? infinity : -infinity, -1.0};
  };
  EXPECT_NEAR(Ruv::footBetween(forwardAt, {3.0, forwardAt(3.0)}, {5.0, forwardAt(5.0)}), 4.0, 1e-9);
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

/// A kind that only has a name.
class NamedCurve : public Ruv::CTransitionCurve {
 public:
  const std::string& name() const override { return m_name; }

 private:
  std::string m_name = "named";
};

TEST(TransitionCurve, HasNoShapeOfItsOwn) {
  const NamedCurve curve;
  EXPECT_EQ(curve.numberOfTerms(), 12);
  using Operation = bool (Ruv::CTransitionCurve::*)(double, double, double, double&) const;
  const Operation operations[] = {&Ruv::CTransitionCurve::curvature,
                                  &Ruv::CTransitionCurve::tangentAngle,
                                  &Ruv::CTransitionCurve::localX, &Ruv::CTransitionCurve::localY};
  for (const Operation operation : operations) {
    double out = 7.0;
    EXPECT_FALSE((curve.*operation)(50, 400, 100, out));
    EXPECT_EQ(out, 0.0);
  }
}

/// A curve with another number of series terms.
class ClothoidWithTerms : public Ruv::CClothoidCurve {
 public:
  explicit ClothoidWithTerms(int lastTerm) : m_lastTerm(lastTerm) {}
  int numberOfTerms() const override { return m_lastTerm; }

 private:
  int m_lastTerm;
};

TEST(ClothoidCurve, EvaluatesMagnitudesInItsOwnFrame) {
  const Ruv::CClothoidCurve curve;
  EXPECT_EQ(curve.name(), "clothoid");
  EXPECT_EQ(curve.numberOfTerms(), 12);
  double out = -1.0;
  EXPECT_TRUE(curve.tangentAngle(100, 400, 100, out));
  EXPECT_DOUBLE_EQ(out, 0.125);
  EXPECT_TRUE(curve.curvature(-50, 400, 100, out));
  EXPECT_DOUBLE_EQ(out, 0.00125);
  // Signs are the caller's.
  for (const double l : {250.0, -250.0}) {
    const Point2D expected = referencePoint(0.0, 1 / 90.0, 250.0, 250.0);
    EXPECT_TRUE(curve.localX(l, -90, 250, out));
    EXPECT_NEAR(out, expected.y, 1e-10);
    EXPECT_TRUE(curve.localY(l, -90, 250, out));
    EXPECT_NEAR(out, expected.x, 1e-10);
  }
}

TEST(ClothoidCurve, FlagsZeroProductsAndGrowingTerms) {
  const Ruv::CClothoidCurve curve;
  double out = -1.0;
  EXPECT_FALSE(curve.curvature(50, 0, 100, out));
  EXPECT_EQ(out, 0.0);
  EXPECT_FALSE(curve.curvature(50, -std::numeric_limits<double>::min(), 1, out));
  EXPECT_TRUE(curve.tangentAngle(50, 0, 100, out) && out == 0.0);
  EXPECT_TRUE(curve.localX(50, 0, 100, out) && out == 0.0);
  // Tangent angle 5: the last terms shrink, so the sum passes for converged. At 60 it does not.
  EXPECT_TRUE(curve.localX(1000, 1000, 100, out));
  EXPECT_FALSE(curve.localX(3500, 1000, 100, out));
  EXPECT_GT(std::abs(out), 1e3);
  EXPECT_FALSE(ClothoidWithTerms(-1).localX(100, 400, 100, out));
  EXPECT_EQ(out, 0.0);
  EXPECT_FALSE(ClothoidWithTerms(0).localX(100, 400, 100, out));
  EXPECT_EQ(out, 100.0);
  // More terms than a double holds factorials for, after a shorter sum.
  EXPECT_TRUE(ClothoidWithTerms(2000).localY(200, 400, 100, out));
  EXPECT_NEAR(out, 0.1637140474 * 200, 1e-8);
}

}  // namespace
