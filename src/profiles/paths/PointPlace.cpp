// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/PointPlace.h"

#include "profiles/paths/GridUnits.h"
#include "profiles/paths/PathImpl.h"

namespace Ruv {
namespace Calculations {

bool isInsideOrOn(const Path& outline, const Point2D& p) {
  return ClipperLib::PointInPolygon(onGrid(p), PathImpl::pointsOf(outline)) != 0;
}

}  // namespace Calculations
}  // namespace Ruv
