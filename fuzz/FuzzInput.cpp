// SPDX-License-Identifier: BSL-1.0
#include "FuzzInput.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace Fuzz {

namespace {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Point2D;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::array<double, 21> kWildNumbers = {
    0.0,  -0.0, 1.0,  -1.0,  1e-300, 4.9e-324, 1e-9, 1e-4,      1e4,        1e9,        -1e9,
    1e15, 1e18, 1e50, 1e154, 1e300,  -1e300,   -1e6, kInfinity, -kInfinity, kNotANumber};

/// How a number is written, by its first byte.
enum Form : int { kCoarse = 0, kFine = 160, kNearLast = 216, kWild = 232, kRaw = 248 };

}  // namespace

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

void requireNear(double value, double expected, double tolerance, const char* what) {
  if (std::abs(value - expected) <= tolerance) return;
  std::fprintf(stderr, "does not hold: %s: %.17g, not %.17g within %g\n", what, value, expected,
               tolerance);
  std::abort();
}

double Input::fraction(int bytes) {
  double value = 0.0;
  double scale = 1.0;
  for (int i = 0; i < bytes; ++i) {
    value = value * 256.0 + byte();
    scale *= 256.0;
  }
  return value / (scale - 1.0);
}

double Input::number(double low, double high) {
  const int form = byte();
  double value = 0.0;
  if (form >= kWild && !m_tame) {
    value = kWildNumbers[byte() % kWildNumbers.size()];
    if (form >= kRaw) {
      std::array<std::uint8_t, sizeof(double)> bytes{};
      std::generate(bytes.begin(), bytes.end(), [this] { return byte(); });
      std::memcpy(&value, bytes.data(), sizeof(double));
    }
  } else if (form >= kNearLast) {
    const double step = std::pow(10.0, -(byte() % 14));
    value = std::min(std::max(low, m_last + step), high);
  } else if (form >= kFine) {
    value = low + (high - low) * fraction(4);
  } else {
    // 240 steps: they hit the middle, the thirds and the tenths of the range.
    value = low + (high - low) * (byte() % 241) / 240.0;
  }
  m_last = value;
  return value;
}

Point2D Input::point(double reach) {
  const double x = number(-reach, reach);
  return {x, number(-reach, reach)};
}

std::vector<Point2D> Input::points(int most, double reach) {
  std::vector<Point2D> points;
  for (int left = count(most); left > 0 && isLeft(); --left) {
    points.push_back(point(reach));
  }
  return points;
}

ENHPoint Input::gridPoint(double reach) {
  const double east = number(-reach, reach);
  const double north = number(-reach, reach);
  return {east, north, number(-reach, reach)};
}

}  // namespace Fuzz
