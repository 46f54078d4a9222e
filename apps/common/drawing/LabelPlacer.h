// SPDX-License-Identifier: BSL-1.0
/// @file
/// Places labels so that none covers another or what must stay visible.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_LABEL_PLACER_H
#define CALCULATIONS_APPS_COMMON_DRAWING_LABEL_PLACER_H

#include "common/drawing/Canvas.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Drawing {

/// A place at which a label may stand.
struct LabelPlace {
  Point at;
  TextStyle style;
};

/// Keeps track of what is taken on a part of the page. Labels placed first have the first choice.
/// The part is divided into cells that know what reaches into them, so that the time for a label
/// does not grow with the number of those placed before.
class LabelPlacer {
 public:
  explicit LabelPlacer(const Box& bounds);

  void reserve(const Outline& outline);
  /// A band of a width along the line. Parts outside the bounds do not count.
  void reserve(const std::vector<Point>& polyline, double width);

  bool isFree(const Outline& outline) const;

  /// Writes the words at the first place that is free, with a small gap around them.
  /// @return the place; null when none is free, and then nothing is written
  const LabelPlace* place(Canvas& canvas, const std::string& words,
                          const std::vector<LabelPlace>& places);

  /// As place, with a line from the target to the label's point. The line must be free too, but
  /// for its first millimetres, which leave what the label belongs to.
  const LabelPlace* placeWithLeader(Canvas& canvas, const std::string& words, const Point& target,
                                    double clearance, const Pen& pen,
                                    const std::vector<LabelPlace>& places);

 private:
  /// Cells from one corner to the other; those outside the bounds count as the nearest inside.
  struct CellRange {
    std::size_t left = 0;
    std::size_t right = 0;
    std::size_t top = 0;
    std::size_t bottom = 0;
  };

  /// What is taken, and the box around it, which tells most neighbours apart.
  struct Taken {
    Outline outline;
    Box box;
  };

  CellRange cellsOf(const Box& box) const;

  Box m_bounds;
  std::size_t m_columns = 1;
  std::size_t m_rows = 1;
  std::vector<std::vector<Taken>> m_cells;  // what is taken in each, row by row
};

}  // namespace Drawing

#endif
