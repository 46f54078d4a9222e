// SPDX-License-Identifier: BSL-1.0
#include "fitting/Circles.h"

#include <gtest/gtest.h>
#include <Eigen/Core>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

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

TEST(CircleFitLegacy, HasTheIteratesOfThePlainIteration) {
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

TEST(CircleFitLegacy, ConvergesFromTwelvePointsOn) {
  Points points = circlePoints(Point2D(3, -2), 5, 12);
  const FittingResult circle = FittingHelper::circleFitRuvLegacy(points);
  expectCircle(circle, FittingMethod::CircleLegacy, Point2D(3, -2), 5, Promise::kLegacyCircle);
  const Point2D centroid = (Point2D(3, -2) * 12.0 - points.back()) / 11.0;
  points.pop_back();
  const FittingResult tooFew = FittingHelper::circleFitRuvLegacy(points);
  expectCircle(tooFew, FittingMethod::CircleLegacy, centroid, 0.0, 1e-14);
  EXPECT_TRUE(std::isnan(FittingHelper::circleFitRuvLegacy({}).center.x));
  // The determinant is exactly zero, and so are the steps.
  EXPECT_EQ(FittingHelper::circleFitRuvLegacy(Points(12, Point2D())).radius, 1.0);
}

}  // namespace
