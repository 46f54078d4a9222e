// SPDX-License-Identifier: BSL-1.0
#include "Digest.h"

#include <algorithm>
#include <cmath>

namespace Digest {

void record(const std::string& group, const std::vector<Ruv::Calculations::Point2D>& points) {
  std::vector<double> values;
  double scale = 1.0;
  for (const auto& point : points) {
    values.insert(values.end(), {point.x, point.y});
    scale = std::max({scale, std::abs(point.x), std::abs(point.y)});
  }
  record(group, scale, values);
}

double largest(const Ruv::Calculations::ENHPoint& point) {
  return std::max({std::abs(point.east), std::abs(point.north), std::abs(point.height)});
}

double rounded(double value, double perUnit) { return std::round(value * perUnit) / perUnit; }

std::vector<Scene> scenes() {
  return {{"angles", angles},           {"axes", axes},
          {"profiles", profiles},       {"outlines", outlines},
          {"morphing", morphing},       {"fits", fits},
          {"stations", stations},       {"fitsOfFewPoints", fitsOfFewPoints},
          {"enteredAxes", enteredAxes}, {"morphedShapes", morphedShapes},
          {"morphedFeet", morphedFeet}, {"tiltedStations", tiltedStations}};
}

}  // namespace Digest
