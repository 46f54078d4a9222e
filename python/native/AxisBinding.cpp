// SPDX-License-Identifier: BSL-1.0
// Axes and guidance vectors.

#include "Arrays.h"
#include "Bindings.h"

#include <Calculations/AxisMapper.h>
#include <Calculations/GuidanceCalculator.h>
#include <Calculations/GuidanceVectorDefinition.h>
#include <Calculations/Utilities.h>

#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace Hadrel {

using namespace Ruv::Calculations;

namespace {

constexpr double kNotFound = std::numeric_limits<double>::quiet_NaN();

using Element = std::tuple<std::string, std::vector<double>>;

void require(bool isAdded, const std::string& kind) {
  if (!isAdded) throw std::invalid_argument("the axis does not take a " + kind);
}

void add(AxisDefinition& axis, const Element& element) {
  const std::string& kind = std::get<0>(element);
  const std::vector<double>& v = std::get<1>(element);
  if (kind == "Straight") {
    require(axis.addHoralSegmentStraight(v.at(0), v.at(1), v.at(2), v.at(3), v.at(4)), kind);
  } else if (kind == "Arc") {
    require(axis.addHoralSegmentArc(v.at(0), v.at(1), v.at(2), v.at(3), v.at(5), v.at(4)), kind);
  } else if (kind == "Clothoid") {
    require(
        axis.addHoralSegmentClothoid(v.at(0), v.at(1), v.at(2), v.at(3), v.at(5), v.at(6), v.at(4)),
        kind);
  } else if (kind == "Kink") {
    require(axis.addVeralPointKink(v.at(0), v.at(1)), kind);
  } else if (kind == "ArcRounding") {
    require(axis.addVeralPointArc(v.at(0), v.at(1), v.at(2)), kind);
  } else if (kind == "ParabolaRounding") {
    require(axis.addVeralPointParabola(v.at(0), v.at(1), v.at(2)), kind);
  } else if (kind == "Cant") {
    require(axis.addTransSlopeSegmentLinear(v.at(0), v.at(1), v.at(2), v.at(3)), kind);
  } else {
    throw std::invalid_argument("no element of an axis: " + kind);
  }
}

std::unique_ptr<Axis> axisOf(const std::vector<Element>& elements, double origin, double value) {
  const boost::shared_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  for (const Element& element : elements) {
    add(*axis, element);
  }
  axis->setStationingMappingValues(origin, value);
  return std::make_unique<Axis>(axis);
}

std::unique_ptr<Axis> shaftOf(double east, double north, double heightStart, double heightEnd,
                              double stationing) {
  return std::make_unique<Axis>(boost::shared_ptr<const AxisDefinition>(
      AxisDefinitionFactory::createShaftAxis(east, north, heightStart, heightEnd, stationing)));
}

std::unique_ptr<Axis> blockOf(const Axis& axis, double from, double to) {
  return std::make_unique<Axis>(BlockAxisDefinition(axis.definition, from, to).asAxisDefinition());
}

template <class Out>
void markNotFound(const bool* found, std::size_t count, Out* out) {
  for (std::size_t i = 0; i < count; ++i) {
    if (!found[i]) out[i] = Out(kNotFound, kNotFound, kNotFound);
  }
}

/// A std::vector<bool> has no addresses.
auto flags(std::size_t count) {
  return std::unique_ptr<bool[]>(new bool[count]);  // NOLINT(modernize-avoid-c-arrays)
}

Array toAxis(const Axis& axis, const Array& points, bool perpendicular, bool cant) {
  const std::size_t count = numRows(points);
  Array result = newArray(count, 3);
  const auto* in = pointsOf<ENHPoint>(points);
  auto* out = pointsOf<AxisPoint>(result);
  const py::gil_scoped_release others;
  const auto found = flags(count);
  const std::size_t numFound =
      axis.calculator.enhPointsToAxisPoints(in, count, out, found.get(), perpendicular, cant);
  if (numFound < count) markNotFound(found.get(), count, out);
  return result;
}

Array toGrid(const Axis& axis, const Array& points, bool perpendicular, bool cant) {
  const std::size_t count = numRows(points);
  Array result = newArray(count, 3);
  const auto* in = pointsOf<AxisPoint>(points);
  auto* out = pointsOf<ENHPoint>(result);
  const py::gil_scoped_release others;
  const auto found = flags(count);
  const std::size_t numFound =
      axis.calculator.axisPointsToEnhPoints(in, count, out, found.get(), perpendicular, cant);
  if (numFound < count) markNotFound(found.get(), count, out);
  return result;
}

/// @param ask sets a result and tells whether there is one
template <class Ask>
Array valueByValue(const Array& values, const Ask& ask) {
  Array result = newArray(numRows(values), 0);
  const double* in = values.data();
  double* out = result.mutable_data();
  const std::size_t count = numRows(values);
  const py::gil_scoped_release others;
  for (std::size_t i = 0; i < count; ++i) {
    double value = kNotFound;
    out[i] = ask(in[i], value) ? value : kNotFound;
  }
  return result;
}

Array properties(const Axis& axis, const Array& stationings) {
  Array result = newArray(numRows(stationings), 6);
  const double* in = stationings.data();
  double* out = result.mutable_data();
  const std::size_t count = numRows(stationings);
  const py::gil_scoped_release others;
  for (std::size_t i = 0; i < count; ++i, out += 6) {
    if (!axis.calculator.axisPropertiesAtStationing(in[i], out[0], out[1], out[2], out[3], out[4],
                                                    out[5])) {
      std::fill(out, out + 6, kNotFound);
    }
  }
  return result;
}

/// Unit vectors along the axis.
Array tangents(const Axis& axis, const Array& stationings, bool perpendicular) {
  const auto ask = perpendicular ? &AxisCalculator::tangentAtStationingPerpendicular
                                 : &AxisCalculator::tangentAtStationingVertical;
  return rowByRow<double, ENHPoint>(stationings, 3, [&](double stationing, std::size_t) {
    ENHPoint tangent(kNotFound, kNotFound, kNotFound);
    (axis.calculator.*ask)(stationing, tangent);
    return tangent;
  });
}

/// Stationing, tunnel meter and the lengths in plan and in space of the block's chord.
std::tuple<double, double, double, double> blockExtent(const Axis& axis, double from, double to) {
  const BlockAxisDefinition block(axis.definition, from, to);
  return {block.blockEndStng2d(), block.blockStartStng3d(), block.blockLength2d(),
          block.blockLength3d()};
}

py::list planPolylines(const Axis& axis, double step) {
  std::vector<Polyline> lines;
  for (unsigned i = 0; i < axis.definition->getNumHoralSegments(); ++i) {
    lines.push_back(axis.definition->getHoralSegmentPolylineAt(i, step));
  }
  return arraysOf(lines);
}

py::list verticalPolylines(const Axis& axis, double step) {
  std::vector<Polyline> lines;
  for (unsigned i = 0; i < axis.definition->getNumVeralPoints(); ++i) {
    lines.push_back(axis.definition->getVeralPointPolylineAt(i, step));
  }
  return arraysOf(lines);
}

Array misclosures(const Axis& axis) {
  const auto list = axis.definition->misclosures();
  Array result = newArray(list.size(), 2);
  double* out = result.mutable_data();
  for (const auto& misclosure : list) {
    *out++ = misclosure.distance;
    *out++ = misclosure.directionBreak;
  }
  return result;
}

Array mapped(const Axis& from, const Axis& to, const Array& values, bool areTunnelmeters,
             bool asTunnelmeters) {
  const AxisMapper mapper(from.definition, to.definition);
  return valueByValue(values, [&](double value, double& result) {
    if (!mapper.canMap(value, areTunnelmeters)) return false;
    const double stationing = mapper.mapStationing(value, areTunnelmeters, false);
    result = stationing;
    return !asTunnelmeters || to.calculator.stationingToTunnelmeter(stationing, result);
  });
}

using Three = std::array<double, 3>;
using VectorPtr = boost::shared_ptr<const GuidanceVectorDefinition>;

AxisPoint axisPointOf(const Three& p) { return {p[0], p[1], p[2]}; }

boost::shared_ptr<const GuidanceVectorDefinition> vectorOf(const Three& origin,
                                                           const Three& direction) {
  const boost::shared_ptr<GuidanceVectorDefinition> vector(new GuidanceVectorDefinition);
  vector->setVectorOriginPoint(axisPointOf(origin));
  const bool isParallel = direction == Three{};
  if (!isParallel) {
    vector->setVectorDirectionAsStraight({direction[0], direction[1], direction[2]});
  }
  return vector;
}

Three takenDirection(GuidanceVectorDefinition* made) {
  const std::unique_ptr<GuidanceVectorDefinition> vector(made);
  const GuidanceOffsets direction = vector->getVectorDirection();
  return {direction.forward, direction.horizontal, direction.vertical};
}

/// (0, 0, 0) may be a point on target, and it may be a failure.
Array offsets(const Axis& axis, const Three& origin, const Three& direction, const Array& points,
              bool perpendicular) {
  const GuidanceCalculator calculator(vectorOf(origin, direction), axis.definition, perpendicular);
  Array result = newArray(numRows(points), 3);
  const auto* in = pointsOf<ENHPoint>(points);
  double* out = result.mutable_data();
  const std::size_t count = numRows(points);
  const py::gil_scoped_release others;
  const bool isInSpace = perpendicular || axis.definition->isShaftAxis();
  for (std::size_t i = 0; i < count; ++i, out += 3) {
    const GuidanceOffsets found = calculator.calculateOffsets(in[i]);
    out[0] = found.forward;
    out[1] = found.horizontal;
    out[2] = found.vertical;
    if (out[0] != 0.0 || out[1] != 0.0 || out[2] != 0.0) continue;
    AxisPoint place;
    ENHPoint start;
    const bool isReal =
        axis.calculator.enhPointToAxisPoint(in[i], place, isInSpace, true) &&
        axis.calculator.axisPointToEnhPoint(axisPointOf(origin), start, isInSpace, true);
    if (!isReal) std::fill(out, out + 3, kNotFound);
  }
  return result;
}

bool isZero(const ENHPoint& p) { return p == ENHPoint(); }

/// The grid point (0, 0, 0) may be one on the vector, and it may be a failure: it is one on the
/// vector when it lies there.
Array pointsAhead(const Axis& axis, const Three& origin, const Three& direction,
                  const Array& forwards, bool perpendicular) {
  constexpr double kTolerance = 1e-6;
  const GuidanceCalculator calculator(vectorOf(origin, direction), axis.definition, perpendicular);
  return rowByRow<double, ENHPoint>(forwards, 3, [&](double forward, std::size_t) {
    const ENHPoint point = calculator.absolutePointAtForwardValue(forward);
    if (!isZero(point)) return point;
    const GuidanceOffsets found = calculator.calculateOffsets(point);
    ENHPoint start;
    const bool isReal = found.forward != 0.0
                            ? std::abs(found.forward - forward) < kTolerance
                            : axis.calculator.axisPointToEnhPoint(
                                  axisPointOf(origin), start,
                                  perpendicular || axis.definition->isShaftAxis(), true) &&
                                  start.length() < kTolerance && std::abs(forward) < kTolerance;
    return isReal ? point : ENHPoint(kNotFound, kNotFound, kNotFound);
  });
}

/// In front, top and side view.
Three viewAngles(const Three& direction) {
  const AxisPoint components = axisPointOf(direction);
  return {Utilities::getGuidanceAngleInFrontView(components),
          Utilities::getGuidanceAngleInTopView(components),
          Utilities::getGuidanceAngleInSideView(components)};
}

/// Of length 1, from the angles in two views; the third is none.
Three directionOf(std::optional<double> front, std::optional<double> top,
                  std::optional<double> side) {
  const AxisPoint direction =
      !side    ? Utilities::getGuidanceVectorFromFrontAndTopViewAngles(*front, *top, 1.0)
      : !front ? Utilities::getGuidanceVectorFromTopAndSideViewAngles(*top, *side, 1.0)
               : Utilities::getGuidanceVectorFromFrontAndSideViewAngles(*front, *side, 1.0);
  return {direction.stationing, direction.offset, direction.height};
}

}  // namespace

