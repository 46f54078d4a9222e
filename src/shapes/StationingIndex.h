// SPDX-License-Identifier: BSL-1.0
/// @file
/// Finds the element that a stationing belongs to.

#ifndef CALCULATIONS_SHAPES_STATIONING_INDEX_H
#define CALCULATIONS_SHAPES_STATIONING_INDEX_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Ruv {

/// Ascending stationings behind a table of equal buckets. The table leads straight to the few
/// stationings that come into question, where a search by halves mispredicts at every step; a
/// crowded bucket is still searched by halves.
class CStationingIndex {
 public:
  CStationingIndex() = default;
  /// @param first stationing that will be asked for
  CStationingIndex(double first, std::vector<double> stationings);

  std::size_t size() const { return m_stationings.size(); }

  /// Index of the first stationing that is not less than the given one; size() if there is none.
  std::size_t firstNotLess(double stationing) const;
  /// The same, faster where it is the one that was guessed.
  std::size_t firstNotLess(double stationing, std::size_t guess) const {
    const bool isRight = guess < m_stationings.size() && stationing <= m_stationings[guess] &&
                         (guess == 0 || m_stationings[guess - 1] < stationing);
    return isRight ? guess : firstNotLess(stationing);
  }

 private:
  std::size_t bucketOf(double stationing) const;

  std::vector<double> m_stationings;
  double m_first = 0.0;
  double m_bucketsPerMetre = 0.0;
  std::vector<std::uint32_t> m_bucketStarts;  // one more than buckets
};

}  // namespace Ruv

#endif
