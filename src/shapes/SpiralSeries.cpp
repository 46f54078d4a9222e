#include "shapes/SpiralSeries.h"

#include <array>
#include <cstddef>

namespace Ruv {

namespace {

/// At the largest angle the first term left out is 3e-21.
constexpr std::size_t kTerms = 13;
using Coefficients = std::array<double, kTerms>;

/// (-1)^n / ((2n + odd)! (4n + 1 + 2 odd))
constexpr Coefficients coefficients(int odd) {
  Coefficients c{};
  double factorial = 1.0;
  double sign = 1.0;
  for (std::size_t n = 0; n < kTerms; ++n) {
    const double k = 2.0 * static_cast<double>(n) + odd;
    c[n] = sign / (factorial * (2.0 * k + 1.0));
    factorial *= (k + 1.0) * (k + 2.0);
    sign = -sign;
  }
  return c;
}

constexpr Coefficients kAlong = coefficients(0);
constexpr Coefficients kAcross = coefficients(1);

/// Numbers of terms that leave out less than 1e-17 below these tangent angles. Railway and road
/// clothoids stay below the first.
constexpr double kSmallAngle = 0.12;
constexpr std::size_t kSmallAngleTerms = 5;
constexpr double kMediumAngle = 0.6;
constexpr std::size_t kMediumAngleTerms = 8;

template <std::size_t Terms>
CSpiralFactors sumOf(double tangentAngle) {
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
  return sumOf<kTerms>(tangentAngle);
}

}  // namespace Ruv
