// SPDX-License-Identifier: BSL-1.0
#include "shapes/StationingIndex.h"

#include <algorithm>
#include <utility>

namespace Ruv {

CStationingIndex::CStationingIndex(double first, std::vector<double> stationings)
    : m_stationings(std::move(stationings)), m_first(first) {
  if (m_stationings.empty()) return;
  const std::size_t numBuckets = kBucketsPerStationing * m_stationings.size() + 1;
  const double range = m_stationings.back() - first;
  if (range > 0.0) m_bucketsPerMetre = static_cast<double>(numBuckets - 1) / range;
  m_buckets.resize(numBuckets);
  std::size_t last = 0;
  for (const double stationing : m_stationings) {
    last = std::max(last, bucketOf(stationing));  // what is not a number stays where it is
    Bucket& bucket = m_buckets[last];
    if (bucket.count++ == 0) bucket.stationing = stationing;
  }
  std::uint32_t before = 0;
  for (Bucket& bucket : m_buckets) {
    bucket.before = before;
    before += bucket.count;
  }
}

/// Behind the first stationing of a bucket.
std::size_t CStationingIndex::firstNotLessIn(const Bucket& bucket, double stationing) const {
  const auto begin = m_stationings.begin() + static_cast<std::ptrdiff_t>(bucket.before);
  const auto end = begin + static_cast<std::ptrdiff_t>(bucket.count);
  return static_cast<std::size_t>(std::lower_bound(begin + 1, end, stationing) -
                                  m_stationings.begin());
}

}  // namespace Ruv
