// SPDX-License-Identifier: BSL-1.0
/// @file
/// Intersections of a straight with a chain of straights and arcs.

#ifndef CALCULATIONS_SHAPES_CHAIN_INTERSECTIONS_H
#define CALCULATIONS_SHAPES_CHAIN_INTERSECTIONS_H

#include "shapes/ChainSegment.h"

#include <vector>

namespace Ruv {

/// All points that a chain shares with the straight from a to b, in chain order, with those on one
/// segment ordered along it. A tangent touch is one point, an overlap gives its two ends, and hits
/// that neighbouring segments share are one. Nothing when a and b coincide. O(n).
std::vector<Point2D> intersectionsOf(const std::vector<CChainSegment>& chain, const Point2D& a,
                                     const Point2D& b);

}  // namespace Ruv

#endif
