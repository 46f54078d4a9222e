// SPDX-License-Identifier: BSL-1.0
#include "fitting/Circles.h"

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

const DirectFit kKasaFit = {FittingMethod::CircleKasa, &FittingHelper::circleFitKasa};

TEST(CircleFitKasa, FindsTheGoldenCircles) { kKasaFit.expectGoldenCircles(); }

TEST(CircleFitKasa, ReproducesExactCircles) { kKasaFit.expectExactCircles(); }

TEST(CircleFitKasa, GivesNoNumbersWithoutACircle) { kKasaFit.expectNoNumbersWithoutACircle(); }

/// Block by block, rounding adds up: without refinement 5e-14 was seen, with it less than an ulp.
TEST(CircleFitKasa, KeepsAllDigitsOfManyPoints) {
  expectCircle(FittingHelper::circleFitKasa(circlePoints(Point2D(3, -2), 5, 1000000)),
               FittingMethod::CircleKasa, Point2D(3, -2), 5, 2e-15);
}

}  // namespace
