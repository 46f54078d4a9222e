// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/VisibleText.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace Exchange {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// A letter and the bytes that it takes; none when they are no UTF-8.
struct Letter {
  char32_t code = 0;
  std::size_t size = 0;
};

Letter letterAt(std::string_view text, std::size_t start) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[start + i]); };
  const unsigned char first = byte(0);
  if (first < 0x80U) return {first, 1};
  const std::size_t size = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
  if (first < 0xC2U || first > 0xF4U || start + size > text.size()) return {};
  char32_t code = first & (0x7FU >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return {};
    code = (code << 6U) | (byte(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kLeastOfSize = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < kLeastOfSize[size] || code > 0x10FFFF || isSurrogate) return {};
  return {code, size};
}

void append(std::string& text, char32_t code) {
  const auto byte = [&text](char32_t bits) { text += static_cast<char>(bits); };
  if (code < 0x80) {
    byte(code);
  } else if (code < 0x800) {
    byte(0xC0 | (code >> 6U));
    byte(0x80 | (code & 0x3FU));
  } else {
    byte(0xE0 | (code >> 12U));
    byte(0x80 | ((code >> 6U) & 0x3FU));
    byte(0x80 | (code & 0x3FU));
  }
}

/// What Windows-1252 has in place of the control letters from 0x80 on; 0 for nothing.
constexpr std::array<char16_t, 32> kWindowsLetters = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// Control letters, marks of writing direction, letters without width, separators of lines.
bool isHidden(char32_t code) {
  struct Range {
    char32_t first, last;
  };
  constexpr std::array<Range, 10> kHidden = {{{0x00, 0x1F},
                                              {0x7F, 0x9F},
                                              {0xAD, 0xAD},
                                              {0x61C, 0x61C},
                                              {0x200B, 0x200B},
                                              {0x200E, 0x200F},
                                              {0x2028, 0x202E},
                                              {0x2060, 0x206F},
                                              {0xFEFF, 0xFEFF},
                                              {0xE0000, 0xE007F}}};
  for (const Range& range : kHidden) {
    if (code >= range.first && code <= range.last) return true;
  }
  return false;
}

std::string numbered(char32_t code) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const int digits = code < 0x100 ? 2 : code < 0x10000 ? 4 : 6;
  std::string text = digits == 2 ? "\\x" : digits == 4 ? "\\u" : "\\U";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += kDigits[(code >> static_cast<unsigned>(shift)) & 0xFU];
  }
  return text;
}

}  // namespace

bool isUtf8(std::string_view text) {
  // Nearly every line of a scan is plain: one pass that compilers make fast.
  unsigned char bits = 0;
  for (const char letter : text) {
    bits |= static_cast<unsigned char>(letter);
  }
  if (bits < 0x80U) return true;
  std::size_t i = 0;
  while (i < text.size()) {
    const Letter letter = letterAt(text, i);
    if (letter.size == 0) return false;
    i += letter.size;
  }
  return true;
}

std::string fromWindows1252(std::string_view text) {
  std::string converted;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    const bool isSpecial = byte >= 0x80U && byte < 0xA0U;
    const char32_t code = isSpecial ? kWindowsLetters[byte - 0x80U] : byte;
    append(converted, code == 0 && isSpecial ? kReplacement : code);
  }
  return converted;
}

std::string visible(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const Letter letter = letterAt(text, i);
    if (letter.size == 0) {
      shown += numbered(static_cast<unsigned char>(text[i]));
      ++i;
      continue;
    }
    if (isHidden(letter.code)) {
      shown += numbered(letter.code);
    } else {
      shown.append(text.substr(i, letter.size));
    }
    i += letter.size;
  }
  return shown;
}

std::string inQuotes(std::string_view text) {
  constexpr std::size_t kMostBytes = 60;
  std::size_t end = text.size();
  if (end > kMostBytes) {
    end = kMostBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
      --end;
  }
  return '"' + visible(text.substr(0, end)) + (end < text.size() ? "..." : "") + '"';
}

}  // namespace Exchange
