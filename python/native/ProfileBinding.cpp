// SPDX-License-Identifier: BSL-1.0
// Profiles, their comparison, morphing and fits.

#include "Arrays.h"
#include "Bindings.h"

#include "common/exchange/AreaFrame.h"
#include "common/exchange/DesignProfile.h"

#include <Calculations/FittingHelper.h>
#include <Calculations/MeasuredProfileCalculator.h>
#include <Calculations/ThProfileMorpher.h>

#include <pybind11/stl.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Hadrel {

using namespace Ruv::Calculations;

namespace {

constexpr double kNotFound = std::numeric_limits<double>::quiet_NaN();
constexpr double kClose = 1e-6;  // m; as a distance is known

/// @param nodes rows of x, y and the radius of the segment that ends there
std::unique_ptr<Profile> profileOf(const Array& nodes) {
  const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
  const double* node = nodes.data();
  for (std::size_t i = 1; i < numRows(nodes); ++i, node += 3) {
    if (node[5] == 0.0) {
      profile->addSegmentStraight(node[0], node[1], node[3], node[4]);
    } else {
      profile->addSegmentArc(node[0], node[1], node[3], node[4], node[5]);
    }
  }
  return std::make_unique<Profile>(profile);
}

boost::shared_ptr<MeasuredProfile> measuredOf(const std::vector<Point2D>& points) {
  boost::shared_ptr<MeasuredProfile> measured(new MeasuredProfile);
  for (const Point2D& point : points) {
    measured->addPoint(point);
  }
  return measured;
}

/// Rows of foot x, foot y, distance and derolment. A point without a foot reads as all zero, which
/// only a profile through the origin has as a position, that of the origin.
template <class Calculator>
Array positions(const Calculator& calculator, const Array& points) {
  static_assert(sizeof(ProfilePointResult) == 4 * sizeof(double), "a result is a row");
  const std::size_t count = numRows(points);
  Array result = newArray(count, 4);
  const auto* in = pointsOf<Point2D>(points);
  auto* out = pointsOf<ProfilePointResult>(result);
  const py::gil_scoped_release others;
  if (calculator.calculateProfilePoints(in, count, out) == count) return result;
  for (std::size_t i = 0; i < count; ++i) {
    const ProfilePointResult& r = out[i];
    const bool isZero = r.profilePoint.x == 0.0 && r.profilePoint.y == 0.0 && r.distance == 0.0 &&
                        r.derolment == 0.0;
    if (isZero && !(in[i].x == 0.0 && in[i].y == 0.0)) {
      out[i] = ProfilePointResult({kNotFound, kNotFound}, kNotFound, kNotFound);
    }
  }
  return result;
}

/// Points at a distance from the profile on the normals through others.
Array offsetPoints(const Profile& profile, const Array& points, double distance) {
  return rowByRow<Point2D, Point2D>(points, 2, [&](const Point2D& p, std::size_t) {
    const Point2D moved = profile.calculator.applyRadialOffset(p, distance);
    if (moved.x != 0.0 || moved.y != 0.0) return moved;
    const double there = profile.calculator.calculateProfilePoint(moved).distance;
    const bool isReal =
        std::isfinite(p.x) && std::isfinite(p.y) && std::abs(there - distance) < kClose;
    return isReal ? moved : Point2D(kNotFound, kNotFound);
  });
}

Array diameters(const Profile& profile, const Array& points) {
  return rowByRow<Point2D, double>(points, 0, [&](const Point2D& p, std::size_t) {
    const double diameter = profile.calculator.diameterAtProfilePoint(p);
    return diameter < std::numeric_limits<double>::max() ? diameter : kNotFound;
  });
}

using Limits = std::array<std::optional<double>, 4>;  // above, below, left of, right of
using Wedge = std::array<double, 4>;                  // start and end angle, centre
using Geology = std::tuple<int, double, double>;

void setFilters(MeasuredProfileCalculator& calculator, const Limits& limits,
                const std::vector<Wedge>& wedges) {
  if (limits[0]) calculator.setFilterExcludeAbove(*limits[0]);
  if (limits[1]) calculator.setFilterExcludeBelow(*limits[1]);
  if (limits[2]) calculator.setFilterExcludeLeftOf(*limits[2]);
  if (limits[3]) calculator.setFilterExcludeRightOf(*limits[3]);
  for (const Wedge& wedge : wedges) {
    calculator.setFilterExcludeBetweenAngles(wedge[0], wedge[1], {wedge[2], wedge[3]});
  }
}

/// Everything that a comparison tells.
struct Findings {
  double designArea = 0.0;
  double measuredArea = 0.0;
  double overArea = 0.0;
  double underArea = 0.0;
  double geologicalArea = kNotFound;
  double designLength = 0.0;
  double measuredLength = 0.0;
  std::vector<Polyline> designLines;
  std::vector<Polyline> measuredLines;
  std::vector<Polygon> over;
  std::vector<Polygon> under;
  std::pair<std::vector<Polygon>, std::vector<Polygon>> divided;
};

Findings findingsOf(const MeasuredProfileCalculator& calculator,
                    const std::optional<Geology>& geology) {
  Findings findings;
  findings.designArea = calculator.referenceArea();
  findings.measuredArea = calculator.comparisonArea();
  findings.overArea = calculator.overProfileArea();
  findings.underArea = calculator.underProfileArea();
  findings.over = calculator.overProfileAreaPathes();
  findings.under = calculator.underProfileAreaPathes();
  if (geology) {
    const auto method = static_cast<GeologicalOverProfileMethod::Method>(std::get<0>(*geology));
    const double a = std::get<1>(*geology);
    const double b = std::get<2>(*geology);
    findings.geologicalArea = calculator.geologicalOverProfileArea(method, a, b);
    findings.divided = calculator.overProfileDividedByGeologicalAreaPathes(method, a, b);
  }
  return findings;
}

/// What is not filtered, in profile coordinates.
void addLengths(const MeasuredProfileCalculator& calculator, Findings& findings) {
  findings.designLength = calculator.referenceCircumference();
  findings.measuredLength = calculator.comparisonCircumference();
  findings.designLines = calculator.referenceCircumferenceLines(false);
  findings.measuredLines = calculator.comparisonCircumferenceLines(false);
}

py::dict dictOf(const Findings& findings) {
  py::dict dict;
  dict["design_length"] = findings.designLength;
  dict["measured_length"] = findings.measuredLength;
  dict["design_lines"] = arraysOf(findings.designLines);
  dict["measured_lines"] = arraysOf(findings.measuredLines);
  dict["design_area"] = findings.designArea;
  dict["measured_area"] = findings.measuredArea;
  dict["over_area"] = findings.overArea;
  dict["under_area"] = findings.underArea;
  dict["geological_area"] = findings.geologicalArea;
  dict["over"] = arraysOf(findings.over);
  dict["under"] = arraysOf(findings.under);
  dict["geological"] = arraysOf(findings.divided.first);
  dict["remaining"] = arraysOf(findings.divided.second);
  return dict;
}

Limits movedInto(const Exchange::AreaFrame& frame, Limits limits) {
  const Point2D origin = frame.moved({0.0, 0.0});
  for (std::size_t i = 0; i < limits.size(); ++i) {
    if (limits[i]) *limits[i] += i < 2 ? origin.y : origin.x;
  }
  return limits;
}

std::vector<Wedge> movedInto(const Exchange::AreaFrame& frame, std::vector<Wedge> wedges) {
  for (Wedge& wedge : wedges) {
    const Point2D centre = frame.moved({wedge[2], wedge[3]});
    wedge[2] = centre.x;
    wedge[3] = centre.y;
  }
  return wedges;
}

/// Where arcs count as such, as in the programs.
Findings compareExactly(const Profile& design, std::vector<Point2D> points, const Limits& limits,
                        const std::vector<Wedge>& wedges, const std::optional<Geology>& geology) {
  constexpr double kMargin = 1.0;
  const double beyond = geology ? std::get<1>(*geology) : 0.0;
  MeasuredProfileCalculator lengths(design.definition, measuredOf(points));
  setFilters(lengths, limits, wedges);
  const Exchange::DesignProfile drawn(design.definition);
  const Exchange::AreaFrame frame(drawn, points, beyond + kMargin);
  for (Point2D& point : points) {
    point = frame.moved(point);
  }
  MeasuredProfileCalculator calculator(frame.design(), measuredOf(points));
  setFilters(calculator, movedInto(frame, limits), movedInto(frame, wedges));
  Findings findings = findingsOf(calculator, geology);
  findings.over = frame.back(findings.over);
  findings.under = frame.back(findings.under);
  findings.divided = {frame.back(findings.divided.first), frame.back(findings.divided.second)};
  addLengths(lengths, findings);
  return findings;
}

py::dict compared(const Profile& design, const Array& measured, const Limits& limits,
                  const std::vector<Wedge>& wedges, const std::optional<Geology>& geology) {
  Findings findings;
  std::vector<Point2D> points = listOf(measured);
  {
    const py::gil_scoped_release others;
    findings = compareExactly(design, std::move(points), limits, wedges, geology);
  }
  return dictOf(findings);
}

py::dict comparedScans(const Array& reference, const Array& measured, const Limits& limits,
                       const std::vector<Wedge>& wedges, const std::optional<Geology>& geology) {
  const boost::shared_ptr<const MeasuredProfile> earlier = measuredOf(listOf(reference));
  MeasuredProfileCalculator calculator(earlier, measuredOf(listOf(measured)));
  setFilters(calculator, limits, wedges);
  Findings findings;
  {
    const py::gil_scoped_release others;
    findings = findingsOf(calculator, geology);
    addLengths(calculator, findings);
  }
  return dictOf(findings);
}

/// @param design  for radial lines; else null
/// @param way     "horizontal", "vertical" or "radial"
Array nearestOnSection(const Profile* design, const Array& measured, const Array& points,
                       const std::string& way) {
  const auto reference =
      design ? design->definition : boost::shared_ptr<const ThProfileDefinition>();
  const MeasuredProfileCalculator calculator(reference, measuredOf(listOf(measured)));
  const auto ask =
      way == "horizontal" ? &MeasuredProfileCalculator::horizontalDistanceToComparisonProfile
      : way == "vertical" ? &MeasuredProfileCalculator::verticalDistanceToComparisonProfile
                          : &MeasuredProfileCalculator::radialDistanceToComparisonProfile;
  constexpr double kFarthest = 1e30;  // the mark of a miss lies beyond
  return rowByRow<Point2D, Point2D>(points, 2, [&](const Point2D& p, std::size_t) {
    const Point2D nearest = (calculator.*ask)(p);
    return nearest.x < kFarthest ? nearest : Point2D(kNotFound, kNotFound);
  });
}

Array sectionCut(const Array& measured, double at, bool isHorizontal, const Limits& limits,
                 const std::vector<Wedge>& wedges) {
  MeasuredProfileCalculator calculator(boost::shared_ptr<const MeasuredProfile>(),
                                       measuredOf(listOf(measured)));
  setFilters(calculator, limits, wedges);
  return arrayOf(isHorizontal ? calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(at)
                              : calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(at));
}

py::array_t<bool> excluded(const Array& points, const Limits& limits,
                           const std::vector<Wedge>& wedges) {
  const boost::shared_ptr<const MeasuredProfile> none;
  MeasuredProfileCalculator calculator(none, none);
  setFilters(calculator, limits, wedges);
  const std::size_t count = numRows(points);
  py::array_t<bool> result(static_cast<py::ssize_t>(count));
  const auto* in = pointsOf<Point2D>(points);
  bool* out = result.mutable_data();
  const py::gil_scoped_release others;
  for (std::size_t i = 0; i < count; ++i) {
    out[i] = calculator.isInFilteredArea(in[i]);
  }
  return result;
}

py::tuple tupleOf(const FittingResult& fit) {
  return py::make_tuple(fit.center.x, fit.center.y, fit.radius, fit.semiAxisA, fit.semiAxisB,
                        fit.rotation);
}

FittingResult circle(const std::vector<Point2D>& points, int method) {
  if (method == FittingMethod::CircleLegacy) return FittingHelper::circleFitRuvLegacy(points);
  if (method == FittingMethod::CircleKasa) return FittingHelper::circleFitKasa(points);
  return FittingHelper::circleFitLandau(points);
}

}  // namespace

