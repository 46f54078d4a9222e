// SPDX-License-Identifier: BSL-1.0
#include <Calculations/FittingResult.h>
#include <Calculations/ProfilePointResult.h>

#include <cstddef>
#include <type_traits>

namespace Ruv {
namespace Calculations {

// Programs hand these records over by value to libraries of other versions, so their layout is part
// of the contract. The method takes the place of a double, but where the platform aligns doubles of
// a record to four bytes (32-bit x86 on Linux).
constexpr std::size_t kMethodSpace = alignof(Point2D);
static_assert(kMethodSpace == sizeof(double) || kMethodSpace == sizeof(FittingMethod::Method),
              "the method, padded at most to a double");
static_assert(std::is_standard_layout<FittingResult>::value &&
                  sizeof(FittingResult) == kMethodSpace + 6 * sizeof(double),
              "the method and six doubles");
static_assert(offsetof(FittingResult, method) == 0 &&
                  offsetof(FittingResult, center) == kMethodSpace &&
                  offsetof(FittingResult, radius) == kMethodSpace + 16 &&
                  offsetof(FittingResult, semiAxisA) == kMethodSpace + 24 &&
                  offsetof(FittingResult, semiAxisB) == kMethodSpace + 32 &&
                  offsetof(FittingResult, rotation) == kMethodSpace + 40,
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
