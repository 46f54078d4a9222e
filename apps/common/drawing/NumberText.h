// SPDX-License-Identifier: BSL-1.0
/// @file
/// Numbers as surveys print them, with a decimal point whatever the locale.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_NUMBER_TEXT_H
#define CALCULATIONS_APPS_COMMON_DRAWING_NUMBER_TEXT_H

#include <string>

namespace Drawing {

/// With a fixed number of decimals; never "-0.00".
std::string fixed(double value, int decimals);

/// As fixed, with a sign unless it is zero: "+3.160".
std::string signedFixed(double value, int decimals);

/// @name For tables: "-" for what is no finite number
/// @{
std::string fixedOrDash(double value, int decimals);
std::string signedFixedOrDash(double value, int decimals);
/// @}

/// One digit before the point and an exponent: "1.9e-09".
std::string scientific(double value, int decimals);

/// Rounded to whole units, in groups of three digits: "1 521 300".
std::string grouped(double value);

/// Whole numbers in groups, others with two decimals: "2 300", "245.50".
std::string radiusText(double radius);

/// A stationing as kilometres and metres: "7+202.834".
std::string stationText(double stationing, int decimals);

}  // namespace Drawing

#endif
