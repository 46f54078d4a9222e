// SPDX-License-Identifier: BSL-1.0
// Circles and ellipses through points: those that the points lie on, else the best there are.

#include "FuzzInput.h"

#include "testing/Promises.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ruv::Calculations;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;

constexpr double kFullTurn = 6.283185307179586;

struct Ellipse {
  Point2D centre;
  double a;
  double b;
  double rotation;

  std::vector<Point2D> points(int count) const {
    std::vector<Point2D> result;
    for (int i = 0; i < count; ++i) {
      const double x = a * std::cos(kFullTurn * i / count);
      const double y = b * std::sin(kFullTurn * i / count);
      result.emplace_back(centre.x + x * std::cos(rotation) - y * std::sin(rotation),
                          centre.y + x * std::sin(rotation) + y * std::cos(rotation));
    }
    return result;
  }

  /// The promised part of the size, and what the coordinates leave open.
  double tolerance() const {
    return Promise::kFit * a + 1e-14 * std::hypot(centre.x, centre.y) * a / b;
  }
};

void requireFound(const FittingResult& fit, const Ellipse& shape, const char* what) {
  const double tolerance = shape.tolerance();
  requireNear(fit.semiAxisA, shape.a, tolerance, what);
  requireNear(fit.semiAxisB, shape.b, tolerance, what);
  requireNear(fit.center.x, shape.centre.x, tolerance, what);
  requireNear(fit.center.y, shape.centre.y, tolerance, what);
}

void findShapes(Input& input) {
  Ellipse shape{input.point(1e5), input.number(1.0, 10.0), 0.0, input.number(-3.0, 3.0)};
  const int count = 6 + input.count(60);
  shape.b = shape.a / input.number(1.0, 20.0);
  std::vector<bool> used;
  requireFound(FittingHelper::ellipseFitFitzgibbon(shape.points(count), used, 3), shape,
               "a fit finds the ellipse that the points lie on");
  require(std::find(used.begin(), used.end(), false) == used.end(), "it rejects none of them");
  shape.b = shape.a;
  const auto points = shape.points(count);
  requireFound(FittingHelper::circleFitKasa(points), shape, "Kasa finds the circle of the points");
  requireFound(FittingHelper::circleFitLandau(points), shape,
               "Landau finds the circle of the points");
}

double misfit(const std::vector<Point2D>& points, const Point2D& centre, double radius) {
  double sum = 0.0;
  for (const Point2D& p : points) {
    const Point2D d = p - centre;
    const double e = d.x * d.x + d.y * d.y - radius * radius;
    sum += e * e;
  }
  return sum;
}

/// No circle beside the fitted one fits better.
void requireBest(const FittingResult& fit, const std::vector<Point2D>& points) {
  if (!(std::abs(fit.radius) < 1e3)) return;  // nearly a line, whose circle is open
  const double least = misfit(points, fit.center, fit.radius);
  const double slack = 1e-9 * (least + 1.0);
  for (const double step : {-1e-2, 1e-2}) {
    require(least <= misfit(points, fit.center + Point2D(step, 0.0), fit.radius) + slack &&
                least <= misfit(points, fit.center + Point2D(0.0, step), fit.radius) + slack &&
                least <= misfit(points, fit.center, fit.radius + step) + slack,
            "no other circle fits better");
  }
}

/// Not near a line: there sums of powers lose their digits.
bool areSpread(const std::vector<Point2D>& points) {
  constexpr double kLeast = 1e-6;
  double xx = 0.0;
  double xy = 0.0;
  double yy = 0.0;
  for (const Point2D& p : points) {
    for (const Point2D& q : points) {
      const Point2D d = p - q;
      xx += d.x * d.x;
      xy += d.x * d.y;
      yy += d.y * d.y;
    }
  }
  return xx * yy - xy * xy > kLeast * (xx + yy) * (xx + yy);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  if (input.isTame() && input.count(3) == 0) findShapes(input);
  const int rounds = input.count(12) - 1;
  const std::vector<Point2D> points = input.points(100, 10.0);
  const FittingResult kasa = FittingHelper::circleFitKasa(points);
  const FittingResult landau = FittingHelper::circleFitLandau(points);
  if (input.isTame()) {
    requireBest(kasa, points);
    if (areSpread(points)) requireBest(landau, points);
  }
  FittingHelper::circleFitRuvLegacy(points);
  std::vector<bool> used;
  const FittingResult ellipse = FittingHelper::ellipseFitFitzgibbon(points, used, rounds);
  require(used.size() == points.size(), "there is a flag for each point");
  require(!(ellipse.semiAxisA < ellipse.semiAxisB), "the first semi-axis is the larger");
  if (input.isTame()) {
    require(std::isfinite(ellipse.semiAxisA + ellipse.center.x + ellipse.center.y),
            "an ellipse is finite");
  }
  return 0;
}
