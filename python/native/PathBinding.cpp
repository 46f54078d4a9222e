// SPDX-License-Identifier: BSL-1.0
// Outlines and lines: clipping, offsets, areas.

#include "Arrays.h"
#include "Bindings.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <pybind11/stl.h>

#include <cmath>
#include <limits>
#include <vector>

namespace Hadrel {

using namespace Ruv::Calculations;

namespace {

/// Rows of x, y and the radius of the segment that ends there.
Path pathOf(const Array& corners) {
  Path path;
  const double* corner = corners.data();
  for (std::size_t i = 0; i < numRows(corners); ++i, corner += 3) {
    path.addSegment(PathSegment(corner[0], corner[1], corner[2]));
  }
  return path;
}

using Lines = std::vector<Array>;

Pathes pathesOf(const Lines& lines) {
  Pathes paths;
  for (const Array& line : lines) {
    paths.addPath(pathOf(line));
  }
  return paths;
}

/// None when clipping has failed.
template <class Clip>
py::object clipped(const Clip& clip) {
  Pathes result;
  {
    const py::gil_scoped_release others;
    result = clip();
  }
  if (std::isnan(result.area())) return py::none();
  return arraysOf(PathHelper::profileLinesFromPathes(result));
}

template <class Measure>
double measured(const Measure& measure) {
  const py::gil_scoped_release others;
  return measure();
}

/// @param change of a path
template <class Change>
Array changed(const Array& corners, const Change& change) {
  Path path;
  {
    const py::gil_scoped_release others;
    path = change(pathOf(corners));
  }
  return arrayOf(PathHelper::profileLineFromPath(path).points());
}

Array closed(const Array& corners, bool clean) {
  return changed(corners, [&](Path path) {
    path.close(clean);
    return path;
  });
}

Array simplified(const Array& corners, double tolerance) {
  const auto perMetre = static_cast<double>(PathHelper::asClipperLibUnits(1.0));
  return changed(corners, [&](const Path& path) {
    const auto line = PathHelper::clipperLibPathFromPath(path);
    return PathHelper::pathFromClipperLibPath(PathHelper::simplyfyLine(line, tolerance * perMetre));
  });
}

py::array_t<bool> contains(const Lines& outlines, const Array& points) {
  const std::size_t count = numRows(points);
  py::array_t<bool> result(static_cast<py::ssize_t>(count));
  bool* out = result.mutable_data();
  const auto* in = pointsOf<Point2D>(points);
  const py::gil_scoped_release others;
  const Pathes area = pathesOf(outlines);
  for (std::size_t i = 0; i < count; ++i) {
    out[i] = area.pointWithin(in[i]);
  }
  return result;
}

/// @param ends rows of the two points through which each line goes
Array firstCrossings(const Lines& outlines, const Array& ends) {
  struct Line {
    Point2D a;
    Point2D b;
  };
  constexpr double kNotFound = std::numeric_limits<double>::quiet_NaN();
  const Pathes paths = pathesOf(outlines);
  return rowByRow<Line, Point2D>(ends, 2, [&](const Line& line, std::size_t) {
    Point2D hit(kNotFound, kNotFound);
    paths.firstIntersectionWithLine(line.a, line.b, hit);
    return hit;
  });
}

}  // namespace

void bindPaths(py::module_& module) {
  module.def("closed", &closed);
  module.def("simplified", &simplified);
  module.def("contains", &contains);
  module.def("first_crossings", &firstCrossings);
  module.def("area", [](const Lines& outlines) {
    return measured([&] { return pathesOf(outlines).area(); });
  });
  module.def("length", [](const Lines& lines) {
    return measured([&] { return pathesOf(lines).linesLength(); });
  });
  module.def("border_within", [](const Array& outline, const Lines& others) {
    return measured([&] { return pathOf(outline).borderWithinOtherPathes(pathesOf(others)); });
  });
  module.def("within", [](const Lines& a, const Lines& b) {
    return clipped([&] { return Pathes::within(pathesOf(a), pathesOf(b)); });
  });
  module.def("without", [](const Lines& a, const Lines& b) {
    return clipped([&] { return Pathes::without(pathesOf(a), pathesOf(b)); });
  });
  module.def("expanded", [](const Lines& outlines, double distance) {
    return clipped([&] { return Pathes::expand(pathesOf(outlines), distance); });
  });
  module.def("lines_expanded", [](const Lines& lines, double distance) {
    return clipped([&] { return Pathes::expandLines(pathesOf(lines), distance); });
  });
  module.def("lines_within", [](const Lines& lines, const Lines& area, bool clean) {
    return clipped([&] { return Pathes::linesWithin(pathesOf(lines), pathesOf(area), clean); });
  });
  module.def("without_holes", [](const Lines& outlines) {
    return clipped([&] {
      return PathHelper::pathesFromClipperLibPaths(PathHelper::convertRingToSimplePaths(
          PathHelper::clipperLibPathsFromPathes(pathesOf(outlines))));
    });
  });
}

}  // namespace Hadrel
