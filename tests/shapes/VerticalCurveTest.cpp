// SPDX-License-Identifier: BSL-1.0
#include "shapes/VerticalCurve.h"

#include "testing/Random.h"

#include <Calculations/ShapeElements.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

namespace {

using namespace Ruv;
using namespace TestSupport;

class Rounding : public testing::TestWithParam<std::int32_t> {};

TEST_P(Rounding, MeetsBothGradeLinesWithHeightAndGrade) {
  Random random(42);
  for (int i = 0; i < 300; ++i) {
    const double radius = std::pow(10.0, random.uniform(2.0, 6.0));
    const double grade = random.uniform(-0.5, 0.5);
    const double next = grade + random.uniform(-40.0, 40.0) / radius;
    const CVeralPoint before{CShapeType::VerticalKink, 1e5, 500.0, 0.0};
    const CVeralPoint point{GetParam(), 1e5 + 100, 500.0 + 100 * grade, radius};
    const CVeralPoint after{CShapeType::VerticalKink, 1e5 + 200, point.height + 100 * next, 0.0};
    const CRoundingResult result = roundingOf(before, point, after);
    ASSERT_TRUE(result.isComputable && result.rounding);
    for (const double s : {result.rounding->from, result.rounding->to}) {
      const auto onCurve = result.rounding->curve.at(s);
      const auto onLine =
          (s < point.stationing ? lineBetween(before, point) : lineBetween(point, after)).at(s);
      ASSERT_TRUE(onCurve);
      EXPECT_NEAR(onCurve->height, onLine->height, 1e-10);
      EXPECT_NEAR(onCurve->grade, onLine->grade, 1e-12);
    }
    // Curvature over the stationing, or along the curve for the circle.
    const double middle = (result.rounding->from + result.rounding->to) / 2;
    const auto place = result.rounding->curve.at(middle);
    const double stretch =
        GetParam() == CShapeType::VerticalArc ? std::pow(1 + place->grade * place->grade, 1.5) : 1;
    EXPECT_NEAR(place->gradeChange * radius / stretch, next > grade ? 1.0 : -1.0, 1e-9);
    // The sign of the value says nothing.
    CVeralPoint negative = point;
    negative.roundingValue = -radius;
    EXPECT_EQ(roundingOf(before, negative, after).rounding->curve.at(middle)->height,
              place->height);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Rounding,
                         testing::Values(CShapeType::VerticalArc, CShapeType::VerticalParabola,
                                         CShapeType::VerticalParabolaVariant),
                         [](const auto& test) {
                           return std::string(test.param == CShapeType::VerticalArc ? "Arc"
                                              : test.param == CShapeType::VerticalParabola
                                                  ? "Parabola"
                                                  : "ParabolaVariant");
                         });

TEST(VerticalCurve, IsNoneAtKinksBetweenEqualGradesOrOfRadiusZero) {
  EXPECT_FALSE(hasRoundingType({CShapeType::VerticalKink, 10, 1, 500}));
  const CVeralPoint before{CShapeType::VerticalKink, 0, 0, 0};
  const CVeralPoint after{CShapeType::VerticalKink, 20, 2, 0};
  const auto roundingBy = [&](double stationing, double height, double radius) {
    return roundingOf(before, {CShapeType::VerticalArc, stationing, height, radius}, after);
  };
  for (const CRoundingResult& result : {roundingBy(10, 1, 500), roundingBy(10, 2, 0.0)}) {
    EXPECT_TRUE(result.isComputable && !result.rounding);
  }
  EXPECT_FALSE(roundingBy(0, 1, 500).isComputable);
  EXPECT_FALSE(roundingBy(10, std::nan(""), 500).isComputable);
  EXPECT_FALSE(lineBetween(before, {CShapeType::VerticalKink, 1e-39, 0, 0}).at(0.0));
}

}  // namespace
