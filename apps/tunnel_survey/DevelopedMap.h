// SPDX-License-Identifier: BSL-1.0
/// @file
/// The distances from the design of all sections, unrolled into a plane.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_DEVELOPED_MAP_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_DEVELOPED_MAP_H

#include "tunnel_survey/SectionSurvey.h"

#include "common/drawing/Canvas.h"

#include <vector>

namespace TunnelSurvey {

/// Distances from the design over position and derolment, interpolated linearly between the points
/// of a section and between sections.
class DevelopedMap {
 public:
  explicit DevelopedMap(const SectionSurvey& survey);

  /// Of the sections along the map: their stationings, or 0, 1, 2 ... when they have none.
  const std::vector<double>& positions() const { return m_positions; }
  /// Distances at these derolments for each of these positions; not-a-number where nothing is
  /// measured near: between points, or sections, that lie more than three times the usual gap
  /// apart, and beyond the ends.
  std::vector<std::vector<double>> columnsAt(const std::vector<double>& positions,
                                             const std::vector<double>& derolments) const;

 private:
  std::vector<double> m_positions;
  std::vector<std::vector<Deviation>> m_sections;  // by derolment
  double m_circumference;
};

/// An A3 sheet: the tunnel cut open along the bottom and seen from above, the right side below. The
/// survey must outlive it.
Drawing::Sheet developedMapSheet(const SectionSurvey& survey);

}  // namespace TunnelSurvey

#endif
