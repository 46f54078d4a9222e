// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#ifndef __cpp_lib_to_chars
#include <ios>
#include <locale>
#include <sstream>
#endif

namespace Drawing {

namespace {

#ifdef __cpp_lib_to_chars

/// Room for the largest double written out, its sign and its decimals.
constexpr std::size_t kLongestNumber = std::numeric_limits<double>::max_exponent10 + 32;

std::string written(double value, std::chars_format format, int decimals) {
  std::array<char, kLongestNumber> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, decimals);
  return std::string(buffer.data(), result.ptr);
}

std::string writtenFixed(double value, int decimals) {
  return written(value, std::chars_format::fixed, decimals);
}

std::string writtenScientific(double value, int decimals) {
  return written(value, std::chars_format::scientific, decimals);
}

#else  // LLVM's library, as browsers have it: streams write the same digits, more slowly

std::string written(double value, std::ios_base& (*format)(std::ios_base&), int decimals) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(decimals);
  out << format << value;
  return out.str();
}

std::string writtenFixed(double value, int decimals) {
  return written(value, std::fixed, decimals);
}

std::string writtenScientific(double value, int decimals) {
  return written(value, std::scientific, decimals);
}

#endif

bool isZero(const std::string& number) {
  return number.find_first_of("123456789in") == std::string::npos;
}

}  // namespace

std::string fixed(double value, int decimals) {
  std::string number = writtenFixed(value, decimals);
  if (number.front() == '-' && isZero(number)) number.erase(0, 1);
  return number;
}

std::string signedFixed(double value, int decimals) {
  std::string number = fixed(value, decimals);
  if (number.front() != '-' && !isZero(number)) number.insert(0, 1, '+');
  return number;
}

std::string fixedOrDash(double value, int decimals) {
  return std::isfinite(value) ? fixed(value, decimals) : "-";
}

std::string signedFixedOrDash(double value, int decimals) {
  return std::isfinite(value) ? signedFixed(value, decimals) : "-";
}

std::string scientific(double value, int decimals) { return writtenScientific(value, decimals); }

std::string grouped(double value) {
  std::string digits = fixed(std::abs(value), 0);
  constexpr std::size_t kGroup = 3;
  for (std::size_t end = digits.size(); end > kGroup; end -= kGroup) {
    digits.insert(end - kGroup, 1, ' ');
  }
  return value < 0.0 && !isZero(digits) ? "-" + digits : digits;
}

std::string radiusText(double radius) {
  constexpr double kPrintedAsWhole = 0.005;
  const bool isWhole = std::abs(radius - std::round(radius)) < kPrintedAsWhole;
  return isWhole ? grouped(radius) : fixed(radius, 2);
}

std::string stationText(double stationing, int decimals) {
  std::string metres = fixed(std::abs(stationing), decimals);
  const bool isNegative = stationing < 0.0 && !isZero(metres);
  constexpr std::size_t kMetreDigits = 3;
  std::size_t point = metres.find('.');
  if (point == std::string::npos) point = metres.size();
  if (point <= kMetreDigits) metres.insert(0, kMetreDigits + 1 - point, '0');
  point = std::max(point, kMetreDigits + 1);
  metres.insert(point - kMetreDigits, 1, '+');
  return isNegative ? "-" + metres : metres;
}

}  // namespace Drawing
