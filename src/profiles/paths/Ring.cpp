// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/Ring.h"

#include "profiles/paths/GridUnits.h"
#include "profiles/paths/PathImpl.h"

#include <utility>

namespace Ruv {
namespace Calculations {

Path ringThrough(const std::vector<RingNode>& nodes, bool clean) {
  ClipperLib::Path points;
  points.reserve(nodes.size() + 1);  // the first point comes again at the end
  // The point before as it was given: an arc from the rounded one would be another circle.
  Point2D before;
  for (const RingNode& node : nodes) {
    if (node.radius == 0.0) {
      appendOnGrid(points, node.point);
    } else {
      appendArcTo(points, before, node.point, node.radius);
    }
    before = node.point;
  }
  closeRing(points, clean);
  return PathImpl::pathOf(std::move(points));
}

}  // namespace Calculations
}  // namespace Ruv
