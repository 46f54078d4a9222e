// SPDX-License-Identifier: BSL-1.0
// The clothoid by the power series of its coordinates, with the tangent angle t = l^2 / (2 R L):
//
//   x = l sum (-1)^n t^(2n) / ((2n)! (4n + 1)),  y = l sum (-1)^n t^(2n+1) / ((2n+1)! (4n + 3))
//
// (Abramowitz and Stegun 1964, 7.3.11 and 7.3.13). Written in l and b = 1 / (2 R L) the powers
// begin with l for x and with b l^3 for y, and grow by b^2 l^4 from term to term. The number of
// terms is fixed by the curve, and callers are told whether the terms shrink, as results depend on
// it. The geometry of axes is evaluated elsewhere (SpiralSeries, PlaneCurve).

#include <Calculations/TransitionCurves.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Ruv {

namespace {

/// Products R L up to this, the smallest normal double, count as zero: below it a reciprocal may be
/// infinite.
constexpr double kSmallestProduct = std::numeric_limits<double>::min();

/// Terms whose factorials a double can hold: (2 * 85)! is the last. For the side coordinate it is
/// 171!, which is infinite already and makes the last term 0.
constexpr std::size_t kMostTerms = 86;

using Coefficients = std::array<double, kMostTerms>;

/// (-1)^n / (2n + odd)!
Coefficients alternatingInverseFactorials(std::int64_t odd) {
  Coefficients coefficients{};
  double factorial = 1.0;
  std::int64_t factor = 0;
  double sign = 1.0;
  for (std::size_t n = 0; n < kMostTerms; ++n) {
    const std::int64_t last = 2 * static_cast<std::int64_t>(n) + odd;
    while (factor < last) {
      factorial *= static_cast<double>(++factor);
    }
    coefficients[n] = sign / factorial;
    sign = -sign;
  }
  return coefficients;
}

// One table each for every number of terms: a curve with more terms than another must not meet
// a shorter table.
const Coefficients& evenCoefficients() {
  static const Coefficients kCoefficients = alternatingInverseFactorials(0);
  return kCoefficients;
}

const Coefficients& oddCoefficients() {
  static const Coefficients kCoefficients = alternatingInverseFactorials(1);
  return kCoefficients;
}

/// Sums coefficient[n] * power[n] / exponent[n], where the powers grow by a factor and the
/// exponents by 4. True when the terms that do not exceed their predecessor outnumber the others.
bool sumSeries(const Coefficients& coefficients, int lastTerm, double power, double factor,
               double exponent, double& sum) {
  sum = 0.0;
  if (lastTerm < 0) return false;
  const std::size_t terms = std::min(static_cast<std::size_t>(lastTerm) + 1, kMostTerms);
  int growing = 0;
  int shrinking = 0;
  double previous = 0.0;
  for (std::size_t n = 0; n < terms; ++n) {
    const double term = coefficients[n] * power / exponent;
    sum += term;
    if (n > 0) ++(std::abs(term) > std::abs(previous) ? growing : shrinking);
    previous = term;
    power *= factor;
    exponent += 4.0;
  }
  return shrinking > growing;
}

/// Such a curve has no shape. Only curvature calls that a failure; the other operations answer 0,
/// as for a straight of no length.
bool isZeroProduct(double radius, double length) {
  return std::abs(radius * length) <= kSmallestProduct;
}

}  // namespace

CTransitionCurve::CTransitionCurve() = default;
CTransitionCurve::CTransitionCurve(const CTransitionCurve&) = default;
CTransitionCurve& CTransitionCurve::operator=(const CTransitionCurve&) = default;
CTransitionCurve::~CTransitionCurve() = default;

bool CTransitionCurve::curvature(double, double, double, double& out) const {
  out = 0.0;
  return false;
}

bool CTransitionCurve::tangentAngle(double, double, double, double& out) const {
  out = 0.0;
  return false;
}

bool CTransitionCurve::localY(double, double, double, double& out) const {
  out = 0.0;
  return false;
}

bool CTransitionCurve::localX(double, double, double, double& out) const {
  out = 0.0;
  return false;
}

int CTransitionCurve::numberOfTerms() const { return 12; }

CClothoidCurve::CClothoidCurve() = default;
CClothoidCurve::CClothoidCurve(const CClothoidCurve&) = default;
CClothoidCurve& CClothoidCurve::operator=(const CClothoidCurve&) = default;
CClothoidCurve::~CClothoidCurve() = default;

bool CClothoidCurve::curvature(double l, double radius, double length, double& out) const {
  out = 0.0;
  if (isZeroProduct(radius, length)) return false;
  out = std::abs(l / (radius * length));
  return true;
}

bool CClothoidCurve::tangentAngle(double l, double radius, double length, double& out) const {
  out = 0.0;
  if (!isZeroProduct(radius, length)) out = l * l / std::abs(2.0 * (radius * length));
  return true;
}

bool CClothoidCurve::localY(double l, double radius, double length, double& out) const {
  out = 0.0;
  if (isZeroProduct(radius, length)) return true;
  const double a = std::abs(l);
  const double b = 1.0 / (2.0 * std::abs(radius) * std::abs(length));
  // The powers grow by b^2 l^4, multiplied in this order: results of callers rest on the digits.
  const double a3 = a * a * a;
  return sumSeries(oddCoefficients(), numberOfTerms(), b * a3, b * b * a3 * a, 3.0, out);
}

bool CClothoidCurve::localX(double l, double radius, double length, double& out) const {
  out = 0.0;
  if (isZeroProduct(radius, length)) return true;
  const double a = std::abs(l);
  const double b = 1.0 / (2.0 * std::abs(radius) * std::abs(length));
  return sumSeries(evenCoefficients(), numberOfTerms(), a, b * b * a * a * a * a, 1.0, out);
}

const std::string& CClothoidCurve::name() const {
  static const std::string kName = "clothoid";
  return kName;
}

}  // namespace Ruv
