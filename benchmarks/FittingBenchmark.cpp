// SPDX-License-Identifier: BSL-1.0
// Which circle or ellipse fits these points best? Asked for every scanned section.

#include "SpeedGoals.h"
#include "support/FitPeers.h"
#include "support/FitWorkload.h"
#include "support/PeakMemory.h"
#include "support/Rounds.h"
#include "testing/Promises.h"

#include <Calculations/Calculations.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace Benchmarks {

namespace {

using Ruv::Calculations::FittingHelper;
using Ruv::Calculations::FittingResult;
using Points = std::vector<Point2D>;

constexpr std::array<std::size_t, 5> kFitSizes = {100, 1000, 10000, 100000, 1000000};

/// The legacy fit passes the points some seventy times.
constexpr std::size_t kLargestIteratedFit = 100000;

constexpr std::size_t kLargestFit = kFitSizes.back();

/// Shift to the coordinates of a national grid.
const Point2D kFarAway(600000.0, 200000.0);

using Fit = FittingResult (*)(const Points&);

void circleThroughPoints(benchmark::State& state, Fit fit) {
  const Points points = circlePoints(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    FittingResult result = fit(points);
    benchmark::DoNotOptimize(result);
  }
  state.SetComplexityN(state.range(0));
}

FittingResult ellipseThrough(const Points& points) {
  std::vector<bool> used;
  return FittingHelper::ellipseFitFitzgibbon(points, used, 1);
}

void landauCircle(benchmark::State& state) {
  circleThroughPoints(state, FittingHelper::circleFitLandau);
}

void kasaCircle(benchmark::State& state) {
  circleThroughPoints(state, FittingHelper::circleFitKasa);
}

void legacyCircle(benchmark::State& state) {
  circleThroughPoints(state, FittingHelper::circleFitRuvLegacy);
}

void ellipse(benchmark::State& state) { circleThroughPoints(state, ellipseThrough); }

BENCHMARK(landauCircle)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);
BENCHMARK(kasaCircle)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);
BENCHMARK(legacyCircle)->RangeMultiplier(10)->Range(100, 100000)->Complexity(benchmark::oN);
BENCHMARK(ellipse)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);

/// Fits to the same points over and over.
template <class FitTo>
Contender fitting(const Points& points, const FitTo& fitTo) {
  constexpr std::size_t kPointsOfSlice = 20000;
  constexpr std::size_t kPointsInATurn = 100000;
  const std::size_t calls = std::max<std::size_t>(kPointsOfSlice / points.size(), 1);
  const std::size_t slices = std::max<std::size_t>(kPointsInATurn / (calls * points.size()), 1);
  return [&points, fitTo, calls, slices] {
    return timesPerCall(slices, calls, [&] {
      auto result = fitTo(points);
      benchmark::DoNotOptimize(result);
    });
  };
}

struct FitTimes {
  std::vector<double> perPoint;  // of each contender
  double sc;                     // taken beside them
};

FitTimes timesOf(int rounds, const Points& points, std::vector<Contender> contenders) {
  contenders.push_back(sineAndCosine());
  FitTimes times{bestOfRounds(rounds, contenders), 0.0};
  times.sc = times.perPoint.back();
  times.perPoint.pop_back();
  for (double& time : times.perPoint) {
    time /= static_cast<double>(points.size());
  }
  return times;
}

void judgeCircles(std::size_t n, int rounds, GoalTable& table) {
  constexpr std::size_t kManyPoints = 1000;
  const Points points = circlePoints(n);
  const auto [times, sc] = timesOf(
      rounds, points,
      {fitting(points, FittingHelper::circleFitLandau),
       fitting(points, FittingHelper::circleFitKasa),
       fitting(points, [](const Points& p) { return kasaByQr<double, Eigen::HouseholderQR>(p); }),
       fitting(points,
               [](const Points& p) { return kasaByQr<double, Eigen::FullPivHouseholderQR>(p); })});
  table.add({"circle by Landau, per point", n, times[0], "1 sc", sc,
             n < kManyPoints ? atMost(std::nullopt) : atMost(0.2, 0.1)});
  const bool isStretch = n == kLargestIteratedFit;
  table.add({"circle by Kasa, per point", n, times[1], "Eigen QR, no pivoting", times[2],
             isStretch ? atLeast(1.0, 3.0) : atLeast(1.0)});
  table.add({"circle by Kasa, per point", n, times[1], "Eigen QR, full pivoting", times[3],
             isStretch ? atLeast(1.0, 3.0) : atLeast(1.0)});
}

