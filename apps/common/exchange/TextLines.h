// SPDX-License-Identifier: BSL-1.0
/// @file
/// The lines of a text, whatever its encoding and line ends.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_TEXT_LINES_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_TEXT_LINES_H

#include "common/exchange/Outcome.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Exchange {

class Transcoder;

/// A text in UTF-16 or UTF-32 as UTF-8, without a byte order mark; nothing for others and for what
/// is not well-formed.
std::optional<std::string> unicodeAsUtf8(const std::string& text);

/// Reads UTF-8, UTF-16 and UTF-32, with a byte order mark or without, and takes lines that are not
/// UTF-8 for Windows-1252, as programs of the German-speaking countries write it. Lines end with a
/// line feed, a carriage return or both. A block is read at a time, so that files may be of any
/// size; a line of more than a megabyte, or one that holds a zero byte, is no text.
class TextLines {
 public:
  /// The stream must live as long.
  explicit TextLines(std::istream& in);
  ~TextLines();
  TextLines(const TextLines&) = delete;
  TextLines& operator=(const TextLines&) = delete;

  /// @param[out] line in UTF-8, without its end; holds until the next call
  /// @return false at the end of the text, or when problem() tells why it ends here
  bool next(std::string_view& line);

  /// Of the line returned last, from 1.
  int number() const { return m_number; }
  /// Of the stream, for the progress.
  std::uint64_t bytesRead() const { return m_bytesRead; }
  /// With an empty message when there is none.
  const Remark& problem() const { return m_problem; }

 private:
  bool fill();
  void recogniseEncoding();
  bool findEnd(std::size_t& length, std::size_t& next);
  bool fail(const std::string& message);

  std::istream& m_in;
  std::string m_text;  // UTF-8, read but not yet returned from m_position on
  std::size_t m_position = 0;
  bool m_isFirstBlock = true;
  bool m_hasEnded = false;                   // the stream
  std::unique_ptr<Transcoder> m_transcoder;  // null for 8-bit letters
  std::string m_line;                        // one that had to be converted
  int m_number = 0;
  std::uint64_t m_bytesRead = 0;
  Remark m_problem;
};

}  // namespace Exchange

#endif
