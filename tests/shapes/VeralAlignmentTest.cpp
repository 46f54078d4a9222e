// SPDX-License-Identifier: BSL-1.0
#include "shapes/VeralAlignment.h"

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

TEST(VeralAlignment, HasNoLengthBeyondAnUndefinedHeight) {
  const CVeralAlignment alignment({{CShapeType::VerticalKink, 0, 0, 0},
                                   {CShapeType::VerticalKink, 10, 0, 0},
                                   {CShapeType::VerticalArc, 20, 1, 50},
                                   {CShapeType::VerticalKink, 20, 5, 0}});
  EXPECT_DOUBLE_EQ(alignment.lengthAt(10.0), 10.0);
  EXPECT_TRUE(std::isnan(alignment.lengthAt(15.0)));
  EXPECT_TRUE(std::isnan(CVeralAlignment().lengthAt(0.0)));
  EXPECT_TRUE(std::isnan(CVeralAlignment().stationingAtLength(-1.0)));
}

}  // namespace
