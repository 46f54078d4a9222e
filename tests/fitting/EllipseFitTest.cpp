// SPDX-License-Identifier: BSL-1.0
#include "fitting/Conic.h"
#include "foundation/Opened.h"
#include "testing/FitPoints.h"
#include "testing/Promises.h"

#include <Calculations/FittingHelper.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

struct FitOnce {
  using Member = bool (*)(const std::vector<Point2D>&, std::vector<bool>, FittingResult&,
                          std::vector<double>&);
  friend Member memberOf(FitOnce name);
};
template struct Opened<FitOnce, &FittingHelper::ellipseFitFitzgibbonInternal>;

}  // namespace Calculations
}  // namespace Ruv

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

FittingResult ellipse(const Point2D& center, double a, double b, double rotation) {
  return FittingResult(FittingMethod::EllipseFitzgibbon, center, a, b, rotation);
}

void expectEllipse(const FittingResult& result, const FittingResult& expected, double tolerance) {
  EXPECT_NEAR(result.center.x, expected.center.x, tolerance);
  EXPECT_NEAR(result.center.y, expected.center.y, tolerance);
  EXPECT_NEAR(result.semiAxisA, expected.semiAxisA, tolerance);
  EXPECT_NEAR(result.semiAxisB, expected.semiAxisB, tolerance);
  EXPECT_EQ(result.radius, 0.0);
  EXPECT_GT(result.rotation, -kPi / 2);
  EXPECT_LE(result.rotation, kPi / 2);
  // An axis has no sense: directions a half turn apart are one.
  const double difference = std::remainder(result.rotation - expected.rotation, kPi);
  EXPECT_NEAR(difference * (expected.semiAxisA - expected.semiAxisB), 0.0, tolerance);
}

FittingResult goldenEllipse(const CsvRow& row, const std::string& prefix) {
  return ellipse(Point2D(row.number(prefix + "center_x"), row.number(prefix + "center_y")),
                 row.number(prefix + "semi_axis_a"), row.number(prefix + "semi_axis_b"),
                 row.number(prefix + "rotation"));
}

/// What a fit leaves of its points when it rejects the one of this index, or none for an empty
/// text.
std::vector<bool> usedBut(const std::string& rejected, std::size_t count) {
  std::vector<bool> used(count, true);
  if (!rejected.empty()) used.at(std::stoul(rejected)) = false;
  return used;
}

TEST(EllipseFit, FindsTheGoldenEllipses) {
  for (const CsvRow& row : rowsOf("fits/ellipses_expected.csv")) {
    SCOPED_TRACE(row.text("case"));
    const Points points = goldenPoints(row);
    const double tolerance = 1e-12 * row.number("semi_axis_a");
    std::vector<bool> used;
    const FittingResult once = FittingHelper::ellipseFitFitzgibbon(points, used, 1);
    expectEllipse(once, goldenEllipse(row, ""), tolerance);
    const FittingResult iterated = FittingHelper::ellipseFitFitzgibbon(points, used, 10);
    expectEllipse(iterated, goldenEllipse(row, "iterated_"), tolerance);
    EXPECT_EQ(used, usedBut(row.text("iterated_rejected"), points.size()));
  }
}

TEST(EllipseFit, ReproducesExactEllipsesOfAnySizeAlsoFarFromTheOrigin) {
  for (const double offset : {0.0, 2e2, 2e4}) {
    for (const double a : {1e-15, 5.0, 1e15}) {
      for (const int count : {5, 37, 1000}) {
        for (int tenths = -15; tenths < 16; tenths += 3) {
          SCOPED_TRACE(testing::Message()
                       << a << ", " << count << ", " << tenths << ", " << offset);
          const double rotation = 0.1 * tenths;
          const double b = a * (count == 5 ? 0.98 : 0.1);
          const Point2D center = Point2D(0.4 + offset, 0.2 - offset) * a;
          std::vector<bool> used;
          const FittingResult result = FittingHelper::ellipseFitFitzgibbon(
              ellipsePoints(center, a, b, rotation, count), used, 10);
          expectEllipse(result, ellipse(center, a, b, rotation), Promise::kFit * a);
          // The residuals are rounding noise, of which a part exceeds three times the mean.
          EXPECT_EQ(used, usedBut("", used.size()));
        }
      }
    }
  }
}

/// The rounding of coordinates weighs a/b times as much there as in relation to the residual's
/// terms.
TEST(EllipseFit, RejectsNoPointOfAThinEllipseFarFromTheOrigin) {
  for (int k = 0; k < 60; ++k) {
    const Point2D center(-2e4 - 0.37 * k, 1.8e4 + k / 3.0);
    std::vector<bool> used;
    FittingHelper::ellipseFitFitzgibbon(ellipsePoints(center, 1.0, 0.05, 0.05 * k, 1000), used, 10);
    EXPECT_EQ(used, usedBut("", used.size())) << k;
  }
}