void judgeLegacyCircles(std::size_t n, int rounds, GoalTable& table) {
  const Points points = circlePoints(n);
  const std::vector<double> times =
      timesOf(rounds, points,
              {fitting(points, FittingHelper::circleFitRuvLegacy),
               fitting(points, legacyByStoredJacobian), fitting(points, legacyByMatrices)})
          .perPoint;
  table.add({"circle by the legacy fit, per point", n, times[0], "stored Jacobian, plain sums",
             times[1], atLeast(2.0)});
  table.add({"circle by the legacy fit, per point", n, times[0], "stored Jacobian, Eigen products",
             times[2], atLeast(2.0)});
}

Goal ellipseGoal(std::size_t n) {
  constexpr std::size_t kFew = 1000;
  constexpr std::size_t kMany = 100000;
  return n == kFew ? atLeast(2.5) : n == kMany ? atLeast(8.0) : atLeast(std::nullopt);
}

void judgeEllipses(std::size_t n, int rounds, GoalTable& table) {
  constexpr std::size_t kManyPoints = 10000;
  const Points points = ellipsePoints(n);
  const auto [times, sc] =
      timesOf(rounds, points,
              {fitting(points, ellipseThrough), fitting(points, ellipseByDesignMatrices<double>)});
  const char* work = "ellipse, one round, per point";
  table.add({work, n, times[0], "Eigen, design matrices", times[1], ellipseGoal(n)});
  table.add({work, n, times[0], "1 sc", sc,
             n < kManyPoints ? atMost(std::nullopt) : atMost(std::nullopt, 0.45)});
}

void judgeMemoryOf(const char* work, const std::function<void()>& fit, const Goal& goal,
                   GoalTable& table) {
  const auto bytes = extraMemoryOf(fit);
  if (!bytes) return;
  table.add({work, kLargestFit, *bytes / static_cast<double>(kLargestFit), "B per point", goal});
}

/// What does not grow with the number of points is next to nothing for so many.
void judgeMemory(GoalTable& table) {
  const Goal noGrowth = atMost(1.0);
  const Points circle = circlePoints(kLargestFit);
  judgeMemoryOf(
      "extra memory, Landau", [&] { FittingHelper::circleFitLandau(circle); }, noGrowth, table);
  judgeMemoryOf(
      "extra memory, Kasa", [&] { FittingHelper::circleFitKasa(circle); }, noGrowth, table);
  judgeMemoryOf(
      "extra memory, Kasa by Eigen QR", [&] { kasaByQr<double, Eigen::HouseholderQR>(circle); },
      Goal(), table);
  judgeMemoryOf(
      "extra memory, legacy", [&] { FittingHelper::circleFitRuvLegacy(circle); }, noGrowth, table);
  const Points ellipse = ellipsePoints(kLargestFit);
  judgeMemoryOf(
      "extra memory, ellipse", [&] { ellipseThrough(ellipse); }, atMost(16.0), table);
  judgeMemoryOf(
      "extra memory, ellipse by Eigen design matrices",
      [&] { ellipseByDesignMatrices<double>(ellipse); }, Goal(), table);
}

using ExactCircle = FittedCircle<long double>;

Point2D centroidOf(const Points& points) {
  Point2D sum;
  for (const Point2D& p : points) {
    sum = sum + (p - points.front());
  }
  return points.front() + sum / static_cast<double>(points.size());
}

