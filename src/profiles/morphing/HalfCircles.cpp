#include "profiles/morphing/HalfCircles.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// A half circle may lack this much (rad): a chord tells its turning to half the digits only, and
/// far from the origin coordinates have few.
constexpr double kHalfTurnTolerance = 1e-6;

}  // namespace

bool hasHalfCircle(const TurningChords& elements) {
  return std::any_of(elements.begin(), elements.end(), [](const TurningChord& element) {
    return std::abs(element.turning) >= kPi - kHalfTurnTolerance;
  });
}

}  // namespace Calculations
}  // namespace Ruv
