// SPDX-License-Identifier: BSL-1.0
/// @file
/// Numbers that tests name.

#ifndef CALCULATIONS_TESTING_NUMBERS_H
#define CALCULATIONS_TESTING_NUMBERS_H

#include <limits>

namespace TestSupport {

constexpr double kPi = 3.141592653589793;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace TestSupport

#endif
