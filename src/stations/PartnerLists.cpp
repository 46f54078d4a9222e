// SPDX-License-Identifier: BSL-1.0
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
  // All lists share one block of memory, which the candidates after this one use again.
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
