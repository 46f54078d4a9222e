// SPDX-License-Identifier: BSL-1.0
// The clothoid in units of its own arc length.
//
//   l, A           arc length from the origin and parameter of the clothoid
//   t              tangent angle l^2 / (2 A^2)
//
// Its coordinates are the integrals of cos t and sin t over l. Expanding the cosine and the sine
// into powers of t, which is l^2 / (2 A^2) and so integrates term by term, gives
//
//   x / l = sum (-1)^n t^(2n) / ((2n)! (4n + 1))
//   y / l = sum (-1)^n t^(2n+1) / ((2n+1)! (4n + 3)),
//
// the Fresnel integrals of Abramowitz and Stegun (1964), 7.3.11 and 7.3.13. The terms alternate and
// shrink for every angle in use, so the error is below the first term left out.

#include "shapes/SpiralSeries.h"

#include <array>
#include <cstddef>

namespace Ruv {

namespace {

/// At the largest angle the first term left out is 3e-21.
constexpr std::size_t kSpiralTerms = 13;
using SpiralTerms = std::array<double, kSpiralTerms>;

/// The coefficients (-1)^n / ((2n + odd)! (4n + 1 + 2 odd)), where odd is 0 for x and 1 for y.
constexpr SpiralTerms coefficients(int odd) {
  SpiralTerms c{};
  double factorial = 1.0;
  double sign = 1.0;
  for (std::size_t n = 0; n < kSpiralTerms; ++n) {
    const double k = 2.0 * static_cast<double>(n) + odd;
    c[n] = sign / (factorial * (2.0 * k + 1.0));
    factorial *= (k + 1.0) * (k + 2.0);
    sign = -sign;
  }
  return c;
}

constexpr SpiralTerms kAlong = coefficients(0);
constexpr SpiralTerms kAcross = coefficients(1);

/// Numbers of terms that leave out less than 1e-17 below these tangent angles. Railway and road
/// clothoids stay below the first.
constexpr double kSmallAngle = 0.12;
constexpr std::size_t kSmallAngleTerms = 5;
constexpr double kMediumAngle = 0.6;
constexpr std::size_t kMediumAngleTerms = 8;

template <std::size_t Terms>
CSpiralFactors sumOf(double tangentAngle) {
  // Horner's scheme in powers of t^2, from the smallest term on.
  const double square = tangentAngle * tangentAngle;
  double along = kAlong[Terms - 1];
  double across = kAcross[Terms - 1];
  for (std::size_t n = Terms - 1; n-- > 0;) {
    along = along * square + kAlong[n];
    across = across * square + kAcross[n];
  }
  return {along, across * tangentAngle};
}

}  // namespace

CSpiralFactors spiralFactors(double tangentAngle) {
  if (tangentAngle <= kSmallAngle) return sumOf<kSmallAngleTerms>(tangentAngle);
  if (tangentAngle <= kMediumAngle) return sumOf<kMediumAngleTerms>(tangentAngle);
  return sumOf<kSpiralTerms>(tangentAngle);
}

}  // namespace Ruv
