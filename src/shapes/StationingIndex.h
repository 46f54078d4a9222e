// SPDX-License-Identifier: BSL-1.0
/// @file
/// Finds the element that a stationing belongs to.

#ifndef CALCULATIONS_SHAPES_STATIONING_INDEX_H
#define CALCULATIONS_SHAPES_STATIONING_INDEX_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace Ruv {

/// Ascending stationings behind a table of equal buckets. A bucket holds the first of its
/// stationings and how many come before it, so that mostly the answer is read from one line of the
/// cache and without a branch, where a search by halves mispredicts at every step. Only behind the
/// first one of several stationings of a bucket is searched further, by halves.
class CStationingIndex {
 public:
  CStationingIndex() = default;
  /// @param first stationing that will be asked for
  CStationingIndex(double first, std::vector<double> stationings);

  std::size_t size() const { return m_stationings.size(); }

  /// Index of the first stationing that is not less than the given one; size() if there is none.
  std::size_t firstNotLess(double stationing) const {
    if (m_stationings.empty()) return 0;
    const Bucket& bucket = m_buckets[bucketOf(stationing)];
    const bool isBehind = bucket.stationing < stationing;
    if (isBehind && bucket.count > 1) return firstNotLessIn(bucket, stationing);
    return std::size_t{bucket.before} + (isBehind ? 1 : 0);
  }
  /// The same, faster where it is the one that was guessed.
  std::size_t firstNotLess(double stationing, std::size_t guess) const {
    const bool isRight = guess < m_stationings.size() && stationing <= m_stationings[guess] &&
                         (guess == 0 || m_stationings[guess - 1] < stationing);
    return isRight ? guess : firstNotLess(stationing);
  }

 private:
  struct Bucket {
    double stationing = std::numeric_limits<double>::infinity();  // the first one, if any
    std::uint32_t before = 0;                                     // stationings in lower buckets
    std::uint32_t count = 0;                                      // of its stationings
  };

  /// Buckets for each stationing: with elements of similar length, most hold one or none.
  static constexpr std::size_t kBucketsPerStationing = 2;

  /// Grows with the stationing, so what lies in lower buckets is less.
  std::size_t bucketOf(double stationing) const {
    const double place = (stationing - m_first) * m_bucketsPerMetre;
    if (!(place > 0.0)) return 0;
    const auto last = static_cast<double>(kBucketsPerStationing * m_stationings.size());
    return static_cast<std::size_t>(std::min(place, last));
  }
  std::size_t firstNotLessIn(const Bucket& bucket, double stationing) const;

  std::vector<double> m_stationings;
  double m_first = 0.0;
  double m_bucketsPerMetre = 0.0;
  std::vector<Bucket> m_buckets;
};

}  // namespace Ruv

#endif
