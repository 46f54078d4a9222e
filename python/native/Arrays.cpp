// SPDX-License-Identifier: BSL-1.0
#include "Arrays.h"

#include <algorithm>

namespace Hadrel {

using Ruv::Calculations::Point2D;

Array newArray(std::size_t numRows, std::size_t numColumns) {
  std::vector<py::ssize_t> shape = {static_cast<py::ssize_t>(numRows)};
  if (numColumns > 0) shape.push_back(static_cast<py::ssize_t>(numColumns));
  return Array(shape);
}

Array arrayOf(const std::vector<Point2D>& points) {
  Array array = newArray(points.size(), 2);
  std::copy(points.begin(), points.end(), pointsOf<Point2D>(array));
  return array;
}

std::vector<Point2D> listOf(const Array& points) {
  const auto* first = pointsOf<Point2D>(points);
  return std::vector<Point2D>(first, first + numRows(points));
}

}  // namespace Hadrel
