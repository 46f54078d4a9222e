#include "pictures/Pictures.h"

#include "common/drawing/Canvas.h"

#include <string>
#include <vector>

namespace ConventionPictures {

namespace {

using Drawing::Box;
using Drawing::Colour;

constexpr Colour kInk{0.13, 0.15, 0.18};
constexpr double kRowHeight = 15.0;
constexpr double kGap = 3.0;

struct Layer {
  Box box;
  std::string name;
  std::string contents;
  Colour colour;
};

Box cell(double left, double right, int row, int rows = 1) {
  const double top = 5.0 + row * (kRowHeight + kGap);
  return {left, top, right, top + rows * (kRowHeight + kGap) - kGap};
}

std::vector<Layer> layers() {
  constexpr Colour kInterface{0.85, 0.91, 0.97};
  constexpr Colour kDomain{0.93, 0.95, 0.88};
  constexpr Colour kKernel{0.99, 0.92, 0.82};
  constexpr Colour kBase{0.94, 0.93, 0.91};
  return {
      {cell(5, 175, 0), "include/Calculations", "what callers see; all else is hidden", kInterface},
      {cell(5, 97, 1), "guidance", "vectors for machines", kDomain},
      {cell(5, 49, 2, 2), "alignment", "axes, blocks, mapping", kDomain},
      {cell(53, 97, 2), "profiles", "design, measured", kDomain},
      {cell(53, 97, 3), "profiles/paths", "bridge to the clipper", kDomain},
      {cell(101, 136, 1, 4), "fitting", "circles, ellipses", kDomain},
      {cell(140, 175, 1, 4), "stations", "resection, fix points", kDomain},
      {cell(5, 97, 4), "shapes", "curves, chains, projections: the one geometry kernel", kKernel},
      {cell(5, 175, 5), "foundation", "points, angles, units, stations' transformations", kBase},
  };
}

void drawLayer(Drawing::Canvas& canvas, const Layer& layer) {
  canvas.fill(layer.box, layer.colour);
  canvas.rectangle(layer.box, {kInk, 0.25, {}});
  Drawing::TextStyle style;
  style.colour = kInk;
  style.horizontal = Drawing::Align::Middle;
  style.bold = true;
  style.size = 3.8;
  canvas.text(layer.box.centre() - Drawing::Point{0.0, 2.2}, layer.name, style);
  style.bold = false;
  style.size = 2.9;
  canvas.text(layer.box.centre() + Drawing::Point{0.0, 2.8}, layer.contents, style);
}

}  // namespace

Drawing::Sheet layersPicture() {
  Drawing::Sheet sheet{180.0, 113.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    for (const Layer& layer : layers()) {
      drawLayer(canvas, layer);
    }
  };
  return sheet;
}

}  // namespace ConventionPictures
