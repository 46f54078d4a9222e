// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/ProfilePath.h"

#include <cmath>

namespace TunnelSurvey {

using Drawing::PathStep;
using Drawing::Point;
using Ruv::Calculations::Point2D;

Drawing::Path pathOf(const Exchange::DesignProfile& profile, const Drawing::WorldMapping& mapping) {
  const auto& definition = *profile.definition();
  const auto toPage = [&mapping](const Point2D& p) { return mapping.toPage({p.x, p.y}); };
  const double scale = length(mapping.toPage({1.0, 0.0}) - mapping.toPage({0.0, 0.0}));
  const Point start = toPage(definition.getSegmentStartAt(0));
  const unsigned count = definition.getNumSegments();
  Drawing::Path path = {{PathStep::Kind::Move, start}};
  for (unsigned i = 0; i < count; ++i) {
    const double radius = definition.getSegmentRadiusAt(i);
    // Rounded files may miss the start by a little.
    const Point end = i + 1 == count ? start : toPage(definition.getSegmentEndAt(i));
    const auto kind = radius == 0.0 ? PathStep::Kind::Line : PathStep::Kind::Arc;
    path.push_back({kind, end, std::abs(radius) * scale, radius > 0.0});
  }
  return path;
}

}  // namespace TunnelSurvey
