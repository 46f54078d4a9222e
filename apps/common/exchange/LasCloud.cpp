// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/LasCloud.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace Exchange {

namespace {

// LAS Specification 1.4 - R15, ASPRS 2019. Numbers are little-endian. Places of the header:
constexpr std::size_t kVersionMinor = 25;
constexpr std::size_t kHeaderSize = 94;
constexpr std::size_t kPointsAt = 96;
constexpr std::size_t kPointFormat = 104;
constexpr std::size_t kRecordLength = 105;
constexpr std::size_t kLegacyCount = 107;
constexpr std::size_t kScales = 131;   // x, y, z
constexpr std::size_t kOffsets = 155;  // x, y, z
constexpr std::size_t kCount = 247;    // from 1.4 on
constexpr std::size_t kOldHeader = 227;
constexpr std::size_t kNewHeader = 375;

constexpr unsigned kCompressed = 0x80;  // in the point format, as the usual compressor sets it
constexpr unsigned kLastFormat = 10;
constexpr unsigned kFirstExtendedFormat = 6;
/// Bytes of a record by point format; files may add some of their own.
constexpr std::array<std::size_t, kLastFormat + 1> kShortestRecords = {20, 28, 26, 34, 57, 63,
                                                                       30, 36, 38, 59, 67};
// Of a record: bits of flags.
constexpr std::size_t kClassification = 15;  // formats 0 to 5: the highest bit is "withheld"
constexpr std::size_t kExtendedFlags = 15;   // formats 6 to 10
constexpr unsigned kWithheld = 0x80;
constexpr unsigned kExtendedWithheld = 0x04;

constexpr std::size_t kBytesAtOnce = 1U << 20U;  // records may have 65 535 bytes

template <class Integer>
Integer integerAt(const std::string& bytes, std::size_t place) {
  Integer value = 0;
  for (std::size_t i = sizeof(Integer); i-- > 0;) {
    value = static_cast<Integer>((static_cast<std::uint64_t>(value) << 8U) |
                                 static_cast<unsigned char>(bytes[place + i]));
  }
  return value;
}

std::int32_t signedAt(const std::string& bytes, std::size_t place) {
  const auto bits = integerAt<std::uint32_t>(bytes, place);
  std::int32_t value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

double doubleAt(const std::string& bytes, std::size_t place) {
  const auto bits = integerAt<std::uint64_t>(bytes, place);
  double value = 0.0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

/// A coordinate is offset + scale * integer.
struct Axis {
  double scale = 1.0;
  double offset = 0.0;
};

class LasCloud : public PointCloud {
 public:
  explicit LasCloud(std::istream& in) : m_in(in) {}

  Remark readHeader();
  bool next(std::vector<CloudPoint>& points) override;
  std::uint64_t bytesRead() const override { return m_bytesRead; }

 private:
  bool read(std::string& bytes, std::size_t count);
  Remark checkHeader(const std::string& header);
  Remark skipTo(std::uint64_t place);
  bool isWithheld(std::size_t record) const;

  std::istream& m_in;
  std::uint64_t m_bytesRead = 0;
  std::uint64_t m_count = 0;
  std::uint64_t m_done = 0;
  std::size_t m_recordLength = 0;
  unsigned m_format = 0;
  std::array<Axis, 3> m_axes;
  std::string m_block;
};

bool LasCloud::read(std::string& bytes, std::size_t count) {
  bytes.resize(count);
  m_in.read(bytes.data(), static_cast<std::streamsize>(count));
  const auto size = static_cast<std::size_t>(m_in.gcount());
  bytes.resize(size);
  m_bytesRead += size;
  return size == count;
}

Remark LasCloud::checkHeader(const std::string& header) {
  const unsigned format = static_cast<unsigned char>(header[kPointFormat]);
  if ((format & kCompressed) != 0) {
    return {0, "the scan is compressed (LAZ): unpack it to LAS first"};
  }
  if (format > kLastFormat) {
    return {0, "point format " + std::to_string(format) + " of LAS is not known"};
  }
  m_format = format;
  m_recordLength = integerAt<std::uint16_t>(header, kRecordLength);
  if (m_recordLength < kShortestRecords[format]) {
    return {0, "the header gives a length of records that does not fit its point format"};
  }
  for (std::size_t i = 0; i < m_axes.size(); ++i) {
    m_axes[i] = {doubleAt(header, kScales + 8 * i), doubleAt(header, kOffsets + 8 * i)};
    if (!std::isfinite(m_axes[i].scale * 1e10) || !std::isfinite(m_axes[i].offset) ||
        m_axes[i].scale == 0.0) {
      return {0, "the header gives a scale or an offset that is no number of metres"};
    }
  }
  return {};
}

/// What lies between the header and the points, piece by piece.
Remark LasCloud::skipTo(std::uint64_t place) {
  constexpr std::uint64_t kPiece = 1U << 16U;
  std::string skipped;
  while (m_bytesRead < place) {
    const auto piece = static_cast<std::size_t>(std::min(kPiece, place - m_bytesRead));
    if (!read(skipped, piece)) return {0, "the file ends before its points"};
  }
  return {};
}

Remark LasCloud::readHeader() {
  std::string header;
  if (!read(header, kOldHeader)) return {0, "the header of the scan is not complete"};
  const unsigned minor = static_cast<unsigned char>(header[kVersionMinor]);
  if (header[kVersionMinor - 1] != 1 || minor > 4) {
    return {0, "only LAS 1.0 to 1.4 can be read"};
  }
  m_count = integerAt<std::uint32_t>(header, kLegacyCount);
  const auto headerSize = integerAt<std::uint16_t>(header, kHeaderSize);
  if (minor == 4 && headerSize >= kNewHeader) {
    std::string rest;
    if (!read(rest, kNewHeader - kOldHeader)) return {0, "the header of the scan is not complete"};
    m_count = integerAt<std::uint64_t>(rest, kCount - kOldHeader);
  }
  Remark problem = checkHeader(header);
  if (!problem.message.empty()) return problem;
  const auto pointsAt = integerAt<std::uint32_t>(header, kPointsAt);
  if (pointsAt < headerSize || pointsAt < m_bytesRead) {
    return {0, "the header gives a place of the points inside itself"};
  }
  m_description = "LAS 1." + std::to_string(minor) + ", point format " + std::to_string(m_format) +
                  ", " + std::to_string(m_count) + " points";
  return skipTo(pointsAt);
}

bool LasCloud::isWithheld(std::size_t record) const {
  const bool isExtended = m_format >= kFirstExtendedFormat;
  const auto flags =
      static_cast<unsigned char>(m_block[record + (isExtended ? kExtendedFlags : kClassification)]);
  return (flags & (isExtended ? kExtendedWithheld : kWithheld)) != 0;
}

bool LasCloud::next(std::vector<CloudPoint>& points) {
  points.clear();
  while (points.empty() && m_done < m_count) {
    const std::size_t most = std::min(kPointsAtOnce, kBytesAtOnce / m_recordLength);
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(most, m_count - m_done));
    read(m_block, count * m_recordLength);
    const std::size_t complete = m_block.size() / m_recordLength;
    for (std::size_t i = 0; i < complete; ++i) {
      ++m_done;
      const std::size_t record = i * m_recordLength;
      if (isWithheld(record)) continue;
      std::array<double, 3> place{};
      for (std::size_t axis = 0; axis < place.size(); ++axis) {
        place[axis] =
            m_axes[axis].offset + m_axes[axis].scale * signedAt(m_block, record + 4 * axis);
      }
      const auto number = std::min<std::uint64_t>(m_done, std::numeric_limits<int>::max());
      points.push_back({static_cast<int>(number), {place[0], place[1], place[2]}});
    }
    if (complete < count) {
      m_problem = {0, "the file ends after " + std::to_string(m_done) + " of its " +
                          std::to_string(m_count) + " points"};
      m_count = m_done;
      return false;
    }
  }
  return !points.empty();
}

}  // namespace

Outcome<std::unique_ptr<PointCloud>> openLas(std::istream& in) {
  using Result = Outcome<std::unique_ptr<PointCloud>>;
  auto cloud = std::make_unique<LasCloud>(in);
  const Remark problem = cloud->readHeader();
  if (!problem.message.empty()) return Result::failure(problem);
  return Result::success(std::move(cloud));
}

}  // namespace Exchange
