// SPDX-License-Identifier: BSL-1.0
// The measure of the poses is an integral over directions of the base (on the sphere), turns of the
// height about it (on a circle) and shifts (by their volume), taken as a Monte Carlo mean
// (Hammersley and Handscomb 1964, Monte Carlo Methods). A sample draws direction and turn uniformly
// from ranges that hold all that fit; its value is the product of the sizes of both ranges and of
// the volume of the shifts that are left.

#include "stations/FigurePoses.h"

#include "foundation/MathConstants.h"

#include <Eigen/Geometry>

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

using Eigen::Matrix3d;
using Eigen::Vector3d;

/// Heights above the base below this part of it are rounding: the triangle is a stick.
constexpr double kFlatness = 1e-9;

const Vector3d& farthestFrom(const Vector3d& from, const std::vector<Vector3d>& points) {
  return *std::max_element(points.begin(), points.end(),
                           [&from](const Vector3d& a, const Vector3d& b) {
                             return (a - from).squaredNorm() < (b - from).squaredNorm();
                           });
}

/// A direction with the measure of the range that it was drawn from.
struct Drawn {
  Vector3d direction = Vector3d::Zero();
  double measure = 0.0;
};

/// A direction in which a stick fits into a box, with the solid angle of a range of them. Uniform
/// in the sine of the elevation above the box's two longer axes, and for each elevation in the
/// azimuth: bands of a sphere between planes of equal distance have equal areas.
Drawn directionOfBase(double length, const Vector3d& box, FixedDraws& draws) {
  Eigen::Index up = 0;
  box.minCoeff(&up);
  const Eigen::Index first = (up + 1) % 3;
  const Eigen::Index second = (up + 2) % 3;
  const double steepest = std::min(1.0, box(up) / length);
  const double sine = draws.uniform(-steepest, steepest);
  const double cosine = std::sqrt(1.0 - sine * sine);
  const double level = length * cosine;
  // In the first quadrant, from the second axis on.
  const double low = level > box(second) ? std::acos(box(second) / level) : 0.0;
  const double high = level > box(first) ? std::asin(box(first) / level) : kHalfPi;
  if (!(low < high)) return {};
  const double azimuth = draws.uniform(low, high);
  Drawn drawn;
  drawn.direction(first) = (draws.index(2) == 0 ? cosine : -cosine) * std::sin(azimuth);
  drawn.direction(second) = (draws.index(2) == 0 ? cosine : -cosine) * std::cos(azimuth);
  drawn.direction(up) = sine;
  drawn.measure = 2.0 * steepest * 4.0 * (high - low);
  return drawn;
}

/// A direction of the height, square to that of the base, with the angle of a range of them: those
/// in which the height fits between the two sides of the box that leave it least.
Drawn directionOfHeight(const Vector3d& base, double height, const Vector3d& box,
                        FixedDraws& draws) {
  Eigen::Index axis = 0;
  double half = kHalfPi;  // of the range, from where the height runs along the sides
  for (Eigen::Index i = 0; i < 3; ++i) {
    const double reach = height * std::sqrt(std::max(0.0, 1.0 - base(i) * base(i)));
    const double fitting = reach > box(i) ? std::asin(box(i) / reach) : kHalfPi;
    if (fitting >= half) continue;
    half = fitting;
    axis = i;
  }
  const Vector3d normal = base.cross(Vector3d::Unit(axis));
  // Only a base along the first axis has no such normal, and then every height fits.
  const Vector3d along = normal.squaredNorm() > 0.0 ? normal.normalized() : base.unitOrthogonal();
  const double angle = draws.uniform(-half, half);
  const Vector3d direction = std::cos(angle) * along + std::sin(angle) * base.cross(along);
  return {draws.index(2) == 0 ? direction : Vector3d(-direction), 4.0 * half};
}

}  // namespace

/// One step of splitmix64: the state grows by the odd number nearest to 2^64 over the golden ratio,
/// and two rounds of shifting and multiplying mix its bits (Steele, Lea and Flood 2014).
std::uint64_t FixedDraws::next() {
  m_state += 0x9E3779B97F4A7C15u;
  std::uint64_t z = m_state;
  z = (z ^ (z >> 30u)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27u)) * 0x94D049BB133111EBu;
  return z ^ (z >> 31u);
}

/// The upper 53 bits fill the digits of a double in [0, 1).
double FixedDraws::uniform(double low, double high) {
  return low + (high - low) * (static_cast<double>(next() >> 11u) * 0x1p-53);
}

std::size_t FixedDraws::index(std::size_t count) {
  return static_cast<std::size_t>(next() % count);
}

FigureTriangle::FigureTriangle(const std::vector<Vector3d>& points) {
  const Vector3d& start = farthestFrom(points.front(), points);
  const Vector3d side = farthestFrom(start, points) - start;
  base = side.norm();
  if (!(base > 0.0)) return;
  const Vector3d direction = side / base;
  Vector3d rise = Vector3d::Zero();
  for (const Vector3d& p : points) {
    const double foot = direction.dot(p - start);
    const Vector3d above = p - start - foot * direction;
    if (above.squaredNorm() <= rise.squaredNorm()) continue;
    rise = above;
    along = foot;
  }
  height = rise.norm() > kFlatness * base ? rise.norm() : 0.0;
  const Vector3d across = height > 0.0 ? (rise / height).eval() : direction.unitOrthogonal();
  axes << direction, across, direction.cross(across);
}

double samplePoses(const FigureTriangle& triangle, const Vector3d& box, double cosTilt,
                   FixedDraws& draws) {
  const Drawn base = directionOfBase(triangle.base, box, draws);
  if (!(base.measure > 0.0)) return 0.0;
  const Drawn height = directionOfHeight(base.direction, triangle.height, box, draws);
  Matrix3d axes;
  axes << base.direction, height.direction, base.direction.cross(height.direction);
  const Matrix3d rotation = axes * triangle.axes.transpose();
  if (rotation(2, 2) < cosTilt) return 0.0;

  // With its orientation settled, the triangle can be shifted by what its own extents leave of the
  // box in each direction: the volume of these shifts is the last factor of the measure.
  const Vector3d end = triangle.base * base.direction;
  const Vector3d top = triangle.along * base.direction + triangle.height * height.direction;
  const Vector3d extents = end.cwiseMax(top).cwiseMax(0.0) - end.cwiseMin(top).cwiseMin(0.0);
  const Vector3d play = (box - extents).cwiseMax(0.0);
  return base.measure * height.measure * play.prod();
}

}  // namespace Calculations
}  // namespace Ruv
