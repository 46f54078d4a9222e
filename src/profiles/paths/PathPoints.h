// SPDX-License-Identifier: BSL-1.0
/// @file
/// Paths as the lists of points that results hand out.

#ifndef CALCULATIONS_PROFILES_PATHS_PATH_POINTS_H
#define CALCULATIONS_PROFILES_PATHS_PATH_POINTS_H

#include <Calculations/Paths.h>
#include <Calculations/PointLists.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// All points of a path, the repeated one of a closed path included.
/// @{
Polygon polygonOf(const Path& path);
Polyline polylineOf(const Path& path);
/// @}

/// Leaves out paths whose absolute area is below minArea (m2).
std::vector<Polygon> polygonsOf(const Pathes& paths, double minArea);
std::vector<Polyline> polylinesOf(const Pathes& paths);

}  // namespace Calculations
}  // namespace Ruv

#endif
