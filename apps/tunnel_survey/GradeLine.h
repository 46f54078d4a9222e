// SPDX-License-Identifier: BSL-1.0
/// @file
/// The vertical alignment as drawings show it.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_GRADE_LINE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_GRADE_LINE_H

#include "common/exchange/StationRange.h"

#include "common/drawing/Geometry.h"

#include <Calculations/Calculations.h>

#include <vector>

namespace TunnelSurvey {

/// A point of the vertical alignment with its rounding.
struct GradePoint {
  Drawing::Point at;  ///< stationing, height
  double from = 0.0;
  double to = 0.0;
  double radius = 0.0;  ///< 0 for a kink

  bool isRounded() const { return to > from; }
};

std::vector<GradePoint> gradePointsOf(const Ruv::Calculations::AxisDefinition& axis);

/// The axis in stationing and height.
class GradeLine {
 public:
  explicit GradeLine(const boost::shared_ptr<const Ruv::Calculations::AxisDefinition>& axis)
      : m_calculator(axis) {}

  Drawing::Point at(double station) const;
  std::vector<Drawing::Point> between(const Exchange::StationRange& range, double step) const;

 private:
  Ruv::Calculations::AxisCalculator m_calculator;
};

}  // namespace TunnelSurvey

#endif