TEST(Conic, MagnitudeIsThatOfAllTerms) {
  const Conic conic{0.3, -0.7, -0.9, 0.2, -0.5, -1.1};
  const Conic positive{0.3, 0.7, 0.9, 0.2, 0.5, 1.1};
  EXPECT_NEAR(magnitudeAt(conic, -3.0, 0.5), valueAt(positive, 3.0, 0.5), 1e-12);
}

TEST(Conic, SlopeIsTheGradientOfItsValue) {
  const Conic conic{0.3, -0.7, 0.9, 0.2, -0.5, -1.1};
  for (const Point2D p : {Point2D(0, 0), Point2D(1, 2), Point2D(-3, 0.5)}) {
    constexpr double kStep = 0.5;  // central differences of a square have no error
    const double alongU = valueAt(conic, p.x + kStep, p.y) - valueAt(conic, p.x - kStep, p.y);
    const double alongV = valueAt(conic, p.x, p.y + kStep) - valueAt(conic, p.x, p.y - kStep);
    EXPECT_NEAR(slopeAt(conic, p.x, p.y), std::hypot(alongU, alongV), 1e-12);
  }
  EXPECT_NEAR(valueAt(conic, -3, 0.5), 2.7 + 1.05 + 0.225 - 0.6 - 0.25 - 1.1, 1e-12);
  EXPECT_NEAR(magnitudeAt(conic, -3, 0.5), 2.7 + 1.05 + 0.225 + 0.6 + 0.25 + 1.1, 1e-12);
}

TEST(EllipseFit, DropsOutliersInTheNextRound) {
  Points points = ellipsePoints(Point2D(2, 1), 5, 3, 0.3, 40);
  points[11] = points[11] + Point2D(0, 4);
  std::vector<bool> used(3, false);
  const FittingResult once = FittingHelper::ellipseFitFitzgibbon(points, used, 1);
  EXPECT_EQ(once.method, FittingMethod::EllipseFitzgibbon);
  EXPECT_EQ(used, usedBut("11", 40));
  EXPECT_GT(std::abs(once.semiAxisB - 3), 0.1);  // still bent by it
  FittingResult inner = ellipse(Point2D(), 0, 0, 0);
  std::vector<double> residuals;
  EXPECT_TRUE(memberOf(FitOnce())(points, usedBut("", 40), inner, residuals));
  expectEllipse(inner, once, 0.0);
  EXPECT_GT(residuals.at(11), 3.0 * std::accumulate(residuals.begin(), residuals.end(), 0.0) / 40);
  const FittingResult iterated = FittingHelper::ellipseFitFitzgibbon(points, used, 10);
  EXPECT_EQ(iterated.method, FittingMethod::EllipseFitzgibbonIterative);
  EXPECT_EQ(used, usedBut("11", 40));
  expectEllipse(iterated, ellipse(Point2D(2, 1), 5, 3, 0.3), 1e-12);
  // Six points are enough to go on with.
  Points few = ellipsePoints(Point2D(2, 1), 5, 3, 0.3, 7);
  few[5].y += 4;
  expectEllipse(FittingHelper::ellipseFitFitzgibbon(few, used, 10), iterated, 1e-12);
}

TEST(EllipseFit, RoundsRejectByTheMeanOfAllPoints) {
  for (const std::size_t count : {8u, 30u, 300u, 3000u}) {
    Points points = ellipsePoints(Point2D(2, 1), 5, 3, 0.3, static_cast<int>(count), 0.8, 0.01);
    // Outliers of all sizes, so that some lie close to the limit.
    for (std::size_t i = 2; i < count; i += 7) {
      points[i].x += 0.0002 * static_cast<double>(i % 997);
    }
    for (const int rounds : {1, 2, 3, 10}) {
      SCOPED_TRACE(testing::Message() << count << " points, " << rounds << " rounds");
      std::vector<bool> expectedUsed(count, true);
      FittingResult expected = ellipse(Point2D(), 0, 0, 0);
      std::vector<double> residuals;
      for (int round = 0; round < rounds; ++round) {
        ASSERT_TRUE(memberOf(FitOnce())(points, expectedUsed, expected, residuals));
        const double sum = std::accumulate(residuals.begin(), residuals.end(), 0.0);
        for (std::size_t i = 0; i < count; ++i) {
          if (residuals[i] > 3.0 * sum / static_cast<double>(count)) expectedUsed[i] = false;
        }
      }
      std::vector<bool> used;
      const FittingResult result = FittingHelper::ellipseFitFitzgibbon(points, used, rounds);
      EXPECT_EQ(used, expectedUsed);
      EXPECT_EQ(result.method, rounds < 2 ? 3 : 4);
      expectEllipse(result, expected, 1e-12);
    }
  }
}

