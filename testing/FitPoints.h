// SPDX-License-Identifier: BSL-1.0
/// @file
/// Points to fit curves to.

#ifndef CALCULATIONS_TESTING_FIT_POINTS_H
#define CALCULATIONS_TESTING_FIT_POINTS_H

#include "testing/Csv.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <Calculations/Points.h>

#include <cmath>
#include <vector>

namespace TestSupport {

using Ruv::Calculations::Point2D;
using Points = std::vector<Point2D>;

inline Points goldenPoints(const CsvRow& row) {
  Points points;
  for (const CsvRow& point : rowsOf("fits/" + row.text("case") + ".csv")) {
    points.emplace_back(point.number("x"), point.number("y"));
  }
  return points;
}

inline Point2D turned(const Point2D& p, double angle) {
  return Point2D(p.x * std::cos(angle) - p.y * std::sin(angle),
                 p.x * std::sin(angle) + p.y * std::cos(angle));
}

/// Points evenly along a part of an ellipse, each axis blurred by up to the noise.
inline Points ellipsePoints(const Point2D& center, double a, double b, double rotation, int count,
                            double turns = 1.0, double noise = 0.0) {
  Random random(1);
  Points points;
  for (int i = 0; i < count; ++i) {
    const double t = 2.0 * kPi * turns * i / count;
    const Point2D p((a + random.uniform(-noise, noise)) * std::cos(t),
                    (b + random.uniform(-noise, noise)) * std::sin(t));
    points.push_back(center + turned(p, rotation));
  }
  return points;
}

/// Points from which no curve follows: too few places, straight lines, and a sound circle with one
/// coordinate spoilt.
inline std::vector<Points> pointsOfNoCurve() {
  std::vector<Points> cases = {{}, {{3, 4}}, {{3, 4}, {5, 7.1}}, Points(20, Point2D(3.3, 4.7))};
  for (const double offset : {0.0, 1e3, 6e5}) {
    for (const double angle : {0.0, 1e-9, 0.1, 0.5 * kPi, 2.0}) {
      for (const int count : {3, 40, 20000}) {
        cases.emplace_back();
        for (int i = 0; i < count; ++i) {
          cases.back().push_back(Point2D(offset, 1.7 - offset / 3) + turned({0.1 * i, 0}, angle));
        }
      }
    }
  }
  for (const double value : {kInfinity, -kInfinity, kNaN, 1e300}) {
    for (const std::size_t index : {0u, 7u}) {
      cases.push_back(ellipsePoints(Point2D(1, 2), 5, 4, 0, 20));
      cases.back()[index].y = value;
    }
  }
  return cases;
}

}  // namespace TestSupport

#endif
