// SPDX-License-Identifier: BSL-1.0
// Thousands of candidates have their lists filled one after the other, and most are given up at the
// first measured point without partners. So filling allocates nothing: all lists of a candidate are
// stretches of one block, which the candidates after it use again.

#include "stations/PartnerLists.h"

#include <algorithm>

namespace Ruv {
namespace Calculations {

PartnerLists::PartnerLists(const FixPointField& field, double tolerance, std::size_t measuredCount)
    : m_field(&field), m_tolerance(tolerance), m_ranges(measuredCount) {}

void PartnerLists::restart(FieldPlace candidate) {
  m_candidate = candidate;
  m_places.clear();
  std::fill(m_ranges.begin(), m_ranges.end(), Range());
}

bool PartnerLists::find(const PointDistance& toMeasured) {
  Range& range = m_ranges[indexOf(toMeasured.to)];
  range.begin = m_places.size();
  m_field->appendPartners(m_candidate, toMeasured.distance, m_tolerance, m_places);
  range.end = m_places.size();
  return range.begin < range.end;
}

PartnerLists::List PartnerLists::of(MeasuredPoint measured) const {
  const Range& range = m_ranges[indexOf(measured)];
  return {m_places.data() + range.begin, m_places.data() + range.end};
}

}  // namespace Calculations
}  // namespace Ruv
