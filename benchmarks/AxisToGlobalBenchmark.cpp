// SPDX-License-Identifier: BSL-1.0
// Where is this stationing? Asked for places all over the axis and for places in order.

#include "SpeedGoals.h"
#include "support/AxisWorkload.h"
#include "support/QuestionLoop.h"
#include "support/Rounds.h"
#include "testing/Promises.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace Benchmarks {

namespace {

std::vector<AxisPoint> sorted(std::vector<AxisPoint> places) {
  std::sort(places.begin(), places.end(),
            [](const AxisPoint& a, const AxisPoint& b) { return a.stationing < b.stationing; });
  return places;
}

void toGlobal(const AxisCalculator& calculator, const AxisPoint& place) {
  ENHPoint point;
  bool ok = calculator.axisPointToEnhPointVertical(place, point);
  benchmark::DoNotOptimize(ok);
  benchmark::DoNotOptimize(point);
}

struct Direction {
  double azimuth = 0.0;
  double radius = 0.0;
  double longSlopeRad = 0.0;
  double longSlopePercent = 0.0;
  double transSlopeRad = 0.0;
  double transSlopePercent = 0.0;
};

bool directionAt(const AxisCalculator& calculator, double stationing, Direction& d) {
  return calculator.axisPropertiesAtStationing(stationing, d.azimuth, d.radius, d.longSlopeRad,
                                               d.longSlopePercent, d.transSlopeRad,
                                               d.transSlopePercent);
}

void toDirection(const AxisCalculator& calculator, const AxisPoint& place) {
  Direction direction;
  bool ok = directionAt(calculator, place.stationing, direction);
  benchmark::DoNotOptimize(ok);
  benchmark::DoNotOptimize(direction);
}

using Ask = void (*)(const AxisCalculator&, const AxisPoint&);

void askForPlaces(benchmark::State& state, Ask ask, bool inOrder) {
  const AxisWorkload workload(static_cast<std::size_t>(state.range(0)));
  const AxisCalculator calculator(workload.build());
  const std::vector<AxisPoint> places = workload.randomPlaces(kItemsOfLoop);
  askInTurn(state, inOrder ? sorted(places) : places,
            [&](const AxisPoint& place) { ask(calculator, place); });
}

void globalPointOfARandomStationing(benchmark::State& state) {
  askForPlaces(state, toGlobal, false);
}

void globalPointOfTheNextStationing(benchmark::State& state) {
  askForPlaces(state, toGlobal, true);
}

void directionAtARandomStationing(benchmark::State& state) {
  askForPlaces(state, toDirection, false);
}

BENCHMARK(globalPointOfARandomStationing)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity(benchmark::oLogN);
BENCHMARK(globalPointOfTheNextStationing)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity(benchmark::oLogN);
BENCHMARK(directionAtARandomStationing)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity(benchmark::oLogN);

/// Times per place.
struct EvaluationTimes {
  double random = 0.0;
  double inOrder = 0.0;
  double direction = 0.0;
  double sc = 0.0;
};

EvaluationTimes timesOf(const AxisCalculator& calculator, const std::vector<AxisPoint>& places,
                        int rounds) {
  const std::vector<AxisPoint> placesInOrder = sorted(places);
  const auto asking = [&calculator](const std::vector<AxisPoint>& of, Ask ask) -> Contender {
    return [&calculator, &of, ask] {
      return timesPerItem(of, kQuickAnswers,
                          [&](const AxisPoint& place) { ask(calculator, place); });
    };
  };
  const std::vector<double> best =
      bestOfRounds(rounds, {asking(places, toGlobal), asking(placesInOrder, toGlobal),
                            asking(places, toDirection), sineAndCosine()});
  return {best[0], best[1], best[2], best[3]};
}

/// Published alignment libraries on the same workload, measured once: costs in sc. The goals ask
/// for multiples of their speed.
struct PublishedCost {
  double openDrive = 0.0;  // libOpenDRIVE, evaluate
  Goal openDriveGoal;
  double clothoids = 0.0;  // Clothoids, evaluate
  Goal scGoal;
};

const std::map<std::size_t, PublishedCost>& publishedCosts() {
  static const std::map<std::size_t, PublishedCost> kCosts = {
      {10, {8.1, atLeast(std::nullopt), 91.0, atMost(std::nullopt)}},
      {100, {10.7, atLeast(std::nullopt), 107.0, atMost(6.0)}},
      {1000, {23.0, atLeast(2.5), 110.0, atMost(8.0, 4.5)}},
      {10000, {52.0, atLeast(5.0), 120.0, atMost(std::nullopt)}}};
  return kCosts;
}

void judge(std::size_t n, const EvaluationTimes& times, GoalTable& table) {
  constexpr double kTimesFasterThanClothoids = 12.0;
  const PublishedCost& published = publishedCosts().at(n);
  const char* work = "global point of a random stationing";
  table.add({work, n, times.random, "1 sc", times.sc, published.scGoal});
  table.add({work, n, times.random, "libOpenDRIVE (published)", published.openDrive * times.sc,
             published.openDriveGoal});
  table.add({work, n, times.random, "Clothoids (published)", published.clothoids * times.sc,
             atLeast(kTimesFasterThanClothoids)});
  table.add({"global point of the next stationing", n, times.inOrder, "1 sc", times.sc,
             atMost(std::nullopt)});
  table.add({"direction at a random stationing", n, times.direction, "1 sc", times.sc,
             atMost(std::nullopt)});
}

/// Difference of two azimuths on the circle.
double angleBetween(double azimuth, long double exact) {
  const long double fullTurn = 2.0L * std::acos(-1.0L);
  const long double difference = std::remainder(azimuth - exact, fullTurn);
  return static_cast<double>(std::abs(difference));
}

void check(const AxisWorkload& workload, const AxisCalculator& calculator,
           const std::vector<AxisPoint>& places, GoalTable& table) {
  constexpr double kFailed = std::numeric_limits<double>::infinity();
  const ExactAxis& exact = workload.exact();
  double inPlan = 0.0;
  double inHeight = 0.0;
  double inAzimuth = 0.0;
  for (const AxisPoint& place : places) {
    ENHPoint point;
    Direction direction;
    const bool ok = calculator.axisPointToEnhPointVertical(place, point) &&
                    directionAt(calculator, place.stationing, direction);
    const ExactPlace truth = exact.at(place.stationing);
    const auto height = static_cast<double>(point.height - exact.heightAt(place.stationing));
    const double distance = std::hypot(static_cast<double>(point.east - truth.east),
                                       static_cast<double>(point.north - truth.north));
    inPlan = worse(inPlan, distance);
    if (!ok) inPlan = kFailed;
    inHeight = worse(inHeight, std::abs(height));
    inAzimuth = worse(inAzimuth, angleBetween(direction.azimuth, truth.azimuth));
  }
  const std::size_t n = exact.plan().size();
  table.add({"position", n, places.size(), inPlan, "m", Promise::kGridPoint});
  table.add({"height", n, places.size(), inHeight, "m", Promise::kGridPoint});
  table.add({"azimuth", n, places.size(), inAzimuth, "rad", Promise::kAzimuth});
}

}  // namespace

void measureAxisToGlobal(const Effort& effort, GoalTable& table) {
  std::map<std::size_t, EvaluationTimes> times;
  for (const std::size_t n : kAxisSizes) {
    const AxisWorkload workload(n);
    const AxisCalculator calculator(workload.build());
    const std::vector<AxisPoint> places = workload.randomPlaces(effort.points);
    times[n] = timesOf(calculator, places, effort.rounds);
    judge(n, times[n], table);
    check(workload, calculator, places, table);
  }
  table.add({"growth", kAxisSizes.back(), times[kAxisSizes.back()].random, "n = 10",
             times[kAxisSizes.front()].random, atMost(2.5, 1.5)});
}

}  // namespace Benchmarks
