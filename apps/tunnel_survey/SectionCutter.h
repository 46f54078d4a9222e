/// @file
/// Cuts scanned points into cross-sections along the axis.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_CUTTER_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_CUTTER_H

#include "tunnel_survey/SectionFile.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <map>
#include <vector>

namespace TunnelSurvey {

/// Where sections lie, and how far before and behind them points count.
struct SlabRule {
  std::vector<double> stations;  ///< if empty, the multiples of the spacing
  double spacing = 5.0;
  double width = 0.5;
};

class SectionCutter {
 public:
  explicit SectionCutter(SlabRule rule);

  /// A point goes to the nearest section if that is within half the width.
  void add(const Ruv::Calculations::AxisPoint& point);

  /// Along the stationing, numbered from 1: offset and height of the points, clockwise around the
  /// centre from its lower side.
  std::vector<MeasuredSection> sections(const Ruv::Calculations::Point2D& centre) const;
  /// Points that belong to no section.
  std::size_t unused() const { return m_unused; }

 private:
  double nearestStation(double station) const;

  SlabRule m_rule;
  std::map<double, std::vector<Ruv::Calculations::Point2D>> m_points;  // by stationing
  std::size_t m_unused = 0;
};

}  // namespace TunnelSurvey

#endif
