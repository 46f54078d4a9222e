// SPDX-License-Identifier: BSL-1.0
#include "shapes/StationingIndex.h"

#include <algorithm>
#include <utility>

namespace Ruv {

namespace {

/// Buckets for each stationing. With so many, nearly all buckets of an axis with elements of
/// similar length hold one stationing or none, and the table takes no more memory than the
/// stationings twice.
constexpr std::size_t kBucketsPerStationing = 4;

/// Fewer stationings than this are looked at one after the other.
constexpr std::size_t kCrowdedBucket = 5;

}  // namespace

CStationingIndex::CStationingIndex(double first, std::vector<double> stationings)
    : m_stationings(std::move(stationings)), m_first(first) {
  if (m_stationings.empty()) return;
  const std::size_t numBuckets = kBucketsPerStationing * m_stationings.size() + 1;
  const double range = m_stationings.back() - first;
  if (range > 0.0) m_bucketsPerMetre = static_cast<double>(numBuckets - 1) / range;
  // The start of each bucket is the first stationing in it or in a later one, so that the answer to
  // a question lies between the starts of its bucket and of the next.
  m_bucketStarts.assign(numBuckets + 1, 0);
  std::size_t index = 0;
  for (std::size_t bucket = 0; bucket <= numBuckets; ++bucket) {
    while (index < m_stationings.size() && bucketOf(m_stationings[index]) < bucket) {
      ++index;
    }
    m_bucketStarts[bucket] = static_cast<std::uint32_t>(index);
  }
}

/// Grows with the stationing, so what lies in lower buckets is less.
std::size_t CStationingIndex::bucketOf(double stationing) const {
  const double place = (stationing - m_first) * m_bucketsPerMetre;
  if (!(place > 0.0)) return 0;
  const auto last = static_cast<double>(kBucketsPerStationing * m_stationings.size());
  return static_cast<std::size_t>(std::min(place, last));
}

std::size_t CStationingIndex::firstNotLess(double stationing) const {
  if (m_stationings.empty()) return 0;
  const std::size_t bucket = bucketOf(stationing);
  std::size_t index = m_bucketStarts[bucket];
  const std::size_t end = m_bucketStarts[bucket + 1];
  if (end - index >= kCrowdedBucket) {
    const auto begin = m_stationings.begin();
    const auto found = std::lower_bound(begin + static_cast<std::ptrdiff_t>(index),
                                        begin + static_cast<std::ptrdiff_t>(end), stationing);
    return static_cast<std::size_t>(found - begin);
  }
  while (index < end && m_stationings[index] < stationing) {
    ++index;
  }
  return index;
}

}  // namespace Ruv