double distanceFrom(const ExactCircle& exact, double x, double y, double radius) {
  const long double centre = std::hypot(x - exact.x, y - exact.y);
  return static_cast<double>(std::max(centre, std::abs(radius - exact.radius)));
}

double distanceFrom(const ExactCircle& exact, const FittingResult& result) {
  return distanceFrom(exact, result.center.x, result.center.y, std::abs(result.radius));
}

/// Kasa's circle must be as near to the exact one as that of one decomposition of all rows.
void checkKasa(std::size_t largest, const Point2D& shift, const char* where, GoalTable& table) {
  double ours = 0.0;
  double whole = 0.0;
  std::size_t count = 0;
  for (const std::size_t n : kFitSizes) {
    if (n > largest) continue;
    ++count;
    const Points points = circlePoints(n, shift);
    const Point2D centroid = centroidOf(points);
    const ExactCircle exact = kasaByQr<long double, Eigen::HouseholderQR>(points, centroid);
    const FittedCircle<double> qr = kasaByQr<double, Eigen::HouseholderQR>(points, centroid);
    ours = worse(ours, distanceFrom(exact, FittingHelper::circleFitKasa(points)));
    whole = worse(whole, distanceFrom(exact, qr.x, qr.y, qr.radius));
  }
  table.add({std::string("Kasa against Eigen QR, ") + where, largest, count, ours, "m", whole});
}

void checkCircles(std::size_t n, GoalTable& table) {
  const Points points = circlePoints(n);
  const ExactCircle exact = kasaByQr<long double, Eigen::HouseholderQR>(points, centroidOf(points));
  table.add(
      {"Landau", n, 1, distanceFrom(exact, FittingHelper::circleFitLandau(points)), "m", 1e-9});
  if (n > kLargestIteratedFit) return;
  const FittingResult legacy = FittingHelper::circleFitRuvLegacy(points);
  const FittedCircle<double> plain = legacyByStoredJacobian(points);
  table.add({"legacy", n, 1, distanceFrom(exact, legacy), "m", Promise::kLegacyCircle});
  const double difference =
      std::max({std::abs(legacy.center.x - plain.x), std::abs(legacy.center.y - plain.y),
                std::abs(legacy.radius - plain.radius)});
  table.add({"legacy against plain sums", n, 1, difference, "m", 0.0});
}

void checkEllipse(std::size_t n, GoalTable& table) {
  const Points points = ellipsePoints(n);
  const FittedEllipse<long double> exact = ellipseByDesignMatrices<long double>(points);
  std::vector<bool> used;
  const FittingResult result = FittingHelper::ellipseFitFitzgibbon(points, used, 1);
  const double inLength = static_cast<double>(
      std::max({std::hypot(result.center.x - exact.x, result.center.y - exact.y),
                std::abs(result.semiAxisA - exact.semiAxisA),
                std::abs(result.semiAxisB - exact.semiAxisB)}));
  table.add({"ellipse", n, 1, inLength, "m", 1e-9});
  table.add({"ellipse, rotation", n, 1,
             static_cast<double>(std::abs(result.rotation - exact.rotation)), "rad", 1e-9});
  table.add({"ellipse, rejected points", n, n, used == exact.used ? 0.0 : 1.0, "", 0.0});
}

}  // namespace

void measureFitting(const Effort& effort, GoalTable& table) {
  for (const std::size_t n : kFitSizes) {
    if (n > effort.largestFit) continue;
    judgeCircles(n, effort.rounds, table);
    if (n <= kLargestIteratedFit) judgeLegacyCircles(n, effort.rounds, table);
    judgeEllipses(n, effort.rounds, table);
    checkCircles(n, table);
    checkEllipse(n, table);
  }
  checkKasa(effort.largestFit, Point2D(), "near the origin", table);
  checkKasa(effort.largestFit, kFarAway, "at 600 km", table);
  judgeMemory(table);
}

}  // namespace Benchmarks
