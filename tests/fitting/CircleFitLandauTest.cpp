// SPDX-License-Identifier: BSL-1.0
#include "fitting/Circles.h"

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

const DirectFit kFit = {FittingMethod::CircleLandau, &FittingHelper::circleFitLandau};

TEST(CircleFitLandau, FindsTheGoldenCircles) { kFit.expectGoldenCircles(); }

TEST(CircleFitLandau, ReproducesExactCircles) { kFit.expectExactCircles(); }

TEST(CircleFitLandau, GivesNoNumbersWithoutACircle) { kFit.expectNoNumbersWithoutACircle(); }

}  // namespace
