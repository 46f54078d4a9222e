// SPDX-License-Identifier: BSL-1.0
#include "support/Rounds.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <iterator>
#include <numeric>

namespace Benchmarks {

namespace {

double mean(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

void keepBest(std::vector<double>& best, const std::vector<double>& times) {
  std::transform(best.begin(), best.end(), times.begin(), best.begin(),
                 [](double a, double b) { return std::min(a, b); });
}

}  // namespace

std::vector<double> bestOfRounds(int rounds, const std::vector<Contender>& contenders) {
  for (const Contender& contender : contenders) {
    contender();
  }
  std::vector<std::vector<double>> best(contenders.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < contenders.size(); ++i) {
      const std::vector<double> times = contenders[i]();
      if (round == 0) best[i] = times;
      keepBest(best[i], times);
    }
  }
  std::vector<double> means;
  std::transform(best.begin(), best.end(), std::back_inserter(means), mean);
  return means;
}

Contender sineAndCosine() {
  constexpr std::size_t kAngles = 100000;
  const double fullTurn = 2.0 * std::acos(-1.0);
  std::vector<double> angles;
  angles.reserve(kAngles);
  for (std::size_t i = 0; i < kAngles; ++i) {
    angles.push_back(fullTurn * static_cast<double>(i) / static_cast<double>(kAngles));
  }
  return [angles] {
    return timesPerItem(angles, kQuickAnswers, [](double angle) {
      double sine = std::sin(angle);
      double cosine = std::cos(angle);
      benchmark::DoNotOptimize(sine);
      benchmark::DoNotOptimize(cosine);
    });
  };
}

}  // namespace Benchmarks
