#include "fitting/PointFrame.h"
#include "testing/FitPoints.h"

#include <Calculations/FittingHelper.h>

#include <gtest/gtest.h>
#include <Eigen/Dense>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

Points circlePoints(const Point2D& center, double r, int count, double turns = 1.0,
                    double noise = 0.0) {
  return ellipsePoints(center, r, r, 0.0, count, turns, noise);
}

void expectCircle(const FittingResult& result, FittingMethod::Method method, const Point2D& center,
                  double radius, double tolerance) {
  EXPECT_EQ(result.method, method);
  EXPECT_NEAR(result.center.x, center.x, tolerance);
  EXPECT_NEAR(result.center.y, center.y, tolerance);
  EXPECT_NEAR(result.radius, radius, tolerance);
  EXPECT_EQ(result.semiAxisB, result.radius);
}

void expectDirectFits(const Points& points, const Point2D& center, double r, double tolerance) {
  expectCircle(FittingHelper::circleFitKasa(points), FittingMethod::CircleKasa, center, r,
               tolerance);
  expectCircle(FittingHelper::circleFitLandau(points), FittingMethod::CircleLandau, center, r,
               tolerance);
}

TEST(CircleFit, FindsTheGoldenCircles) {
  for (const CsvRow& row : rowsOf("fits/circles_expected.csv")) {
    SCOPED_TRACE(row.text("case"));
    expectDirectFits(goldenPoints(row), Point2D(row.number("center_x"), row.number("center_y")),
                     row.number("radius_rms"), 1e-10);
  }
}

TEST(CircleFit, ReproducesExactCirclesOfAnySizeAlsoFarFromTheOrigin) {
  for (const double offset : {0.0, 1e3, 1e5}) {
    for (const double turns : {1.0, 0.5}) {
      for (const int count : {3, 12, 500, 20000}) {
        for (const double scale : {1e-15, 1.0, 1e15}) {
          SCOPED_TRACE(testing::Message()
                       << count << ", " << turns << ", " << offset << ", " << scale);
          const Point2D center = Point2D(3 + offset, -2 - offset) * scale;
          const Points points = circlePoints(center, 5 * scale, count, turns);
          expectDirectFits(points, center, 5 * scale, 5e-10 * scale);
        }
      }
    }
  }
  // An arc of half a degree, which rises a thousandth of its chord, and one of a fiftieth.
  expectDirectFits(circlePoints(Point2D(0, 0), 5, 300, 0.5 / 360), Point2D(0, 0), 5, 1e-7);
  expectDirectFits(circlePoints(Point2D(0, 0), 5, 300, 0.02 / 360), Point2D(0, 0), 5, 1e-4);
}

/// Block by block, rounding adds up: without refinement 5e-14 was seen, with it less than an ulp.
TEST(CircleFit, KasaKeepsAllDigitsOfManyPoints) {
  expectCircle(FittingHelper::circleFitKasa(circlePoints(Point2D(3, -2), 5, 1000000)),
               FittingMethod::CircleKasa, Point2D(3, -2), 5, 2e-15);
}

TEST(PointFrame, HasItsOriginInTheCentroidAndAUnitOfTheSpread) {
  const Point2D corner(3500000, 5800000);
  constexpr double kSize = 1.0 / 1024;  // squares of the coordinates would swallow it
  const Points points = {corner, corner + Point2D(3 * kSize, 0),
                         corner + Point2D(3 * kSize, 4 * kSize), corner + Point2D(0, 4 * kSize),
                         corner + Point2D(60 * kSize, 2 * kSize)};
  for (const bool usesAll : {true, false}) {
    const PointFrame frame = frameOf(
        usesAll ? PointSubset(points) : PointSubset(points, {true, true, true, true, false}));
    EXPECT_EQ(frame.count, usesAll ? 5u : 4u);
    EXPECT_NEAR(frame.origin.x - corner.x, (usesAll ? 13.2 : 1.5) * kSize, 1e-9);
    EXPECT_NEAR(frame.origin.y - corner.y, 2 * kSize, 1e-9);
    EXPECT_EQ(frame.unit, (usesAll ? 16 : 2) * kSize);  // below 23.5 and 2.5, root mean square
    const Point2D restored = frame.restored(frame.reduced(points[1]));
    EXPECT_NEAR(restored.x, points[1].x, 1e-9);
    EXPECT_NEAR(restored.y, points[1].y, 1e-9);
  }
  EXPECT_EQ(frameOf(PointSubset(Points(3, Point2D(5, 5)))).unit, 1.0);
}

