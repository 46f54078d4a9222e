// SPDX-License-Identifier: BSL-1.0
/// @file
/// Where areas are computed, so that they are those of true arcs.
///
/// For areas the library makes arcs paths of chords, which lie inside, and puts coordinates on a
/// grid of 0.1 mm, the negative ones too near to zero: a tunnel of 54 m2 about the origin loses 20
/// cm2. A polygon of the same area as the profile, with its corners on the grid to the right of and
/// above the origin, keeps it within 0.1 cm2.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_AREA_FRAME_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_AREA_FRAME_H

#include "common/exchange/DesignProfile.h"

#include <Calculations/Calculations.h>

#include <vector>

namespace Exchange {

/// Coordinates of a profile, moved so that all are positive.
class AreaFrame {
 public:
  using Point2D = Ruv::Calculations::Point2D;

  /// @param reach of what is computed beyond the design and the points (m)
  AreaFrame(const DesignProfile& design, const std::vector<Point2D>& points, double reach);

  /// A polygon of the design's area there, at no place more than 0.2 mm beside the design.
  DesignProfile::Definition design() const;

  Point2D moved(const Point2D& point) const { return point + m_way; }
  double movedHeight(double height) const { return height + m_way.y; }
  /// What was computed there, in profile coordinates again.
  template <class Shape>
  std::vector<Shape> back(const std::vector<Shape>& shapes) const {
    std::vector<Shape> result;
    for (const Shape& shape : shapes) {
      std::vector<Point2D> points = shape.points();
      for (Point2D& point : points) {
        point = point - m_way;
      }
      result.emplace_back(points);
    }
    return result;
  }

 private:
  const DesignProfile& m_design;
  Point2D m_way;  // so that the design's lower left corner lies on the grid
};

}  // namespace Exchange

#endif
