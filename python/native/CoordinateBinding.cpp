// SPDX-License-Identifier: BSL-1.0
// Angles, polar measurements, rotations, and curves in their own frame.

#include "Arrays.h"
#include "Bindings.h"

#include <Calculations/TransitionCurves.h>
#include <Calculations/Utilities.h>

#include <pybind11/stl.h>

#include <array>
#include <limits>

namespace Hadrel {

using namespace Ruv::Calculations;

namespace {

using Three = std::array<double, 3>;

constexpr double kNotFound = std::numeric_limits<double>::quiet_NaN();

ENHPoint enhOf(const Three& p) { return {p[0], p[1], p[2]}; }

/// @param about 0 for east, 1 for north, 2 for up
Array rotated(const Array& points, const Array& angles, int about) {
  const auto turn = about == 0   ? &Utilities::rotateAroundEastXaxis
                    : about == 1 ? &Utilities::rotateAroundNorthYaxis
                                 : &Utilities::rotateAroundHeightZaxis;
  const double* angle = angles.data();
  return rowByRow<ENHPoint, ENHPoint>(
      points, 3, [&](const ENHPoint& p, std::size_t i) { return turn(p, angle[i]); });
}

Array localToGrid(const Array& points, const Three& station, double orientation, double scale) {
  return rowByRow<ENHPoint, ENHPoint>(points, 3, [&](const ENHPoint& p, std::size_t) {
    return Utilities::transformLocalToGlobal(p, enhOf(station), orientation, scale);
  });
}

Array gridToLocal(const Array& points, const Three& station, double orientation, double scale) {
  return rowByRow<ENHPoint, ENHPoint>(points, 3, [&](const ENHPoint& p, std::size_t) {
    return Utilities::transformGlobalToLocal(p, enhOf(station), orientation, scale);
  });
}

/// Of an axis at a place, as Utilities takes it.
struct Direction {
  double azimuth;
  double slope;
  double cantPercent;
};

Array toComponents(const Array& vectors, const Array& directions) {
  const auto* direction = pointsOf<Direction>(directions);
  return rowByRow<ENHPoint, AxisPoint>(vectors, 3, [&](const ENHPoint& v, std::size_t i) {
    const Direction& d = direction[i];
    return Utilities::rotateENHdiffToAxisDirectionComponents(v, d.azimuth, d.slope, d.cantPercent);
  });
}

Array fromComponents(const Array& components, const Array& directions) {
  const auto* direction = pointsOf<Direction>(directions);
  return rowByRow<AxisPoint, ENHPoint>(components, 3, [&](const AxisPoint& c, std::size_t i) {
    const Direction& d = direction[i];
    return Utilities::rotateAxisDirectionComponentsToENHdiff(c, d.azimuth, d.slope, d.cantPercent);
  });
}

/// Of each row of two points.
Array azimuths(const Array& pairs) {
  struct Pair {
    ENHPoint from;
    ENHPoint to;
  };
  return rowByRow<Pair, double>(pairs, 0, [](const Pair& pair, std::size_t) {
    return Utilities::horAngleBetween(pair.from, pair.to);
  });
}

/// Of each row of a vertex and the points at the ends of two rays.
Array anglesAt(const Array& triples) {
  struct Rays {
    ENHPoint vertex;
    ENHPoint p;
    ENHPoint q;
  };
  return rowByRow<Rays, double>(triples, 0, [](const Rays& rays, std::size_t) {
    return Utilities::angle3dBetween(rays.vertex, rays.p, rays.q);
  });
}

/// Rows of x, y, change of direction and curvature.
Array clothoid(const Array& lengths, double radius, double length) {
  struct Place {
    double x = kNotFound;
    double y = kNotFound;
    double angle = kNotFound;
    double curvature = kNotFound;
  };
  const Ruv::CClothoidCurve curve;
  return rowByRow<double, Place>(lengths, 4, [&](double l, std::size_t) {
    Place place;
    if (!curve.localX(l, radius, length, place.x)) place.x = kNotFound;
    if (!curve.localY(l, radius, length, place.y)) place.y = kNotFound;
    if (!curve.tangentAngle(l, radius, length, place.angle)) place.angle = kNotFound;
    if (!curve.curvature(l, radius, length, place.curvature)) place.curvature = kNotFound;
    return place;
  });
}

}  // namespace

void bindCoordinates(py::module_& module) {
  const auto bindAngle = [&](const char* name, double (*convert)(double)) {
    module.def(name, [convert](const Array& values) {
      return rowByRow<double, double>(values, 0, [&](double v, std::size_t) { return convert(v); });
    });
  };
  bindAngle("zero_to_two_pi", &Utilities::getAngleAsZeroToTwoPi);
  bindAngle("minus_pi_to_pi", &Utilities::getangleAsMinusPiToPi);
  bindAngle("gon_to_rad", &Utilities::gon2rad);
  bindAngle("rad_to_gon", &Utilities::rad2gon);
  bindAngle("percent_to_slope", &Utilities::longSlopePercentToRad);
  bindAngle("slope_to_percent", &Utilities::longSlopeRadToPercent);
  bindAngle("percent_to_cant", &Utilities::transSlopePercentClockwiseToRadAntiClockwise);
  bindAngle("cant_to_percent", &Utilities::transSlopeRadAntiClockwiseToPercentClockwise);
  module.def("polar_to_local", [](const Array& points) {
    return rowByRow<PolarPoint, ENHPoint>(points, 3, [](const PolarPoint& p, std::size_t) {
      return Utilities::convertToLocalCoordinates(p);
    });
  });
  module.def("local_to_polar", [](const Array& points) {
    return rowByRow<ENHPoint, PolarPoint>(points, 3, [](const ENHPoint& p, std::size_t) {
      return Utilities::convertToPolarMeasurement(p);
    });
  });
  module.def("backsight", [](const Three& polar, double bearing, double offset) {
    return Utilities::calculateOrientationFromBacksight({polar[0], polar[1], polar[2]}, offset,
                                                        bearing, false);
  });
  module.def("local_to_grid", &localToGrid);
  module.def("grid_to_local", &gridToLocal);
  module.def("rotated", &rotated);
  module.def("to_components", &toComponents);
  module.def("from_components", &fromComponents);
  module.def("azimuths", &azimuths);
  module.def("angles_at", &anglesAt);
  module.def("clothoid", &clothoid);
}

}  // namespace Hadrel