void bindAxis(py::module_& module) {
  py::class_<Axis>(module, "Axis")
      .def(py::init(&axisOf))
      .def_static("shaft", &shaftOf)
      .def("block", &blockOf)
      .def("to_axis", &toAxis)
      .def("to_grid", &toGrid)
      .def("properties", &properties)
      .def("plan_polylines", &planPolylines)
      .def("misclosures", &misclosures)
      .def("vertical_polylines", &verticalPolylines)
      .def("tangents", &tangents)
      .def("block_extent", &blockExtent)
      .def("is_shaft", [](const Axis& axis) { return axis.definition->isShaftAxis(); })
      .def("tunnelmeter_origin",
           [](const Axis& axis) {
             return std::make_pair(axis.definition->getStationingMappingOrigin2d(),
                                   axis.definition->getStationingMappingValue3dAtOrigin());
           })
      .def("profile_polyline",
           [](const Axis& axis, double step) {
             return arrayOf(axis.definition->getVeralPolyline(step).points());
           })
      .def("range",
           [](const Axis& axis) {
             return std::make_pair(axis.definition->minimumStng2d(),
                                   axis.definition->maximumStng2d());
           })
      .def("tunnelmeter",
           [](const Axis& axis, const Array& values) {
             return valueByValue(values, [&](double value, double& result) {
               return axis.calculator.stationingToTunnelmeter(value, result);
             });
           })
      .def("stationing", [](const Axis& axis, const Array& values) {
        return valueByValue(values, [&](double value, double& result) {
          return axis.calculator.tunnelmeterToStationing(value, result);
        });
      });
  module.def("mapped", &mapped);
  module.def("offsets", &offsets);
  module.def("radial_direction", [](const Profile& profile, const Three& origin) {
    return takenDirection(GuidanceVectorFactory::createAsStraightRadialFromAxisCoordinateAndProfile(
        profile.definition, axisPointOf(origin)));
  });
  module.def("points_ahead", &pointsAhead);
  module.def("view_angles", &viewAngles);
  module.def("direction_of", &directionOf);
  module.def("direction_between", [](const Axis& axis, const Three& first, const Three& second,
                                     bool perpendicular, bool cant) {
    return takenDirection(GuidanceVectorFactory::createAsStraightFromPairOfAxisCoordinates(
        axis.definition, axisPointOf(first), axisPointOf(second), perpendicular, cant));
  });
}

}  // namespace Hadrel
