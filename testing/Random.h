// SPDX-License-Identifier: BSL-1.0
/// @file
/// Random numbers that are the same on every machine.

#ifndef CALCULATIONS_TESTING_RANDOM_H
#define CALCULATIONS_TESTING_RANDOM_H

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace TestSupport {

/// splitmix64 (Steele, Lea and Flood, OOPSLA 2014).
class Random {
 public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}

  std::uint64_t bits() {
    m_state += 0x9E3779B97F4A7C15u;
    std::uint64_t z = m_state;
    z = (z ^ (z >> 30u)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27u)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31u);
  }

  /// In [0, 1), all 53 bits random.
  double uniform() { return static_cast<double>(bits() >> 11u) * 0x1p-53; }
  double uniform(double low, double high) { return low + (high - low) * uniform(); }

  /// Standard normal deviate by the method of Box and Muller, whose second deviate is dropped.
  double normal() {
    constexpr double kFullTurn = 6.283185307179586;
    const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform()));
    return radius * std::cos(kFullTurn * uniform());
  }

  /// 1 or -1
  double sign() { return index(2) == 0 ? 1.0 : -1.0; }

  /// 0 .. count - 1
  std::size_t index(std::size_t count) { return static_cast<std::size_t>(bits() % count); }

 private:
  std::uint64_t m_state;
};

}  // namespace TestSupport

#endif
