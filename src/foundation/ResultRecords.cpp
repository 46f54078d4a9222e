// SPDX-License-Identifier: BSL-1.0
#include <Calculations/FittingResult.h>
#include <Calculations/ProfilePointResult.h>

#include <cstddef>
#include <type_traits>

namespace Ruv {
namespace Calculations {

// Programs hand these records over by value to libraries of other versions, so their layout is part
// of the contract.
static_assert(std::is_standard_layout<FittingResult>::value && sizeof(FittingResult) == 56,
              "the method, padded, and six doubles");
static_assert(offsetof(FittingResult, method) == 0 && offsetof(FittingResult, center) == 8 &&
                  offsetof(FittingResult, radius) == 24 &&
                  offsetof(FittingResult, semiAxisA) == 32 &&
                  offsetof(FittingResult, semiAxisB) == 40 &&
                  offsetof(FittingResult, rotation) == 48,
              "storage order");
static_assert(std::is_standard_layout<ProfilePointResult>::value &&
                  sizeof(ProfilePointResult) == 4 * sizeof(double),
              "four doubles");
static_assert(offsetof(ProfilePointResult, profilePoint) == 0 &&
                  offsetof(ProfilePointResult, distance) == 16 &&
                  offsetof(ProfilePointResult, derolment) == 24,
              "storage order");

FittingResult::FittingResult() : FittingResult(FittingMethod::CircleLegacy) {}

FittingResult::FittingResult(FittingMethod::Method m) : FittingResult(m, Point2D(), 0.0) {}

// A circle has its radius for both semi-axes too, so that it can be drawn as an ellipse. An ellipse
// has the radius 0.
FittingResult::FittingResult(FittingMethod::Method m, Point2D centerPoint, double r)
    : method(m), center(centerPoint), radius(r), semiAxisA(r), semiAxisB(r), rotation(0.0) {}

FittingResult::FittingResult(FittingMethod::Method m, Point2D centerPoint, double a, double b,
                             double angle)
    : method(m), center(centerPoint), radius(0.0), semiAxisA(a), semiAxisB(b), rotation(angle) {}

ProfilePointResult::ProfilePointResult() = default;

ProfilePointResult::ProfilePointResult(const Point2D& p, double distanceValue,
                                       double derolmentValue)
    : profilePoint(p), distance(distanceValue), derolment(derolmentValue) {}

}  // namespace Calculations
}  // namespace Ruv
