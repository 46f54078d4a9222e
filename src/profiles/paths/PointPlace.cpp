// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/PointPlace.h"

#include "profiles/paths/GridUnits.h"
#include "profiles/paths/PathImpl.h"

namespace Ruv {
namespace Calculations {

bool isInsideOrOn(const Path& outline, const Point2D& p) {
  // The clipper says 1 inside, -1 on the outline and 0 outside.
  return ClipperLib::PointInPolygon(onGrid(p), PathImpl::pointsOf(outline)) != 0;
}

}  // namespace Calculations
}  // namespace Ruv
