#include "common/console/RangeCheck.h"

#include "common/exchange/NumberParsing.h"

#include <sstream>
#include <string>

namespace Console {

namespace {

std::string rangeText(double lowest, double highest) {
  constexpr int kEveryDigit = 12;
  std::ostringstream text;
  text.precision(kEveryDigit);
  text << lowest << " to " << highest;
  return text.str();
}

}  // namespace

CLI::Validator between(double lowest, double highest) {
  const std::string range = rangeText(lowest, highest);
  const auto complaint = [=](const std::string& text) {
    const auto number = Exchange::parseNumber(text);
    const bool fits = number && *number >= lowest && *number <= highest;
    return fits ? std::string() : text + " is not a number from " + range;
  };
  return CLI::Validator(complaint, range);
}

}  // namespace Console
