// SPDX-License-Identifier: BSL-1.0
/// @file
/// Units of lengths and angles, as tables name them.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_UNITS_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_UNITS_H

#include <optional>
#include <string>
#include <string_view>

namespace Exchange {

constexpr double kInternationalFoot = 0.3048;
constexpr double kSurveyFoot = 1200.0 / 3937.0;  ///< of the United States; 2 ppm longer

enum class AngleUnit {
  Radian,
  Gon,
  Degree,              ///< with decimals
  DegreeMinuteSecond,  ///< minutes and seconds as decimals: 45.3025 is 45 deg 30' 25"
  Sexagesimal          ///< 45 deg 30' 25", with signs, blanks, dashes or colons between
};

double toRadians(double angle, AngleUnit unit);

/// "gon", "deg", "rad", ... as options take and messages give them.
std::string nameOf(AngleUnit unit);

/// What a unit in a heading means. "grad" is a gon in English and a degree in German.
struct Unit {
  enum class Kind { Length, Angle, AmbiguousAngle };
  Kind kind = Kind::Length;
  double metres = 1.0;
  AngleUnit angle = AngleUnit::Gon;
};

/// "m", "US ft", "gon", "°", ... in letters of either case; nothing for other words.
std::optional<Unit> unitNamed(std::string_view name);

/// An angle in radians. One with signs for degrees is taken as such when no unit is known, and is
/// refused when another one is.
/// @param unit of plain numbers; nothing leaves these in gon
/// @param decimal a point or a comma
std::optional<double> parseAngle(std::string_view text, std::optional<AngleUnit> unit,
                                 char decimal);

/// Whether an angle shows by itself that it is in degrees, minutes and seconds.
bool isSexagesimal(std::string_view text, char decimal);

/// A length in metres; a unit may follow the number.
std::optional<double> parseLength(std::string_view text, double metresPerUnit, char decimal);

}  // namespace Exchange

#endif
