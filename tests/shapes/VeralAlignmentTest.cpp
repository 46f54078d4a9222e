#include "shapes/VeralAlignment.h"

#include "shapes/TransSlopes.h"
#include "testing/Random.h"

#include <Calculations/ShapeElements.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace {

using namespace Ruv;
using namespace TestSupport;

/// The evaluation as a plain walk over the points.
std::optional<CHeightAndGrade> walk(const std::vector<CVeralPoint>& points, double s) {
  if (points.size() < 2 || s < points.front().stationing || s > points.back().stationing) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    const bool isInner = i > 0 && i + 1 < points.size();
    if (isInner && hasRoundingType(points[i])) {
      const CRoundingResult result = roundingOf(points[i - 1], points[i], points[i + 1]);
      if (!result.isComputable) return std::nullopt;
      if (result.rounding && s >= result.rounding->from && s <= result.rounding->to) {
        return result.rounding->curve.at(s);
      }
    }
    if (i > 0 && s >= points[i - 1].stationing && s <= points[i].stationing) {
      return lineBetween(points[i - 1], points[i]).at(s);
    }
  }
  return std::nullopt;
}

constexpr std::int32_t kTypes[] = {CShapeType::VerticalKink, CShapeType::VerticalArc,
                                   CShapeType::VerticalParabola,
                                   CShapeType::VerticalParabolaVariant};

/// Points whose roundings often overlap, reach beyond their neighbours or cannot be computed.
std::vector<CVeralPoint> randomPoints(Random& random) {
  std::vector<CVeralPoint> points;
  double stationing = -100.0;
  for (int i = 0; i < 30; ++i) {
    points.push_back({kTypes[random.index(4)], stationing, random.uniform(0.0, 6.0),
                      random.uniform(-400.0, 400.0)});
    if (random.index(25) != 0) stationing += random.uniform(2.0, 60.0);
  }
  return points;
}

TEST(VeralAlignment, EvaluatesLikeAPlainWalk) {
  Random random(41);
  int numFailures = 0;
  for (int round = 0; round < 200; ++round) {
    const std::vector<CVeralPoint> points = randomPoints(random);
    const CVeralAlignment alignment(points);
    std::vector<double> stationings = {points.front().stationing - 1e-9,
                                       points.back().stationing + 1e-9, 1e300, std::nan("")};
    for (std::size_t i = 0; i < points.size(); ++i) {
      stationings.push_back(points[i].stationing);
      if (const auto rounding = CVeralAlignment::roundingAt(points, i)) {
        for (const double s : {rounding->from, rounding->to}) {
          stationings.insert(stationings.end(),
                             {s, std::nextafter(s, -1e9), std::nextafter(s, 1e9)});
        }
      }
    }
    for (int i = 0; i < 50; ++i) {
      stationings.push_back(random.uniform(-100.0, points.back().stationing));
    }
    for (const double s : stationings) {
      SCOPED_TRACE(testing::Message() << "round " << round << ", stationing " << s);
      const auto actual = alignment.at(s);
      const auto expected = walk(points, s);
      ASSERT_EQ(actual.has_value(), expected.has_value());
      if (!actual) {
        ++numFailures;
        continue;
      }
      EXPECT_EQ(actual->height, expected->height);
      EXPECT_EQ(actual->grade, expected->grade);
    }
  }
  EXPECT_GT(numFailures, 1000);
}

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

// All but the kink.
INSTANTIATE_TEST_SUITE_P(Kinds, Rounding, testing::ValuesIn(kTypes + 1, kTypes + 4));

TEST(VeralAlignment, HasNoRoundingAtKinksBetweenEqualGradesOrOfRadiusZero) {
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

TEST(VeralAlignment, HasNoLengthBeyondAnUndefinedHeight) {
  const CVeralAlignment alignment({{CShapeType::VerticalKink, 0, 0, 0},
                                   {CShapeType::VerticalKink, 10, 0, 0},
                                   {CShapeType::VerticalArc, 20, 1, 50},
                                   {CShapeType::VerticalKink, 20, 5, 0}});
  EXPECT_DOUBLE_EQ(alignment.lengthAt(10.0), 10.0);
  EXPECT_TRUE(std::isnan(alignment.lengthAt(15.0)));
  EXPECT_TRUE(std::isnan(CVeralAlignment().lengthAt(0.0)));
}

TEST(TransSlopes, InterpolateBetweenTheEndsOfIntervals) {
  const CTransSlopes slopes({{0, 2}, {10, 2}, {10, -3}, {20, -3}, {30, 1}, {30, 1}});
  EXPECT_EQ(slopes.at(-0.001), 0.0);
  EXPECT_EQ(slopes.at(0.0), 2.0);
  EXPECT_EQ(slopes.at(10.0), 2.0);
  EXPECT_EQ(slopes.at(10.5), -3.0);
  EXPECT_EQ(slopes.at(25.0), -1.0);  // a gap between intervals
  EXPECT_EQ(slopes.at(30.0), 1.0);
  EXPECT_EQ(slopes.at(30.001), 0.0);
  EXPECT_EQ(CTransSlopes({{5, 7}, {5, 8}}).at(5.0), 7.0);  // an interval of length 0
  EXPECT_EQ(CTransSlopes({{5, 7}}).at(5.0), 0.0);
  EXPECT_EQ(CTransSlopes().at(0.0), 0.0);
  EXPECT_EQ(slopes.at(std::nan("")), 0.0);
}

}  // namespace
