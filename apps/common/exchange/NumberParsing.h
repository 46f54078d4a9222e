/// @file
/// Numbers in files: a decimal point whatever the locale.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_NUMBER_PARSING_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_NUMBER_PARSING_H

#include <optional>
#include <string>
#include <vector>

namespace Exchange {

/// The words between blanks.
std::vector<std::string> wordsOf(const std::string& text);

/// Nothing unless the text, apart from blanks around it, is one finite number.
std::optional<double> parseNumber(const std::string& text);

/// Nothing unless every word is a finite number.
std::optional<std::vector<double>> parseNumbers(const std::string& text);

}  // namespace Exchange

#endif
