// SPDX-License-Identifier: BSL-1.0
/// @file
/// Cuts profiles with lines.

#ifndef CALCULATIONS_PROFILES_LINE_CUTS_H
#define CALCULATIONS_PROFILES_LINE_CUTS_H

#include <Calculations/MeasuredProfile.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// The point nearest to p in which the line through p in a direction crosses the polygon of a
/// profile's finite points, the first of equally near ones. Both coordinates are kFarthestDistance
/// when it crosses none.
Point2D nearestCrossing(const MeasuredProfile& profile, const Point2D& p, const Point2D& direction);

/// Crossings of a closed polygon, edge by edge from the one that leads to its first point, with
/// the straight from a to b. A vertex on it counts for both edges. Empty for fewer than three
/// points.
std::vector<Point2D> polygonCrossings(const std::vector<Point2D>& polygon, const Point2D& a,
                                      const Point2D& b);

}  // namespace Calculations
}  // namespace Ruv

#endif
