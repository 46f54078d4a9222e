// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/NumberParsing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

#ifndef __cpp_lib_to_chars
#include <cerrno>
#include <cstdlib>
#endif

namespace Exchange {

namespace {

constexpr std::size_t kGroupDigits = 3;
/// Longer than any number that is written out.
constexpr std::size_t kLongestNumber = 400;

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

#ifdef __cpp_lib_to_chars

/// Of the whole text.
std::optional<double> numberWithoutPlus(std::string_view text) {
  double number = 0.0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

#else

/// LLVM's library, as browsers have it, reads no numbers from text but by strtod, which knows
/// blanks, plus signs, hexadecimal digits and names of numbers too. The decimal point is that of
/// the locale, which there is none of in a browser.
std::optional<double> numberWithoutPlus(std::string_view text) {
  if (text.empty() || text[0] == '+') return std::nullopt;
  if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) return std::nullopt;
  const std::string copy(text);
  char* end = nullptr;
  errno = 0;
  const double number = std::strtod(copy.c_str(), &end);
  if (end != copy.c_str() + copy.size() || (errno == ERANGE && number == 0.0)) return std::nullopt;
  return number;
}

#endif

std::optional<double> plainNumber(std::string_view text) {
  // from_chars knows no plus sign.
  const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  const auto number = numberWithoutPlus(text.substr(hasPlus ? 1 : 0));
  return number && std::isfinite(*number) ? number : std::nullopt;
}

/// Digits and what separates their groups, of which each but the first has three digits.
bool areGroups(std::string_view whole, char separator) {
  std::size_t start = 0;
  for (bool isFirst = true;; isFirst = false) {
    const std::size_t end = std::min(whole.find(separator, start), whole.size());
    const std::string_view group = whole.substr(start, end - start);
    const bool fits =
        isFirst ? !group.empty() && group.size() <= kGroupDigits : group.size() == kGroupDigits;
    if (!fits || !std::all_of(group.begin(), group.end(), isDigit)) return false;
    if (end == whole.size()) return true;
    start = end + 1;
  }
}

/// With what separates groups taken out and a decimal point; empty when the groups are none.
std::string withoutGroups(std::string_view text, char separator, char decimal) {
  const bool hasSign = !text.empty() && (text[0] == '-' || text[0] == '+');
  const std::string_view unsignedText = text.substr(hasSign ? 1 : 0);
  const std::size_t point = std::min(unsignedText.find(decimal), unsignedText.size());
  const std::string_view whole = unsignedText.substr(0, point);
  if (!areGroups(whole, separator)) return {};
  std::string plain(text.substr(0, hasSign ? 1 : 0));
  std::copy_if(whole.begin(), whole.end(), std::back_inserter(plain), isDigit);
  plain += unsignedText.substr(point);
  return plain;
}

/// The letters that other programs write for a minus, and between thousands, as plain ones.
std::string withPlainLetters(std::string_view text) {
  struct Replacement {
    std::string_view from;
    char to;
  };
  constexpr std::array<Replacement, 7> kReplacements = {{{" ", '\''},
                                                         {"\xE2\x88\x92", '-'},     // U+2212
                                                         {"\xE2\x80\x99", '\''},    // U+2019
                                                         {"\xC2\xA0", '\''},        // no-break
                                                         {"\xE2\x80\x89", '\''},    // thin
                                                         {"\xE2\x80\xAF", '\''},    // narrow
                                                         {"\xE2\x80\x87", '\''}}};  // figure
  std::string plain;
  const bool isPlain = std::all_of(text.begin(), text.end(), [](char letter) {
    return letter > ' ' && static_cast<unsigned char>(letter) < 0x80U;
  });
  if (isPlain) return std::string(text);
  while (!text.empty()) {
    const auto* found = std::find_if(
        kReplacements.begin(), kReplacements.end(),
        [&](const Replacement& r) { return text.compare(0, r.from.size(), r.from) == 0; });
    plain += found == kReplacements.end() ? text[0] : found->to;
    text.remove_prefix(found == kReplacements.end() ? 1 : found->from.size());
  }
  return plain;
}

/// Decimal commas, groups, and letters beyond the plain ones.
std::optional<double> unusualNumber(std::string_view text, char decimal) {
  if (text.size() > kLongestNumber || std::none_of(text.begin(), text.end(), isDigit)) {
    return std::nullopt;
  }
  std::string plain = withPlainLetters(text);
  const char otherSeparator = decimal == ',' ? '.' : ',';
  const auto count = [&plain](char letter) {
    return std::count(plain.begin(), plain.end(), letter);
  };
  const bool isProven = count(otherSeparator) + count(decimal) >= 2;
  if (count('\'') > 0) {
    plain = withoutGroups(plain, '\'', decimal);
  } else if (count(otherSeparator) > 0) {
    if (!isProven) return std::nullopt;
    plain = withoutGroups(plain, otherSeparator, decimal);
  }
  // "12," is a number before a comma that separates.
  if (plain.empty() || count(decimal) > 1 || plain.back() == decimal) return std::nullopt;
  std::replace(plain.begin(), plain.end(), decimal, '.');
  return plainNumber(plain);
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

std::vector<std::string> wordsOf(const std::string& text) {
  constexpr const char* kBlanks = " \t\r\n";
  std::vector<std::string> words;
  std::size_t start = text.find_first_not_of(kBlanks);
  while (start != std::string::npos) {
    const std::size_t end = text.find_first_of(kBlanks, start);
    words.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(kBlanks, end);
  }
  return words;
}

std::optional<double> parseNumber(std::string_view text, char decimal) {
  text = trimmed(text);
  if (decimal == '.') {
    if (const auto number = plainNumber(text)) return number;
  }
  return unusualNumber(text, decimal);
}

std::optional<std::vector<double>> parseNumbers(const std::string& text) {
  std::vector<double> numbers;
  for (const std::string& word : wordsOf(text)) {
    const auto number = plainNumber(word);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

std::optional<double> parseStation(std::string_view text, char decimal) {
  constexpr double kKilometre = 1000.0;
  text = trimmed(text);
  const std::size_t plus = text.find('+', 1);
  if (plus == std::string_view::npos || text[plus - 1] == 'e' || text[plus - 1] == 'E') {
    return parseNumber(text, decimal);
  }
  const std::string_view kilometres = text.substr(0, plus);
  const std::string_view metres = text.substr(plus + 1);
  const std::size_t digits = std::min(metres.find(decimal), metres.size());
  const bool isNegative = kilometres[0] == '-';
  const auto whole = parseNumber(kilometres, decimal);
  const auto rest = parseNumber(metres, decimal);
  // "7+32" could be 7032 or 7320, and on American plans 732.
  const bool isPlain = digits == kGroupDigits && isDigit(metres[0]) && whole &&
                       *whole == std::floor(*whole) && isDigit(kilometres.back());
  if (!isPlain || !rest) return std::nullopt;
  return *whole * kKilometre + (isNegative ? -*rest : *rest);
}

}  // namespace Exchange
