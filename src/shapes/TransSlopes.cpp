// SPDX-License-Identifier: BSL-1.0
// Between the ends i - 1 and i the slope is q(s) = q(i-1) + t (q(i) - q(i-1)) with the share
// t = (s - s(i-1)) / (s(i) - s(i-1)).

#include "shapes/TransSlopes.h"

#include <algorithm>
#include <cstddef>

namespace Ruv {

CTransSlopes::CTransSlopes(const std::vector<std::pair<double, double>>& ends) {
  m_stationings.reserve(ends.size());
  m_slopes.reserve(ends.size());
  for (const auto& [stationing, slope] : ends) {
    m_stationings.push_back(stationing);
    m_slopes.push_back(slope);
  }
}

double CTransSlopes::slopeAt(double stationing) const {
  if (!(stationing >= m_stationings.front())) return 0.0;
  // Where two intervals meet, the search stops at the end of the earlier one, which comes first.
  const auto found = std::lower_bound(m_stationings.begin() + 1, m_stationings.end(), stationing);
  if (found == m_stationings.end()) return 0.0;
  const auto i = static_cast<std::size_t>(found - m_stationings.begin());
  const double length = m_stationings[i] - m_stationings[i - 1];
  if (!(length > 0.0)) return m_slopes[i - 1];
  const double t = (stationing - m_stationings[i - 1]) / length;
  return m_slopes[i - 1] + t * (m_slopes[i] - m_slopes[i - 1]);
}

}  // namespace Ruv
