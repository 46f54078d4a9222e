// SPDX-License-Identifier: BSL-1.0
#include "fitting/Circles.h"

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

const DirectFit kLandauFit = {FittingMethod::CircleLandau, &FittingHelper::circleFitLandau};

TEST(CircleFitLandau, FindsTheGoldenCircles) { kLandauFit.expectGoldenCircles(); }

TEST(CircleFitLandau, ReproducesExactCircles) { kLandauFit.expectExactCircles(); }

TEST(CircleFitLandau, GivesNoNumbersWithoutACircle) { kLandauFit.expectNoNumbersWithoutACircle(); }

}  // namespace
