// SPDX-License-Identifier: BSL-1.0
/// @file
/// What maps and diagrams carry: grid, scale bar, north arrow, dimensions, legend, colour bar.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_FURNITURE_H
#define CALCULATIONS_APPS_COMMON_DRAWING_FURNITURE_H

#include "common/drawing/Canvas.h"
#include "common/drawing/LabelPlacer.h"

#include <functional>
#include <string>
#include <vector>

namespace Drawing {

/// A sample drawn into a box, and what it means: one line or, with line breaks, several.
struct LegendEntry {
  std::function<void(Canvas&, const Box&)> sample;
  std::string meaning;
};

/// Entries below each other in columns from the upper left corner of the box; the lines of one stay
/// together. A wide legend begins farther left, so that it ends where the box does.
void drawLegend(Canvas& canvas, Box box, const std::vector<LegendEntry>& entries,
                const TextStyle& style);

/// A bar of four parts with a round length in world units. Its middle stands at the point.
void drawScaleBar(Canvas& canvas, const Point& middle, double longest, double millimetresPerUnit,
                  const std::string& unitName, const TextStyle& style);

/// An arrow that points to where north is on the page. Needs a square of 1.6 times its size.
void drawNorthArrow(Canvas& canvas, const Point& centre, const Point& northOnPage, double size,
                    const TextStyle& style);

/// The distance of two points as a dimension line beside them, with extension lines and arrows.
/// @param aside from the points to the dimension line, to the right of the way between them (mm)
void drawDimension(Canvas& canvas, const Point& from, const Point& to, double aside,
                   const std::string& words, const TextStyle& style);

/// Classes of a quantity between ascending limits, one colour each.
struct ColourScale {
  std::vector<double> limits;
  std::vector<Colour> colours;  ///< one fewer than limits

  /// Beyond the limits: that of the nearest class.
  const Colour& colourOf(double value) const;
};

/// The classes beside each other from the left, and their limits below.
void drawColourBar(Canvas& canvas, const Box& box, const ColourScale& scale, int decimals,
                   const TextStyle& style);

/// Crosses at the multiples of a step inside the frame, and the coordinates written outside it
/// where grid lines meet it. The placer keeps those labels apart.
void drawCoordinateGrid(Canvas& canvas, const WorldMapping& mapping, const Box& frame, double step,
                        const TextStyle& style);

}  // namespace Drawing

#endif
