// SPDX-License-Identifier: BSL-1.0
/// @file
/// The design profile of a tunnel, and what drawings and reports ask about it.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_DESIGN_PROFILE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_DESIGN_PROFILE_H

#include "common/exchange/Outcome.h"
#include "common/exchange/TableFormat.h"

#include <Calculations/Calculations.h>

#include <istream>
#include <vector>

namespace Exchange {

/// The area inside a closed profile, with the arcs as such, not as chords.
double enclosedArea(const Ruv::Calculations::ThProfileDefinition& profile);

/// A closed profile. Copies share it.
class DesignProfile {
 public:
  using Definition = boost::shared_ptr<const Ruv::Calculations::ThProfileDefinition>;
  using Point2D = Ruv::Calculations::Point2D;

  explicit DesignProfile(const Definition& definition);

  const Definition& definition() const { return m_definition; }
  const Ruv::Calculations::ThProfileCalculator& calculator() const { return *m_calculator; }
  double circumference() const { return m_definition->getCircumference(); }
  /// Points 5 cm apart and all corners, clockwise; the first is not repeated.
  const std::vector<Point2D>& outline() const { return m_outline; }
  /// Derolments at which its elements meet.
  std::vector<double> joints() const;
  Point2D crown() const { return m_calculator->calcPointOnProfileAtDerolment(0.0); }
  double area() const { return enclosedArea(*m_definition); }
  Point2D centroid() const;
  Point2D lowerLeft() const;
  Point2D upperRight() const;

 private:
  Definition m_definition;
  boost::shared_ptr<const Ruv::Calculations::ThProfileCalculator> m_calculator;
  std::vector<Point2D> m_outline;
};

/// Columns start_x, start_y, end_x, end_y, radius.
const TableSchema& designProfileColumns();

/// Refuses the file when a row cannot be read, when the elements do not follow each other and close
/// within a millimetre, when the chord of an arc exceeds its diameter, and when there are more than
/// 10 000 elements.
Outcome<DesignProfile> readDesignProfile(std::istream& in, const TableFormat& format = {});

}  // namespace Exchange

#endif
