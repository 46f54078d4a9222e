// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/PrintableText.h"

#include <boost/locale/utf.hpp>

#include <algorithm>
#include <array>

namespace Drawing {

namespace {

namespace utf = boost::locale::utf;

struct Interval {
  utf::code_point first;
  utf::code_point last;
};

/// Controls, line and paragraph separators, marks and changes of the writing direction, and what
/// is no character at all.
constexpr std::array<Interval, 9> kHidden = {{{0x0000, 0x001F},
                                              {0x007F, 0x009F},
                                              {0x061C, 0x061C},
                                              {0x200E, 0x200F},
                                              {0x2028, 0x202E},
                                              {0x2066, 0x2069},
                                              {0xFEFF, 0xFEFF},
                                              {0xFFF9, 0xFFFB},
                                              {0xFFFE, 0xFFFF}}};

bool isHidden(utf::code_point letter) {
  return std::any_of(kHidden.begin(), kHidden.end(), [letter](const Interval& interval) {
    return letter >= interval.first && letter <= interval.last;
  });
}

std::string writtenOut(utf::code_point letter) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text = "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) {
    text += kDigits[letter >> shift & 0xFU];
  }
  return text;
}

}  // namespace

std::string printable(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  for (auto place = text.begin(); place != text.end();) {
    const auto start = place;
    const utf::code_point letter = utf::utf_traits<char>::decode(place, text.end());
    if (letter == utf::illegal || letter == utf::incomplete) {
      result += '?';
      place = start + 1;
    } else if (isHidden(letter)) {
      result += writtenOut(letter);
    } else {
      result.append(start, place);
    }
  }
  return result;
}

std::string escapedForXml(const std::string& text) {
  std::string result;
  for (const char letter : printable(text)) {
    switch (letter) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += letter;
    }
  }
  return result;
}

}  // namespace Drawing
