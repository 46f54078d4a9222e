// SPDX-License-Identifier: BSL-1.0
#include <Calculations/Points.h>
#include <Calculations/Utilities.h>

#include <array>
#include <cstddef>
#include <type_traits>

namespace Ruv {
namespace Calculations {

// Callers exchange these types as arrays of doubles, so their layout is part of the contract.
template <class T>
constexpr bool kIsBareComponents =
    std::is_standard_layout<T>::value&& std::is_trivially_copyable<T>::value &&
    sizeof(T) == 3 * sizeof(double);
static_assert(kIsBareComponents<ENHPoint> && kIsBareComponents<XYZPoint>, "three doubles");
static_assert(kIsBareComponents<AxisPoint> && kIsBareComponents<PolarPoint>, "three doubles");
static_assert(kIsBareComponents<GuidanceOffsets>, "three doubles");
static_assert(std::is_standard_layout<Point2D>::value && sizeof(Point2D) == 2 * sizeof(double),
              "two doubles");
static_assert(offsetof(ENHPoint, east) == 0 && offsetof(ENHPoint, north) == sizeof(double) &&
                  offsetof(ENHPoint, height) == 2 * sizeof(double),
              "storage order");
static_assert(offsetof(XYZPoint, x) == 0 && offsetof(XYZPoint, y) == sizeof(double) &&
                  offsetof(XYZPoint, z) == 2 * sizeof(double),
              "storage order");
static_assert(offsetof(AxisPoint, stationing) == 0 && offsetof(AxisPoint, offset) == 8 &&
                  offsetof(AxisPoint, height) == 16,
              "storage order");
static_assert(offsetof(PolarPoint, horizontalAngle) == 0 &&
                  offsetof(PolarPoint, verticalAngle) == 8 &&
                  offsetof(PolarPoint, slopeDistance) == 16,
              "storage order");
static_assert(offsetof(GuidanceOffsets, forward) == 0 &&
                  offsetof(GuidanceOffsets, horizontal) == 8 &&
                  offsetof(GuidanceOffsets, vertical) == 16,
              "storage order");

namespace {

std::array<double, 3> componentsOf(const ENHPoint& p) { return {p.east, p.north, p.height}; }

}  // namespace

double ENHPoint::lengthOfEastNorthProjection() const {
  return RawPointHelper::length2D(east, north);
}

double ENHPoint::azimuthAngle() const {
  return RawPointHelper::azimuthAngle(componentsOf(*this).data());
}

double ENHPoint::elevationAngle() const {
  return RawPointHelper::elevationAngle(componentsOf(*this).data());
}

double GuidanceOffsets::length() const {
  const std::array<double, 3> components = {forward, horizontal, vertical};
  return RawPointHelper::length(components.data());
}

GuidanceOffsets GuidanceOffsets::normalized() const {
  const double all = length();
  return GuidanceOffsets(forward / all, horizontal / all, vertical / all);
}

}  // namespace Calculations
}  // namespace Ruv
