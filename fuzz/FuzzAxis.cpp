// SPDX-License-Identifier: BSL-1.0
// Builds axes and converts on them: what is converted to the axis comes back to where it was.

#include "FuzzAxes.h"

#include "testing/Promises.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ruv;
using namespace Ruv::Calculations;
using Fuzz::FuzzedAxis;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;

constexpr double kFullTurn = 6.283185307179586;
/// What is promised and the rounding of grid coordinates of 400 km, several times.
constexpr double kTolerance = 5 * Promise::kGridPoint;

bool isFinite(const ENHPoint& p) {
  return std::isfinite(p.east) && std::isfinite(p.north) && std::isfinite(p.height);
}

double planDistance(const ENHPoint& a, const ENHPoint& b) {
  return std::hypot(a.east - b.east, a.north - b.north);
}

struct Plane {
  bool perpendicular;
  bool withSlope;
};

/// Grid to axis and back is where it was. In the perpendicular plane a kink of the grade has a
/// wedge on its outer side whose points all belong to the kink.
void goThereAndBack(const FuzzedAxis& made, const ENHPoint& grid, const Plane& plane) {
  const AxisCalculator calculator(made.axis);
  AxisPoint onAxis;
  if (!calculator.enhPointToAxisPoint(grid, onAxis, plane.perpendicular, plane.withSlope)) return;
  ENHPoint again;
  if (!calculator.axisPointToEnhPoint(onAxis, again, plane.perpendicular, plane.withSlope)) return;
  if (plane.perpendicular && made.hasKinks) return;
  requireNear(planDistance(again, grid), 0.0, kTolerance, "there and back, in plan");
  requireNear(again.height, grid.height, kTolerance, "there and back, in height");
}

void convert(Input& input, const FuzzedAxis& made) {
  const AxisCalculator calculator(made.axis);
  const Plane plane{input.yes(), input.yes()};
  const double first = made.axis->minimumStng2d();
  const double part = input.number(0.0, 1.0);
  const double offset = input.number(-20.0, 20.0);
  const double last = made.axis->maximumStng2d();
  const AxisPoint in(std::min(first + part * (last - first), last), offset,
                     input.number(-20.0, 20.0));
  ENHPoint grid;
  const bool answered =
      calculator.axisPointToEnhPoint(in, grid, plane.perpendicular, plane.withSlope);
  if (input.isTame()) {
    require(answered, "points in the range of a tame axis have a place");
    require(isFinite(grid), "a place is finite");
    goThereAndBack(made, grid, plane);
    AxisPoint nearest;
    const bool found = calculator.enhPointToAxisPoint(grid, nearest, false, false);
    if (found && !made.axis->isShaftAxis() && !plane.withSlope && !plane.perpendicular) {
      require(std::abs(nearest.offset) <= std::abs(offset) + kTolerance, "the nearest foot counts");
    }
  } else {
    AxisPoint back;
    calculator.enhPointToAxisPoint(grid, back, plane.perpendicular, plane.withSlope);
    calculator.enhPointToAxisPoint(input.gridPoint(4e5), back, plane.perpendicular,
                                   plane.withSlope);
  }
}

void measureLengths(Input& input, const FuzzedAxis& made) {
  const AxisCalculator calculator(made.axis);
  const double stationing = input.number(-100.0, 1000.0);
  double tunnelMeter = 0.0;
  double back = 0.0;
  if (!calculator.stationingToTunnelmeter(stationing, tunnelMeter)) return;
  const bool answered = calculator.tunnelmeterToStationing(tunnelMeter, back);
  if (!input.isTame()) return;
  require(answered, "a tunnel meter leads back");
  requireNear(back, stationing, 1e-7, "a tunnel meter leads back to its stationing");
}

void askForProperties(Input& input, const FuzzedAxis& made) {
  const AxisCalculator calculator(made.axis);
  const double stationing = input.number(-100.0, 1000.0);
  double azimuth = 0.0;
  double v[5];
  if (!calculator.axisPropertiesAtStationing(stationing, azimuth, v[0], v[1], v[2], v[3], v[4])) {
    return;
  }
  ENHPoint tangent;
  const bool hasTangent = calculator.tangentAtStationingPerpendicular(stationing, tangent);
  if (!input.isTame()) return;
  require(azimuth >= 0.0 && azimuth < kFullTurn, "an azimuth lies in its range");
  require(std::all_of(v, v + 5, [](double value) { return std::isfinite(value); }) ||
              made.axis->isShaftAxis(),
          "properties are finite");
  require(hasTangent, "where there are properties there is a tangent");
  requireNear(std::hypot(tangent.east, std::hypot(tangent.north, tangent.height)), 1.0, 1e-12,
              "a tangent has length 1");
}

/// Sampling takes time in proportion to the length, up to a limit beyond which only the ends are
/// sampled.
bool takesLong(double length, double step) {
  constexpr double kManySteps = 1e4;
  constexpr double kTooManySteps = 1.1e7;
  const double steps = length / std::min(std::max(step, 0.1), 100.0);
  return steps > kManySteps && steps < kTooManySteps;
}

