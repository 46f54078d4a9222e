/// @file
/// The random numbers of all workloads: the same on every machine.

#ifndef CALCULATIONS_BENCHMARKS_SPLIT_MIX64_H
#define CALCULATIONS_BENCHMARKS_SPLIT_MIX64_H

#include "support/Angles.h"
#include "testing/Random.h"

#include <cmath>

namespace Benchmarks {

/// Those of the tests, and normal deviates.
class SplitMix64 : private TestSupport::Random {
 public:
  using TestSupport::Random::index;
  using TestSupport::Random::Random;

  /// In [0, 1), all 53 bits random.
  double uniform() { return Random::uniform(0.0, 1.0); }

  /// Standard normal deviate by the method of Box and Muller, whose second deviate is dropped.
  double normal() {
    const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform()));
    return radius * std::cos(kFullTurn * uniform());
  }
};

}  // namespace Benchmarks

#endif
