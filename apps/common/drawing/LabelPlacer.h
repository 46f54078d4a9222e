/// @file
/// Places labels so that none covers another or what must stay visible.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_LABEL_PLACER_H
#define CALCULATIONS_APPS_COMMON_DRAWING_LABEL_PLACER_H

#include "common/drawing/Canvas.h"

#include <string>
#include <vector>

namespace Drawing {

/// A place at which a label may stand.
struct LabelPlace {
  Point at;
  TextStyle style;
};

/// Keeps track of what is taken on a part of the page. Labels placed first have the first choice.
class LabelPlacer {
 public:
  explicit LabelPlacer(const Box& bounds) : m_bounds(bounds) {}

  void reserve(const Outline& outline) { m_taken.push_back(outline); }
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
  Box m_bounds;
  std::vector<Outline> m_taken;
};

}  // namespace Drawing

#endif
