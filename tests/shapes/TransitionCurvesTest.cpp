// SPDX-License-Identifier: BSL-1.0
#include <Calculations/TransitionCurves.h>

#include "testing/Axes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace {

using Ruv::Calculations::Point2D;
using TestSupport::referencePoint;

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
  EXPECT_FALSE(curve.curvature(50, -std::numeric_limits<double>::min(), 1, out));
  for (const auto& [radius, length] : {std::pair(0.0, 100.0), {300.0, 0.0}}) {
    EXPECT_FALSE(curve.curvature(50, radius, length, out) || out != 0.0);
    EXPECT_TRUE(curve.tangentAngle(50, radius, length, out) && out == 0.0);
    EXPECT_TRUE(curve.localX(50, radius, length, out) && out == 0.0);
  }
  // Tangent angle 5: the last terms shrink, so the sum passes for converged. At 60 it does not.
  EXPECT_TRUE(curve.localX(1000, 1000, 100, out));
  EXPECT_FALSE(curve.localX(3500, 1000, 100, out));
  EXPECT_GT(std::abs(out), 1e3);
  EXPECT_FALSE(ClothoidWithTerms(-1).localX(100, 400, 100, out));
  EXPECT_EQ(out, 0.0);
  EXPECT_FALSE(ClothoidWithTerms(0).localX(100, 400, 100, out));
  EXPECT_EQ(out, 100.0);
  EXPECT_TRUE(ClothoidWithTerms(1).localX(100, 400, 100, out));
  // More terms than a double holds factorials for, after a shorter sum.
  EXPECT_TRUE(ClothoidWithTerms(2000).localY(200, 400, 100, out));
  EXPECT_NEAR(out, 0.1637140474 * 200, 1e-8);
}

}  // namespace
