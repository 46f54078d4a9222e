// SPDX-License-Identifier: BSL-1.0
/// @file
/// Numbers that every subsystem shares.

#ifndef CALCULATIONS_FOUNDATION_MATH_CONSTANTS_H
#define CALCULATIONS_FOUNDATION_MATH_CONSTANTS_H

#include <limits>

namespace Ruv {

/// The double nearest to pi, 1.2e-16 below it. Its half and its double are as near to theirs.
constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = kPi / 2.0;
constexpr double kTwoPi = 2.0 * kPi;

/// What a result is that does not exist: unlike 0 it cannot be taken for one.
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

}  // namespace Ruv

#endif
