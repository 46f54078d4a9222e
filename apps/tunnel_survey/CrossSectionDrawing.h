// SPDX-License-Identifier: BSL-1.0
/// @file
/// A measured cross-section on the design profile.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_CROSS_SECTION_DRAWING_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_CROSS_SECTION_DRAWING_H

#include "tunnel_survey/SectionSurvey.h"

#include "common/drawing/Canvas.h"
#include "common/drawing/Geometry.h"

#include <vector>

namespace TunnelSurvey {

/// A fit can fail, or go far astray on a few points.
bool isDrawable(const Ruv::Calculations::FittingResult& fit, const Exchange::DesignProfile& design);

/// One scale and one place on the sheet for all sections of a survey, so that sheets laid upon each
/// other fit.
struct CrossSectionLayout {
  double scale = 0.0;
  Drawing::Point middle;  ///< what stands in the middle of the drawing, in profile coordinates
};

/// The largest usual scale at which every section fits. Of the fitted circles and ellipses as much
/// is shown as there is room for; the rest runs out of the frame.
CrossSectionLayout crossSectionLayout(const SectionSurvey& survey);

/// An A4 sheet: the drawing, looking forward, and beside it the results. The survey must outlive
/// it.
Drawing::Sheet crossSectionSheet(const SectionSurvey& survey, const SectionResult& result,
                                 const CrossSectionLayout& layout);

}  // namespace TunnelSurvey

#endif
