// SPDX-License-Identifier: BSL-1.0
/// @file
/// Drawings for CAD programs.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_DXF_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SURVEY_DXF_H

#include "tunnel_survey/SectionSurvey.h"
#include "tunnel_survey/SurveySheet.h"
#include "tunnel_survey/Transition.h"

#include <string>

namespace TunnelSurvey {

using AxisPointer = boost::shared_ptr<const Ruv::Calculations::AxisDefinition>;

/// @name Files
/// Each returns false when the file could not be written.
/// @{

/// East, north and height: the axis in plan and in space, stationings, surveyed points.
bool writePlanDxf(const std::string& path, const SurveyPicture& picture);

/// Stationing and height, of one scale: the grade line, its points, surveyed points.
bool writeLongitudinalDxf(const std::string& path, const SurveyPicture& picture);

/// One section in profile coordinates: design, measured points and outline, areas, fits.
bool writeCrossSectionDxf(const std::string& path, const SectionSurvey& survey,
                          const SectionResult& result);

/// The outlines of all sections in space: east, north and height along an axis, else offset,
/// stationing (or the number of the section) and height.
/// @param axis may be null
bool writeSectionsDxf(const std::string& path, const SectionSurvey& survey,
                      const AxisPointer& axis);

/// The profiles of a transition in space, in the same way.
bool writeTransitionDxf(const std::string& path, const Transition& transition,
                        const AxisPointer& axis);

/// @}

}  // namespace TunnelSurvey

#endif
