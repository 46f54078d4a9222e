// SPDX-License-Identifier: BSL-1.0
/// @file
/// Which fix points each measured point may be, once the reference point is placed.

#ifndef CALCULATIONS_STATIONS_PARTNER_LISTS_H
#define CALCULATIONS_STATIONS_PARTNER_LISTS_H

#include "stations/FixPointField.h"
#include "stations/Matching.h"

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// For one candidate, a fix point that the reference point is taken for: the fix points whose
/// distance from the candidate is, within the tolerance, that of a measured point from the
/// reference point.
class PartnerLists {
 public:
  /// Places of a FixPointField.
  class List {
   public:
    List(const FieldPlace* begin, const FieldPlace* end) : m_begin(begin), m_end(end) {}
    std::size_t size() const { return static_cast<std::size_t>(m_end - m_begin); }
    FieldPlace operator[](std::size_t i) const { return m_begin[i]; }

   private:
    const FieldPlace* m_begin;
    const FieldPlace* m_end;
  };

  PartnerLists(const FixPointField& field, double tolerance, std::size_t measuredCount);

  /// Forgets all lists and starts with another candidate.
  void restart(FieldPlace candidate);

  /// Finds the partners of a measured point, once after each restart.
  /// @param toMeasured finite distance of the point from the reference point
  /// @return whether there are any
  bool find(const PointDistance& toMeasured);

  FieldPlace candidate() const { return m_candidate; }

  /// The partners of a measured point; empty before they are found.
  List of(MeasuredPoint measured) const;

 private:
  struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  const FixPointField* m_field;
  double m_tolerance;
  FieldPlace m_candidate{};
  std::vector<Range> m_ranges;
  std::vector<FieldPlace> m_places;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
