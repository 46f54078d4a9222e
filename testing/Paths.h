// SPDX-License-Identifier: BSL-1.0
/// @file
/// Outlines to clip.

#ifndef CALCULATIONS_TESTING_PATHS_H
#define CALCULATIONS_TESTING_PATHS_H

#include <Calculations/Paths.h>

#include <vector>

namespace TestSupport {

using Ruv::Calculations::Path;
using Ruv::Calculations::PathSegment;
using Ruv::Calculations::Point2D;

inline Path lineThrough(const std::vector<Point2D>& corners) {
  Path path;
  for (const Point2D& corner : corners) {
    path.addSegment(PathSegment(corner.x, corner.y));
  }
  return path;
}

inline Path ring(const std::vector<Point2D>& corners) {
  Path path = lineThrough(corners);
  path.close(true);
  return path;
}

inline Path box(double left, double bottom, double right, double top) {
  return ring({{left, bottom}, {left, top}, {right, top}, {right, bottom}});
}

inline Path circle(double radius, double x = 0.0, double y = 0.0) {
  Path path = lineThrough({{x - radius, y}});
  path.addSegment(PathSegment(x + radius, y, radius));
  path.addSegment(PathSegment(x - radius, y, radius));
  path.close(true);
  return path;
}

}  // namespace TestSupport

#endif
