#include "common/exchange/NumberParsing.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace Exchange {

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

std::optional<double> parseNumber(const std::string& text) {
  const auto numbers = parseNumbers(text);
  if (!numbers || numbers->size() != 1) return std::nullopt;
  return numbers->front();
}

std::optional<std::vector<double>> parseNumbers(const std::string& text) {
  std::vector<double> numbers;
  for (const std::string& word : wordsOf(text)) {
    const char* end = word.data() + word.size();
    // from_chars knows no plus sign.
    const bool hasPlus = word.size() > 1 && word[0] == '+' && word[1] != '-';
    double number = 0.0;
    const auto result = std::from_chars(word.data() + (hasPlus ? 1 : 0), end, number);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) {
      return std::nullopt;
    }
    numbers.push_back(number);
  }
  return numbers;
}

}  // namespace Exchange
