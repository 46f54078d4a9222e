// SPDX-License-Identifier: BSL-1.0
// Why a neighbour has no foot for a point p on this side of the joint:
//
//   S, t           end of the neighbour at the joint and its tangent there
//   L, k           length of the neighbour and its sharpest curvature
//   C(l), q        a place on it, and how far beside it p lies
//
// The forward distance f(l) = (p - C(l)).t(l) has a foot where it falls through zero. Its
// derivative is k q - 1, and q is at most |p - S| + min(L, k L^2 / 2), as the curve leaves its
// tangent by no more than that. So f falls all along the neighbour where k q stays below 1. The
// next one begins with f < 0 when p lies behind S, and then f has no zero; the one before ends with
// f > 0.

#include "shapes/SoleSegment.h"

#include "shapes/ShapeTolerances.h"

#include <algorithm>
#include <cmath>

namespace Ruv {

namespace {

/// How large k q may become. What is left to 1 pays for the drift below and for the width of the
/// margin, by which feet just outside are told apart.
constexpr double kLargestBeside = 0.75;

/// Neighbours that are not laid out true to scale are searched.
constexpr double kLargestDrift = 0.1;
constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 2.0;

/// Points this far (m) past a joint have passed it, whatever the rounding of its coordinates, and
/// so far that their foot on the neighbour is none just outside, either.
constexpr double kPassed = 1e-3;
constexpr double kRelativePassed = 1e-12;

/// No circle is larger (m), so that coordinates within it keep their digits.
constexpr double kLargestRadius = 1e5;
constexpr double kRoundedDown = 1.0 - 1e-12;

/// How far from the joint a point may lie for the argument above; less than 0 where it never holds.
double reachBeside(const CPlacedCurve& path) {
  const double drift = path.curve.drift().length();
  const bool isTrue =
      drift <= kLargestDrift && path.scale >= kSmallestScale && path.scale <= kLargestScale;
  if (!isTrue) return -1.0;
  const double length = path.curve.length() * path.scale;
  const double curvature =
      std::max(std::abs(path.curve.at(0.0).curvature), std::abs(path.curve.end().curvature)) /
      path.scale;
  const double bend = std::min(length, curvature * length * length / 2.0) + drift * length;
  const bool isNearlyStraight = curvature * kLargestRadius <= kLargestBeside;
  return (isNearlyStraight ? kLargestRadius : kLargestBeside / curvature) - bend;
}

}  // namespace

CSoleSegment::CSoleSegment(const std::vector<CHoralSegment>& segments, const CBoxTree& boxes,
                           std::size_t index, const Point2D& place)
    : m_index(index), m_place(place) {
  double radius = kLargestRadius;
  // The nearer a neighbour, the better it is told by its joint; one far away, by its box.
  const auto joins = [&](const CHoralSegment& neighbour, const Point2D& end) {
    if (!neighbour.isEvaluable()) return false;
    const double reach = reachBeside(neighbour.path);
    const double apart = (place - end).length();
    if (!(2.0 * apart <= reach)) return false;
    radius = std::min(radius, reach - apart);
    return true;
  };
  std::size_t first = index;
  std::size_t last = index;
  if (index > 0) {
    const CCurvePoint end = segments[index - 1].path.end();
    if (joins(segments[index - 1], end.position)) {
      m_joints[0] = {end.position, end.tangent, 0.0};
      first = index - 1;
    }
  }
  if (index + 1 < segments.size()) {
    const CPlacedCurve& path = segments[index + 1].path;
    if (joins(segments[index + 1], path.start)) {
      m_joints[1] = {path.start, {-path.startDirection.x, -path.startDirection.y}, 0.0};
      last = index + 1;
    }
  }
  radius = boxes.clearanceAround(place, first, last, radius);
  if (first < index) setMargin(m_joints[0], segments[index - 1].opensWedge, radius);
  if (last > index) setMargin(m_joints[1], segments[index].opensWedge, radius);
  // The tip of a wedge lies as far outside the box of the segment behind it.
  m_radius = radius * kRoundedDown - kPrintingError - kPassed;
}

/// The wedge at a joint lies between two normals, as far apart as its break and its gap bring them.
void CSoleSegment::setMargin(Joint& joint, bool opensWedge, double radius) const {
  joint.margin = kPassed + kRelativePassed * (std::abs(joint.place.x) + std::abs(joint.place.y));
  if (opensWedge) {
    joint.margin += kPrintingError + kSmoothBreak * (radius + (m_place - joint.place).length());
  }
}

}  // namespace Ruv