bool segmentTakesLong(const AxisDefinition& axis, unsigned index, double step) {
  const CShapeBase* end = axis.getHoralSegmentAt(index);
  if (end == nullptr || end->getPrevious() == nullptr) return false;
  return takesLong(end->getStationing() - end->getPrevious()->getStationing(), step);
}

double grade(const CShapeBase& from, const CShapeBase& to) {
  const auto& a = dynamic_cast<const CVeralElement&>(from);
  const auto& b = dynamic_cast<const CVeralElement&>(to);
  return (b.getHeight() - a.getHeight()) / (b.getStationing() - a.getStationing());
}

bool roundingTakesLong(const AxisDefinition& axis, unsigned index, double step) {
  const CShapeBase* point = axis.getVeralPointAt(index);
  if (point == nullptr || point->getPrevious() == nullptr || point->getNext() == nullptr) {
    return false;
  }
  const double size = std::abs(dynamic_cast<const CVeralElement&>(*point).getRoundingValue());
  const double turn =
      std::abs(grade(*point, *point->getNext()) - grade(*point->getPrevious(), *point));
  const double most = point->getTypeId() == CShapeType::VerticalArc ? 2.0 : turn;
  return takesLong(size * std::min(turn, most), step);
}

void draw(Input& input, const AxisDefinition& axis) {
  const double step = input.isTame() ? input.number(1.0, 50.0) : input.number(0.0, 50.0);
  for (unsigned i = 0; i <= axis.getNumHoralSegments(); ++i) {
    if (!segmentTakesLong(axis, i, step)) axis.getHoralSegmentPolylineAt(i, step);
  }
  for (unsigned i = 0; i <= axis.getNumVeralPoints(); ++i) {
    if (roundingTakesLong(axis, i, step)) return;
    axis.getVeralPointPolylineAt(i, step);
  }
  const Polyline profile = axis.getVeralPolyline(step);
  if (!input.isTame()) return;
  const auto& points = profile.points();
  require(std::is_sorted(points.begin(), points.end(),
                         [](const Point2D& a, const Point2D& b) { return a.x < b.x; }),
          "the profile never runs back");
}

/// Carried to itself, a stationing is the same place, where an axis crosses itself too.
void carry(Input& input, const FuzzedAxis& made) {
  const double from = input.number(0.0, 500.0);
  const boost::shared_ptr<const BlockAxisDefinition> block(
      new BlockAxisDefinition(made.axis, from, input.number(0.0, 500.0)));
  const double stationing = input.number(0.0, 500.0);
  AxisMapper(made.axis, block).mapStationing(stationing, input.yes(), input.yes());
  AxisMapper(block, made.axis).mapStationing(stationing, input.yes(), input.yes());
  if (!input.isTame()) return;
  if (block->blockLength2d() > 1.0) {
    goThereAndBack({boost::const_pointer_cast<AxisDefinition>(block->asAxisDefinition()), false},
                   input.gridPoint(500.0), {input.yes(), true});
  }
  const boost::shared_ptr<const AxisDefinition> axis = made.axis;
  const AxisMapper toItself(axis, axis);
  if (!toItself.canMap(stationing, false)) return;
  const AxisCalculator calculator(axis);
  ENHPoint before;
  ENHPoint after;
  require(calculator.axisPointToEnhPointVertical(AxisPoint(stationing, 0, 0), before) &&
              calculator.axisPointToEnhPointVertical(
                  AxisPoint(toItself.mapStationing(stationing, false, false), 0, 0), after),
          "what can be mapped has a place");
  requireNear(planDistance(before, after), 0.0, kTolerance, "carried to itself, the same place");
}

/// The clothoid as such, from its origin.
void askClothoid(Input& input) {
  const double l = input.number(-200.0, 200.0);
  const double radius = input.number(-2000.0, 2000.0);
  const double length = input.number(0.0, 200.0);
  const CClothoidCurve clothoid;
  double turning = 0.0;
  double x = 0.0;
  double y = 0.0;
  double curvature = 0.0;
  clothoid.tangentAngle(l, radius, length, turning);
  clothoid.curvature(l, radius, length, curvature);
  const bool converges =
      clothoid.localX(l, radius, length, x) && clothoid.localY(l, radius, length, y);
  if (!input.isTame() || !converges || !(turning < 1.0)) return;
  require(std::hypot(x, y) <= std::abs(l) * (1.0 + 1e-12), "a chord is no longer than its curve");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const FuzzedAxis made = Fuzz::fuzzedAxis(input);
  for (int left = 8; left > 0 && input.isLeft(); --left) {
    convert(input, made);
    measureLengths(input, made);
    askForProperties(input, made);
  }
  draw(input, *made.axis);
  carry(input, made);
  askClothoid(input);
  return 0;
}
