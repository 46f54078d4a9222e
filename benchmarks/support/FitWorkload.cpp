// SPDX-License-Identifier: BSL-1.0
#include "support/FitWorkload.h"

#include "support/Angles.h"
#include "testing/Random.h"

#include <cmath>

namespace Benchmarks {

namespace {

using TestSupport::Random;

constexpr std::uint64_t kCircleSeed = 6;
constexpr std::uint64_t kEllipseSeed = 7;
constexpr double kNoise = 0.005;

}  // namespace

std::vector<Point2D> circlePoints(std::size_t count, const Point2D& shift) {
  const Point2D centre = Point2D(3.0, -2.0) + shift;
  Random random(kCircleSeed);
  std::vector<Point2D> points;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double angle = kFullTurn * random.uniform();
    const double radius = 5.5 + kNoise * random.normal();
    points.push_back(centre + Point2D(std::cos(angle), std::sin(angle)) * radius);
  }
  return points;
}

std::vector<Point2D> ellipsePoints(std::size_t count) {
  constexpr double kRotation = 0.3;
  const Point2D centre(2.0, 1.0);
  Random random(kEllipseSeed);
  std::vector<Point2D> points;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double angle = kFullTurn * random.uniform();
    const double a = 5.5 * std::cos(angle) + kNoise * random.normal();
    const double b = 4.5 * std::sin(angle) + kNoise * random.normal();
    points.push_back(centre + Point2D(std::cos(kRotation), std::sin(kRotation)) * a +
                     Point2D(-std::sin(kRotation), std::cos(kRotation)) * b);
  }
  return points;
}

}  // namespace Benchmarks
