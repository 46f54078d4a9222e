// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/TextLines.h"

#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <optional>
#include <utility>

#include <iconv.h>

namespace Exchange {

namespace {

constexpr std::size_t kBlock = 1U << 14U;
constexpr std::size_t kLongestLine = 1U << 20U;

struct ByteOrderMark {
  const char* encoding;  // as iconv names it; null for UTF-8
  std::string_view bytes;
};

using namespace std::string_view_literals;

/// The mark of UTF-32 begins with that of UTF-16.
constexpr std::array<ByteOrderMark, 5> kMarks = {{{"UTF-32LE", "\xFF\xFE\0\0"sv},
                                                  {"UTF-32BE", "\0\0\xFE\xFF"sv},
                                                  {"UTF-16LE", "\xFF\xFE"sv},
                                                  {"UTF-16BE", "\xFE\xFF"sv},
                                                  {nullptr, "\xEF\xBB\xBF"sv}}};

/// A text of mostly Latin letters has a zero in every second byte, on the side of the higher one.
const char* encodingByZeros(std::string_view text) {
  std::array<std::size_t, 2> zeros{};
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\0') ++zeros[i % 2];
  }
  const std::size_t most = text.size() / 3;
  if (zeros[1] > most && zeros[0] == 0) return "UTF-16LE";
  if (zeros[0] > most && zeros[1] == 0) return "UTF-16BE";
  return nullptr;
}

/// With no bytes for a text without a mark.
ByteOrderMark encodingOf(std::string_view text) {
  for (const ByteOrderMark& mark : kMarks) {
    if (text.compare(0, mark.bytes.size(), mark.bytes) == 0) return mark;
  }
  constexpr std::size_t kEnough = 1U << 16U;
  return {encodingByZeros(text.substr(0, kEnough)), {}};
}

}  // namespace

/// From an encoding to UTF-8, block by block.
class Transcoder {
 public:
  explicit Transcoder(const char* encoding) : m_state(iconv_open("UTF-8", encoding)) {}
  ~Transcoder() {
    if (isOpen()) iconv_close(m_state);
  }
  Transcoder(const Transcoder&) = delete;
  Transcoder& operator=(const Transcoder&) = delete;

  /// Appends what the bytes mean; an incomplete letter at their end waits for the next block.
  /// @return false for bytes that mean nothing
  bool append(std::string_view bytes, std::string& text) {
    if (!isOpen()) return false;
    m_rest.append(bytes);
    char* from = m_rest.data();
    std::size_t left = m_rest.size();
    while (left > 0) {
      std::array<char, 4096> buffer{};
      char* to = buffer.data();
      std::size_t room = buffer.size();
      const std::size_t result = iconv(m_state, &from, &left, &to, &room);
      text.append(buffer.data(), buffer.size() - room);
      if (result != static_cast<std::size_t>(-1)) break;
      if (errno == EINVAL) break;  // incomplete
      if (errno != E2BIG) return false;
    }
    m_rest.erase(0, m_rest.size() - left);
    return true;
  }

  bool isComplete() const { return m_rest.empty(); }

 private:
  // The value by which iconv_open tells failure.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  bool isOpen() const { return m_state != reinterpret_cast<iconv_t>(-1); }

  iconv_t m_state;
  std::string m_rest;
};

std::optional<std::string> unicodeAsUtf8(const std::string& text) {
  const ByteOrderMark mark = encodingOf(text);
  if (mark.encoding == nullptr) return std::nullopt;
  Transcoder transcoder(mark.encoding);
  std::string converted;
  const bool isGood =
      transcoder.append(std::string_view(text).substr(mark.bytes.size()), converted) &&
      transcoder.isComplete();
  return isGood ? std::optional<std::string>(std::move(converted)) : std::nullopt;
}

TextLines::TextLines(std::istream& in) : m_in(in) {}

TextLines::~TextLines() = default;

bool TextLines::fail(const std::string& message) {
  m_problem = {m_number + 1, message};
  m_hasEnded = true;
  m_text.clear();
  m_position = 0;
  return false;
}

void TextLines::recogniseEncoding() {
  const ByteOrderMark mark = encodingOf(m_text);
  m_text.erase(0, mark.bytes.size());
  if (mark.encoding != nullptr) m_transcoder = std::make_unique<Transcoder>(mark.encoding);
}

/// Appends a block of the stream to the text.
bool TextLines::fill() {
  if (m_hasEnded) return false;
  m_text.erase(0, m_position);
  m_position = 0;
  std::string block(kBlock, '\0');
  m_in.read(block.data(), static_cast<std::streamsize>(block.size()));
  block.resize(static_cast<std::size_t>(m_in.gcount()));
  m_bytesRead += block.size();
  m_hasEnded = block.empty();
  if (m_in.bad()) return fail("the file cannot be read on");
  if (m_isFirstBlock) {
    m_isFirstBlock = false;
    m_text.swap(block);
    recogniseEncoding();
    block.swap(m_text);
  }
  if (m_transcoder == nullptr) {
    m_text += block;
  } else if (!m_transcoder->append(block, m_text) || (m_hasEnded && !m_transcoder->isComplete())) {
    return fail("the text holds bytes that are no letters of its encoding");
  }
  return !m_hasEnded;
}

/// @param[out] length of the line, next where the one after it begins, from the position
/// @return false when the text has no line any more
bool TextLines::findEnd(std::size_t& length, std::size_t& next) {
  std::size_t searched = 0;
  for (;;) {
    const std::string_view rest = std::string_view(m_text).substr(m_position);
    const auto* found = std::find_if(rest.begin() + searched, rest.end(),
                                     [](char letter) { return letter == '\n' || letter == '\r'; });
    const auto end = found == rest.end() ? std::string_view::npos
                                         : static_cast<std::size_t>(found - rest.begin());
    const bool needsNextLetter =
        end != std::string_view::npos && rest[end] == '\r' && end + 1 == rest.size() && !m_hasEnded;
    if (end != std::string_view::npos && !needsNextLetter) {
      const bool isPair = rest[end] == '\r' && end + 1 < rest.size() && rest[end + 1] == '\n';
      length = end;
      next = end + (isPair ? 2 : 1);
      return true;
    }
    if (rest.size() > kLongestLine) return fail("a line is longer than a megabyte: no table");
    searched = needsNextLetter ? end : rest.size();
    if (!fill() && m_hasEnded && !needsNextLetter) {
      length = next = m_text.size() - m_position;
      return length > 0;
    }
  }
}

bool TextLines::next(std::string_view& line) {
  std::size_t length = 0;
  std::size_t following = 0;
  if (!findEnd(length, following)) return false;
  line = std::string_view(m_text).substr(m_position, length);
  if (line.find('\0') != std::string_view::npos) {
    return fail("the line holds a zero byte: no text");
  }
  m_position += following;
  if (m_number < std::numeric_limits<int>::max()) ++m_number;
  if (!isUtf8(line)) {
    m_line = fromWindows1252(line);
    line = m_line;
  }
  return true;
}

}  // namespace Exchange
