// SPDX-License-Identifier: BSL-1.0
/// @file
/// Numbers in files, whatever the locale.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_NUMBER_PARSING_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_NUMBER_PARSING_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Exchange {

/// Without the blanks around it.
std::string_view trimmed(std::string_view text);

/// The words between blanks.
std::vector<std::string> wordsOf(const std::string& text);

/// Nothing unless the text, apart from blanks around it, is one finite number. Groups of three
/// digits may be separated by apostrophes or narrow blanks; by points where the decimal is a comma,
/// and by commas where it is a point, only when the text shows it to be a group and no decimal:
/// "1.519.480" and "1.519,2" do, "1.519" does not.
/// @param decimal a point or a comma
std::optional<double> parseNumber(std::string_view text, char decimal = '.');

/// Nothing unless every word is a finite number with a decimal point.
std::optional<std::vector<double>> parseNumbers(const std::string& text);

/// A stationing: a number, or kilometres and metres as "7+320.5".
std::optional<double> parseStation(std::string_view text, char decimal = '.');

}  // namespace Exchange

#endif
