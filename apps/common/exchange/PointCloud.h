// SPDX-License-Identifier: BSL-1.0
/// @file
/// Scans of any size, read piece by piece: text and LAS.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_POINT_CLOUD_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_POINT_CLOUD_H

#include "common/exchange/Outcome.h"
#include "common/exchange/TableFormat.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <vector>

namespace Exchange {

struct CloudPoint {
  int line = 0;  ///< of a text; of LAS, the number of the point
  Ruv::Calculations::ENHPoint grid;
};

/// Few enough to stay in a processor's cache, enough to make calls cheap.
constexpr std::size_t kPointsAtOnce = 20000;

class PointCloud {
 public:
  virtual ~PointCloud() = default;

  /// Replaces the points by the next ones of the scan, kPointsAtOnce at most.
  /// @return false when there are none any more, or when problem() tells why it ends here
  virtual bool next(std::vector<CloudPoint>& points) = 0;

  /// Why the scan cannot be read to its end: then what was read is not all of it.
  const Remark& problem() const { return m_problem; }

  /// Rows that could not be read: the first ones, and how many there are.
  const std::vector<Remark>& firstRejected() const { return m_firstRejected; }
  std::size_t rejected() const { return m_rejected; }

  /// How the scan is written.
  const std::string& description() const { return m_description; }

  /// Bytes of the file so far, for the progress.
  virtual std::uint64_t bytesRead() const = 0;

 protected:
  void reject(const Remark& remark);

  Remark m_problem;
  std::string m_description;

 private:
  std::vector<Remark> m_firstRejected;
  std::size_t m_rejected = 0;
};

/// Columns east, north, height.
const TableSchema& scanColumns();

/// Recognises LAS 1.0 to 1.4 by its signature. Everything else is text: points in rows of east,
/// north, height and whatever follows (xyz), with headings or without, and with the number of
/// points before them (pts). A stream from a pipe will do. Compressed LAS is refused.
/// @param in must live as long
Outcome<std::unique_ptr<PointCloud>> openPointCloud(std::istream& in,
                                                    const TableFormat& format = {});

}  // namespace Exchange

#endif