TEST(EllipseFit, RoundsEndWithTheLastEllipseThatThereIs) {
  std::vector<bool> used;
  // Two points close together are rejected at once; five are enough for another round.
  const Points seven = {{6, 8}, {7, 9}, {-3, -7}, {-9, -4}, {-6, 3}, {7, -1}, {-6, -7}};
  const FittingResult ofFive =
      FittingHelper::ellipseFitFitzgibbon(Points(seven.begin() + 2, seven.end()), used, 1);
  expectEllipse(FittingHelper::ellipseFitFitzgibbon(seven, used, 10), ofFive, 1e-9);
  EXPECT_EQ(used, std::vector<bool>({false, false, true, true, true, true, true}));
  // Of two parallel lines there is none.
  Points ladder = {{2, 3}};
  for (int i = 0; i < 20; ++i) {
    ladder.insert(ladder.end(), {Point2D(i, 0), Point2D(i, 1)});
  }
  const FittingResult ofAll = FittingHelper::ellipseFitFitzgibbon(ladder, used, 1);
  EXPECT_GT(ofAll.semiAxisB, 1.0);
  expectEllipse(FittingHelper::ellipseFitFitzgibbon(ladder, used, 10), ofAll, 0.0);
  EXPECT_EQ(used, usedBut("0", used.size()));
}

/// The fourth point alone is on its side of the ellipse: its distance is three times the mean.
TEST(EllipseFit, RoundingDoesNotRejectOneOfSixPoints) {
  for (const double shift : {0.0, 1.0, 1000.0, 2000.0, 3000.0}) {
    Points points = {{2, -1}, {-2, -2}, {-1, -3}, {0, 0}, {-1, 1}, {1, 3}};
    for (int quarter = 0; quarter < 4; ++quarter) {
      for (Point2D& p : points) {
        p = Point2D(shift - p.y, p.x);
      }
      std::vector<bool> used;
      FittingHelper::ellipseFitFitzgibbon(points, used, 10);
      EXPECT_EQ(used, usedBut("", points.size())) << shift << ", " << quarter;
    }
  }
}

TEST(EllipseFit, TwoParallelLinesAndParabolasAreNoEllipse) {
  Random random(47);
  for (int run = 0; run < 400; ++run) {
    Points points;
    for (int i = 0; i < 8; ++i) {
      const double y = static_cast<double>(random.index(13)) - 6.0 + i / 8.0;
      points.emplace_back(run % 2 == 0 ? y * y : 3.0 - 6.0 * (i % 2), y);
      if (run % 4 > 1) std::swap(points.back().x, points.back().y);
    }
    std::vector<bool> used;
    EXPECT_EQ(FittingHelper::ellipseFitFitzgibbon(points, used, 1).semiAxisA, 0.0) << run;
  }
}

/// The best conic of all is the hyperbola itself; only ellipses count.
TEST(EllipseFit, PointsOfAHyperbolaGiveAnEllipse) {
  for (int k = 0; k < 40; ++k) {
    Points points;
    for (int i = -10; i <= 10; ++i) {
      points.push_back(turned({std::cosh(0.2 * i), 0.9 * std::sinh(0.2 * i)}, 0.16 * k));
    }
    std::vector<bool> used;
    const FittingResult fit = FittingHelper::ellipseFitFitzgibbon(points, used, 1);
    EXPECT_GT(fit.semiAxisB, 0.0) << k;
    EXPECT_GE(fit.semiAxisA, fit.semiAxisB) << k;
  }
}

/// Of 22 points the equation was that of a pair of lines, 4 xx yy - xy^2 being 0 but for
/// rounding.
TEST(EllipseFit, PointsInThreePlacesGiveAnEllipseOrZeros) {
  for (std::size_t count = 5; count < 60; ++count) {
    Points points(count, Point2D(-7.6666666666666661, -7.6666666666666661));
    points[count - 2].y = -10.0;
    points[count - 1] = Point2D(-10, -10);
    std::vector<bool> used;
    const FittingResult fit = FittingHelper::ellipseFitFitzgibbon(points, used, 1);
    EXPECT_TRUE(std::isfinite(fit.semiAxisA + fit.semiAxisB + fit.center.x + fit.center.y))
        << count;
  }
}

TEST(EllipseFit, PointsOfNoEllipseGiveZeros) {
  std::vector<Points> cases = pointsOfNoCurve();
  cases.push_back(ellipsePoints(Point2D(2, 1), 5, 3, 0.3, 4));
  cases.push_back(ellipsePoints(Point2D(2, 1), 5, 3, 0.3, 20));  // without a round
  for (const Points& points : cases) {
    SCOPED_TRACE(testing::Message() << points.size() << " points");
    const bool isSound = &points == &cases.back();
    std::vector<bool> used;
    const FittingResult r = FittingHelper::ellipseFitFitzgibbon(points, used, isSound ? 0 : 10);
    EXPECT_EQ(r.method, isSound ? 3 : 4);
    EXPECT_EQ(std::abs(r.center.x) + std::abs(r.semiAxisA) + std::abs(r.rotation), 0.0);
    EXPECT_EQ(used, usedBut("", points.size()));
  }
}

}  // namespace
