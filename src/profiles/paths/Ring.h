// SPDX-License-Identifier: BSL-1.0
/// @file
/// Closed outlines through given points.

#ifndef CALCULATIONS_PROFILES_PATHS_RING_H
#define CALCULATIONS_PROFILES_PATHS_RING_H

#include <Calculations/Paths.h>
#include <Calculations/Points.h>

#include <vector>

namespace Ruv {
namespace Calculations {

/// A point of an outline.
struct RingNode {
  Point2D point;
  double radius = 0.0;  ///< of the segment that ends here; 0 for a straight
};

/// The closed outline through the nodes, as Path::close tells. A coordinate that is infinite ends
/// where the grid does.
Path ringThrough(const std::vector<RingNode>& nodes, bool clean);

}  // namespace Calculations
}  // namespace Ruv

#endif
