/// @file
/// The random numbers of all workloads: the same on every machine.

#ifndef CALCULATIONS_BENCHMARKS_SPLIT_MIX64_H
#define CALCULATIONS_BENCHMARKS_SPLIT_MIX64_H

#include "support/Angles.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace Benchmarks {

/// Source: Steele, Lea and Flood, Fast splittable pseudorandom number generators (2014).
class SplitMix64 {
 public:
  explicit SplitMix64(std::uint64_t seed) : m_state(seed) {}

  std::uint64_t draw() {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t z = m_state;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }

  /// In [0, 1), all 53 bits random.
  double uniform() { return static_cast<double>(draw() >> 11U) * 0x1p-53; }

  /// In [0, count), for a count far below 2^64.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>(draw() % count); }

  /// Standard normal deviate by the method of Box and Muller, whose second deviate is dropped.
  double normal() {
    const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform()));
    return radius * std::cos(kFullTurn * uniform());
  }

 private:
  std::uint64_t m_state;
};

}  // namespace Benchmarks

#endif