TEST(CircleFit, PointsOfNoCircleGiveNoNumbers) {
  for (const Points& points : pointsOfNoCurve()) {
    EXPECT_FALSE(std::isfinite(FittingHelper::circleFitKasa(points).radius)) << points.size();
    EXPECT_FALSE(std::isfinite(FittingHelper::circleFitLandau(points).radius)) << points.size();
  }
}

/// Sums relative to a first point that stands alone lose most of their digits: a radius of 18 m
/// came out of them.
TEST(CircleFit, TwoPlacesOfWhichOneIsTakenOnceGiveNoNumbers) {
  for (const std::size_t count : {3u, 26u, 1000u}) {
    Points points(count, Point2D(-10, -10));
    points.front() = Point2D(1.0003, 2.0003);
    EXPECT_FALSE(std::isfinite(FittingHelper::circleFitKasa(points).radius)) << count;
    EXPECT_FALSE(std::isfinite(FittingHelper::circleFitLandau(points).radius)) << count;
  }
}

double determinant(const Eigen::Matrix3d& m) {
  return m(0, 0) * (m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1)) -
         m(0, 1) * (m(1, 0) * m(2, 2) - m(1, 2) * m(2, 0)) +
         m(0, 2) * (m(1, 0) * m(2, 1) - m(1, 1) * m(2, 0));
}

/// The damped iteration with a Jacobian, row by row. Gives a, b, r.
Eigen::Vector3d plainIteration(const Points& points) {
  Eigen::Vector3d circle(0.0, 0.0, 1.0);
  for (int count = 0; count < 1000; ++count) {
    Eigen::Matrix3d normal = Eigen::Matrix3d::Zero();
    Eigen::Vector3d right = Eigen::Vector3d::Zero();
    for (const Point2D& p : points) {
      const double dx = p.x - circle(0);
      const double dy = p.y - circle(1);
      const Eigen::Vector3d row(-2 * dx, -2 * dy, -2 * circle(2));
      normal += row * row.transpose();
      right -= row * (dx * dx + dy * dy - circle(2) * circle(2));
    }
    const double det = determinant(normal);
    bool isConverged = true;
    for (int k = 0; k < 3; ++k) {
      Eigen::Matrix3d replaced = normal;
      replaced.col(k) = right;
      const double delta = determinant(replaced) / (det == 0.0 ? 1e-5 : det);
      circle(k) += delta / 4;
      isConverged = isConverged && std::abs(delta) < 1e-5;
    }
    if (isConverged) break;
  }
  return circle;
}

TEST(LegacyCircleFit, HasTheIteratesOfThePlainIteration) {
  std::vector<Points> cases = {
      circlePoints(Point2D(3, -2), 5.5, 12, 1.0, 0.005),
      circlePoints(Point2D(3, -2), 5.5, 1001, 0.7, 0.005), circlePoints(Point2D(0, 0), 0.01, 50),
      // One unknown is still on its way down when the others have arrived.
      circlePoints(Point2D(-0.3, 0), 1, 40), circlePoints(Point2D(0, -0.3), 1, 40)};
  // Far away the iterates depend on every rounding; some cases end with the greatest number of
  // steps, some with no numbers.
  for (const double offset : {300.0, 3e3, 1e4, 3e4, 1e5, 6e5}) {
    for (const double turns : {1.0, 0.1, 0.01}) {
      cases.push_back(circlePoints(Point2D(offset, -0.5 * offset), 5, 40, turns));
    }
  }
  for (const Points& points : cases) {
    const Eigen::Vector3d expected = plainIteration(points);
    const FittingResult result = FittingHelper::circleFitRuvLegacy(points);
    EXPECT_EQ(std::isnan(result.radius), std::isnan(expected(2)));
    if (std::isnan(result.radius)) continue;
    expectCircle(result, FittingMethod::CircleLegacy, Point2D(expected(0), expected(1)),
                 expected(2), 0.0);
  }
}

TEST(LegacyCircleFit, ConvergesFromTwelvePointsOn) {
  Points points = circlePoints(Point2D(3, -2), 5, 12);
  const FittingResult circle = FittingHelper::circleFitRuvLegacy(points);
  expectCircle(circle, FittingMethod::CircleLegacy, Point2D(3, -2), 5, 1e-5);
  const Point2D centroid = (Point2D(3, -2) * 12.0 - points.back()) / 11.0;
  points.pop_back();
  const FittingResult tooFew = FittingHelper::circleFitRuvLegacy(points);
  expectCircle(tooFew, FittingMethod::CircleLegacy, centroid, 0.0, 1e-14);
  EXPECT_TRUE(std::isnan(FittingHelper::circleFitRuvLegacy({}).center.x));
  // The determinant is exactly zero, and so are the steps.
  EXPECT_EQ(FittingHelper::circleFitRuvLegacy(Points(12, Point2D())).radius, 1.0);
}

}  // namespace
