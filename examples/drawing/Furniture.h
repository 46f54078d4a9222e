/// @file
/// What every map or diagram carries: grid, scale bar, north arrow, legend.

#ifndef CALCULATIONS_EXAMPLES_DRAWING_FURNITURE_H
#define CALCULATIONS_EXAMPLES_DRAWING_FURNITURE_H

#include "drawing/Canvas.h"
#include "drawing/LabelPlacer.h"

#include <functional>
#include <string>
#include <vector>

namespace Drawing {

/// A line of a legend: a sample drawn into a box, and what it means.
struct LegendEntry {
  std::function<void(Canvas&, const Box&)> sample;
  std::string meaning;
};

/// Entries below each other in columns from the upper left corner of the box.
void drawLegend(Canvas& canvas, const Box& box, const std::vector<LegendEntry>& entries,
                const TextStyle& style);

/// A bar of four parts with a round length in world units. Its middle stands at the point.
void drawScaleBar(Canvas& canvas, const Point& middle, double longest, double millimetresPerUnit,
                  const std::string& unitName, const TextStyle& style);

/// An arrow that points to where north is on the page. Needs a square of 1.6 times its size.
void drawNorthArrow(Canvas& canvas, const Point& centre, const Point& northOnPage, double size,
                    const TextStyle& style);

/// Crosses at the multiples of a step inside the frame, and the coordinates written outside it
/// where grid lines meet it. The placer keeps those labels apart.
void drawCoordinateGrid(Canvas& canvas, const WorldMapping& mapping, const Box& frame, double step,
                        const TextStyle& style);

}  // namespace Drawing

#endif
