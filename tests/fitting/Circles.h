// SPDX-License-Identifier: BSL-1.0
/// @file
/// Circles to fit, and what the two direct fits promise alike.

#ifndef CALCULATIONS_TESTS_FITTING_CIRCLES_H
#define CALCULATIONS_TESTS_FITTING_CIRCLES_H

#include "testing/FitPoints.h"
#include "testing/Promises.h"

#include <Calculations/FittingHelper.h>

#include <gtest/gtest.h>

#include <cmath>

namespace TestSupport {

using Ruv::Calculations::FittingMethod;
using Ruv::Calculations::FittingResult;

inline Points circlePoints(const Point2D& center, double r, int count, double turns = 1.0,
                           double noise = 0.0) {
  return ellipsePoints(center, r, r, 0.0, count, turns, noise);
}

inline void expectCircle(const FittingResult& result, FittingMethod::Method method,
                         const Point2D& center, double radius, double tolerance) {
  EXPECT_EQ(result.method, method);
  EXPECT_NEAR(result.center.x, center.x, tolerance);
  EXPECT_NEAR(result.center.y, center.y, tolerance);
  EXPECT_NEAR(result.radius, radius, tolerance);
  EXPECT_EQ(result.semiAxisB, result.radius);
}

/// Minimises the sum of squared differences of squared distances in closed form.
struct DirectFit {
  FittingMethod::Method method;
  FittingResult (*fit)(const Points& points);

  void expectFinds(const Points& points, const Point2D& center, double r, double tolerance) const {
    expectCircle(fit(points), method, center, r, tolerance);
  }
  void expectGoldenCircles() const {
    for (const CsvRow& row : rowsOf("fits/circles_expected.csv")) {
      SCOPED_TRACE(row.text("case"));
      expectFinds(goldenPoints(row), Point2D(row.number("center_x"), row.number("center_y")),
                  row.number("radius_rms"), Promise::kFit);
    }
  }
  /// Of any size, also far from the origin.
  void expectExactCircles() const {
    for (const double offset : {0.0, 1e3, 1e5}) {
      for (const double turns : {1.0, 0.5}) {
        for (const int count : {3, 12, 500, 20000}) {
          for (const double scale : {1e-15, 1.0, 1e15}) {
            SCOPED_TRACE(testing::Message()
                         << count << ", " << turns << ", " << offset << ", " << scale);
            const Point2D center = Point2D(3 + offset, -2 - offset) * scale;
            expectFinds(circlePoints(center, 5 * scale, count, turns), center, 5 * scale,
                        Promise::kFit * 5 * scale);
          }
        }
      }
    }
    // An arc of half a degree, which rises a thousandth of its chord, and one of a fiftieth.
    expectFinds(circlePoints(Point2D(0, 0), 5, 300, 0.5 / 360), Point2D(0, 0), 5, 1e-7);
    expectFinds(circlePoints(Point2D(0, 0), 5, 300, 0.02 / 360), Point2D(0, 0), 5, 1e-4);
  }
  /// Also of two places of which one is taken once: sums relative to a first point that stands
  /// alone lose most of their digits, and a radius of 18 m came out of them.
  void expectNoNumbersWithoutACircle() const {
    std::vector<Points> cases = pointsOfNoCurve();
    for (const std::size_t count : {3u, 26u, 1000u}) {
      cases.emplace_back(count, Point2D(-10, -10));
      cases.back().front() = Point2D(1.0003, 2.0003);
    }
    for (const Points& points : cases) {
      EXPECT_FALSE(std::isfinite(fit(points).radius)) << points.size();
    }
  }
};

}  // namespace TestSupport

#endif
