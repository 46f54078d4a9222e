// SPDX-License-Identifier: BSL-1.0
/// @file
/// Where points lie relative to outlines.

#ifndef CALCULATIONS_PROFILES_PATHS_POINT_PLACE_H
#define CALCULATIONS_PROFILES_PATHS_POINT_PLACE_H

#include <Calculations/Paths.h>
#include <Calculations/Points.h>

namespace Ruv {
namespace Calculations {

/// True inside an outline and, unlike Path::pointWithin, on it.
bool isInsideOrOn(const Path& outline, const Point2D& p);

}  // namespace Calculations
}  // namespace Ruv

#endif