Array nodesOf(const ThProfileDefinition& profile) {
  const unsigned count = profile.getNumSegments();
  Array nodes = newArray(count + 1U, 3);
  double* out = nodes.mutable_data();
  const auto put = [&](const Point2D& point, double radius) {
    *out++ = point.x;
    *out++ = point.y;
    *out++ = radius;
  };
  put(profile.getSegmentStartAt(0), 0.0);
  for (unsigned i = 0; i < count; ++i) {
    put(profile.getSegmentEndAt(i), profile.getSegmentRadiusAt(i));
  }
  return nodes;
}

void bindProfile(py::module_& module) {
  py::class_<Profile>(module, "Profile")
      .def(py::init(&profileOf))
      .def("position", [](const Profile& profile,
                          const Array& points) { return positions(profile.calculator, points); })
      .def("circumference",
           [](const Profile& profile) { return profile.definition->getCircumference(); })
      .def("area",
           [](const Profile& profile) { return Exchange::enclosedArea(*profile.definition); })
      .def("centroid",
           [](const Profile& profile) {
             const Point2D centre = Exchange::DesignProfile(profile.definition).centroid();
             return std::make_pair(centre.x, centre.y);
           })
      .def("outline",
           [](const Profile& profile, double step) {
             return arrayOf(profile.calculator.pointsOnProfileByInterval(step, true));
           })
      .def("samples",
           [](const Profile& profile, unsigned count) {
             return arrayOf(profile.calculator.pointsOnProfileByFixedNumber(count, nullptr));
           })
      .def("vertices",
           [](const Profile& profile) { return arrayOf(profile.calculator.vertexPoints()); })
      .def("is_clockwise",
           [](const Profile& profile) { return profile.definition->isDefinedClockwise(); })
      .def("offset_points", &offsetPoints)
      .def("diameters", &diameters)
      .def("cut",
           [](const Profile& profile, double at, bool isHorizontal) {
             return arrayOf(isHorizontal ? profile.calculator.profilePointsAtGivenUpOffset(at)
                                         : profile.calculator.profilePointsAtGivenRightOffset(at));
           })
      .def("at", [](const Profile& profile, const Array& derolments) {
        return rowByRow<double, Point2D>(derolments, 2, [&](double derolment, std::size_t) {
          return profile.calculator.calcPointOnProfileAtDerolment(derolment);
        });
      });
  module.def("nearest_on_section", &nearestOnSection);
  module.def("section_cut", &sectionCut);
  module.def("excluded", &excluded);
  module.def("compared", &compared);
  module.def("compared_scans", &comparedScans);
  module.def(
      "morphed",
      [](const Profile& start, const Profile& end, double from, double to,
         double at) -> std::optional<Array> {
        const auto profile =
            ThProfileMorpher(start.definition, end.definition, from, to).getMorphedProfile(at);
        if (!profile) return std::nullopt;
        return nodesOf(*profile);
      });
  module.def("circle", [](const Array& points, int method) {
    const std::vector<Point2D> list = listOf(points);
    FittingResult fit;
    {
      const py::gil_scoped_release others;
      fit = circle(list, method);
    }
    return tupleOf(fit);
  });
  module.def("ellipse", [](const Array& points, int rounds) {
    const std::vector<Point2D> list = listOf(points);
    std::vector<bool> used;
    FittingResult fit;
    {
      const py::gil_scoped_release others;
      fit = FittingHelper::ellipseFitFitzgibbon(list, used, rounds);
    }
    return py::make_tuple(tupleOf(fit), used);
  });
}

}  // namespace Hadrel
