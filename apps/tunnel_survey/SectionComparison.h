// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measured cross-sections against the design profile.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_COMPARISON_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_COMPARISON_H

#include "common/exchange/DesignProfile.h"
#include "tunnel_survey/SectionFile.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace TunnelSurvey {

/// Over-break that counts as geological.
struct GeologyRule {
  double beyond = 0.0;         ///< distance from the design (m)
  std::optional<double> from;  ///< begin of the band that counts with it; 0 is the design

  Ruv::Calculations::GeologicalOverProfileMethod::Method method() const;
};

struct ComparisonRule {
  bool followDesign = false;  ///< the outline between measured points, else straight
  std::optional<double> excludeAbove;
  std::optional<double> excludeBelow;
  std::optional<GeologyRule> geology;
};

/// A measured point relative to the design: positive distances are over-break.
using Deviation = Ruv::Calculations::ProfilePointResult;

struct Extreme {
  Ruv::Calculations::Point2D point;
  Deviation deviation;
};

/// What the comparison tells of one section. Areas (m2) and fits leave out what the rule excludes.
struct SectionResult {
  MeasuredSection section;
  std::vector<Ruv::Calculations::Point2D> outline;
  std::vector<Deviation> deviations;  ///< of the points that are not excluded
  double designArea = 0.0;
  double measuredArea = 0.0;
  double overArea = 0.0;
  double underArea = 0.0;
  double geologicalArea = 0.0;
  std::optional<Extreme> largestOver;
  std::optional<Extreme> largestUnder;
  Ruv::Calculations::FittingResult circle{Ruv::Calculations::FittingMethod::CircleLandau};
  Ruv::Calculations::FittingResult ellipse{
      Ruv::Calculations::FittingMethod::EllipseFitzgibbonIterative};
  std::vector<Ruv::Calculations::Polygon> over;
  std::vector<Ruv::Calculations::Polygon> under;
  std::vector<Ruv::Calculations::Polygon> geological;
  std::vector<Ruv::Calculations::Polyline> comparedOutline;
};

/// The section must have three points or more.
SectionResult compareWithDesign(const MeasuredSection& section,
                                const Exchange::DesignProfile& design, const ComparisonRule& rule);

/// Volumes between neighbouring sections by their mean end areas (m3).
struct VolumePart {
  double length = 0.0;  ///< along the axis in space
  double design = 0.0;
  double over = 0.0;
  double under = 0.0;
  double geological = 0.0;
};

struct Volumes {
  std::vector<VolumePart> parts;  ///< the first from the first to the second section
  VolumePart total;
};

/// @param lengthBetween the distance of two stationings along the tunnel
/// @return nothing for fewer than two sections or when a section has no stationing
std::optional<Volumes> volumesOf(const std::vector<SectionResult>& sections,
                                 const std::function<double(double, double)>& lengthBetween);

}  // namespace TunnelSurvey

#endif
