// SPDX-License-Identifier: BSL-1.0
#include "shapes/StraightAndArc.h"

#include "shapes/PlaneCurve.h"
#include "testing/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv;
using TestSupport::kPi;

TEST(StraightAndArc, OnArcsOnlyTheNearSideHasFeet) {
  const CPlaneCurve arc = CPlaneCurve::arc(100.0, 150.0);
  EXPECT_EQ(arc.footOf(Point2D(100, 0)).length, 0.0);  // the centre
  EXPECT_EQ(arc.footOf(Point2D(100, 0)).lateral, 100.0);
  EXPECT_EQ(arc.footOf(Point2D(5, -1)).report, CFootReport::BeforeStart);
  const CCurveFoot beyond = arc.footOf(Point2D(200, -60));
  EXPECT_EQ(beyond.report, CFootReport::BeyondEnd);
  EXPECT_EQ(beyond.length, 150.0);
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

TEST(StraightAndArc, AStraightThatDriftsBackHasNoFeet) {
  const CPlaneCurve curve = CPlaneCurve::straight(0.001).drifting(Point2D(0.0, -3.0));
  for (const double ahead : {-0.01, -0.001, 0.0, 0.0005, 0.01}) {
    const CFootReport report = curve.footOf(Point2D(5.0, ahead)).report;
    EXPECT_EQ(report, ahead < 0.0 ? CFootReport::BeforeStart : CFootReport::BeyondEnd);
  }
  EXPECT_EQ(CPlaneCurve::straight(1.0).drifting({0.0, -1.0}).footOf({5.0, 0.0}).length, 0.0);
}

}  // namespace
