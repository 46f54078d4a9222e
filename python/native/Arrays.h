// SPDX-License-Identifier: BSL-1.0
/// @file
/// Arrays of Python as lists of the library's points, without copying.

#ifndef HADREL_ARRAYS_H
#define HADREL_ARRAYS_H

#include <Calculations/Points.h>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <vector>

namespace Hadrel {

namespace py = pybind11;

/// Contiguous doubles, as the Python side of the package prepares them.
using Array = py::array_t<double, py::array::c_style>;

/// Uninitialised; of one dimension when numColumns is 0.
Array newArray(std::size_t numRows, std::size_t numColumns);

/// The rows of an array of as many columns as a point has numbers.
/// @{
template <class Point>
const Point* pointsOf(const Array& array) {
  static_assert(sizeof(Point) % sizeof(double) == 0, "a point is a row of doubles");
  return reinterpret_cast<const Point*>(array.data());
}

template <class Point>
Point* pointsOf(Array& array) {
  static_assert(sizeof(Point) % sizeof(double) == 0, "a point is a row of doubles");
  return reinterpret_cast<Point*>(array.mutable_data());
}
/// @}

inline std::size_t numRows(const Array& array) { return static_cast<std::size_t>(array.shape(0)); }

Array arrayOf(const std::vector<Ruv::Calculations::Point2D>& points);

/// A list of arrays, one for each polygon or polyline.
template <class Line>
py::list arraysOf(const std::vector<Line>& lines) {
  py::list arrays;
  for (const Line& line : lines) {
    arrays.append(arrayOf(line.points()));
  }
  return arrays;
}

std::vector<Ruv::Calculations::Point2D> listOf(const Array& points);

/// Makes of each row another one, while other threads of the interpreter run.
/// @param width   of the result in numbers; 0 for a result of one dimension
/// @param convert takes a row and its index
template <class In, class Out, class Convert>
Array rowByRow(const Array& rows, std::size_t width, const Convert& convert) {
  const std::size_t count = numRows(rows);
  Array result = newArray(count, width);
  const auto* in = pointsOf<In>(rows);
  auto* out = pointsOf<Out>(result);
  const py::gil_scoped_release others;
  for (std::size_t i = 0; i < count; ++i) {
    out[i] = convert(in[i], i);
  }
  return result;
}

}  // namespace Hadrel

#endif
