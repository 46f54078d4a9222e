// SPDX-License-Identifier: BSL-1.0
/// @file
/// Turns the bytes of the fuzzer into the numbers that callers may pass, and fails loudly.

#ifndef CALCULATIONS_FUZZ_FUZZ_INPUT_H
#define CALCULATIONS_FUZZ_FUZZ_INPUT_H

#include <Calculations/Points.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Fuzz {

/// Aborts, so that the fuzzer keeps the input, and tells what did not hold.
void require(bool holds, const char* what);

/// Aborts when two numbers differ by more than the tolerance, or one is not a number.
void requireNear(double value, double expected, double tolerance, const char* what);

/// Reads wild input, in which any number may stand anywhere, or tame input, for which the
/// library promises results. Behind the end of the bytes everything is zero.
///
/// A number takes few bytes, mostly two, and the short forms fall on a coarse grid: so chance and
/// the mutations of the fuzzer often make values equal, or opposite, or almost equal.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : m_next(data), m_end(data + size), m_tame((byte() & 1) == 0) {}

  bool isTame() const { return m_tame; }
  bool isLeft() const { return m_next != m_end; }

  bool yes() { return (byte() & 1) != 0; }
  /// From 0 to most, which is below 256.
  int count(int most) { return byte() % (most + 1); }
  /// Between the bounds when tame, else possibly anything.
  double number(double low, double high);
  Ruv::Calculations::Point2D point(double reach);
  std::vector<Ruv::Calculations::Point2D> points(int most, double reach);
  Ruv::Calculations::ENHPoint gridPoint(double reach);

 private:
  std::uint8_t byte() { return m_next == m_end ? std::uint8_t{0} : *m_next++; }
  double fraction(int bytes);

  const std::uint8_t* m_next;
  const std::uint8_t* m_end;
  bool m_tame;
  double m_last = 0.0;
};

}  // namespace Fuzz

#endif
