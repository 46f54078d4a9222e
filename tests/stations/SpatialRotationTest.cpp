// SPDX-License-Identifier: BSL-1.0
#include "stations/SpatialRotation.h"

#include "testing/Random.h"

#include <gtest/gtest.h>
#include <Eigen/Core>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using TestSupport::Random;

TEST(SpatialRotation, HasItsDerivativesAndGivesItsAnglesBack) {
  Random random(19);
  for (int i = 0; i < 200; ++i) {
    const SpatialAngles a{random.uniform(-3, 3), random.uniform(-1.5, 1.5), random.uniform(-3, 3)};
    const SpatialRotation r = spatialRotation(a);
    EXPECT_TRUE((r.matrix * r.matrix.transpose()).isIdentity(1e-15));
    constexpr double kStep = 1e-6;  // of central differences
    const auto derivative = [&](const SpatialAngles& step) {
      const auto at = [&](double s) {
        return spatialRotation(
                   {a.omega + s * step.omega, a.phi + s * step.phi, a.kappa + s * step.kappa})
            .matrix;
      };
      return Eigen::Matrix3d((at(kStep) - at(-kStep)) / (2 * kStep));
    };
    EXPECT_TRUE((derivative({1, 0, 0}) - r.byOmega).isZero(1e-9));
    EXPECT_TRUE((derivative({0, 1, 0}) - r.byPhi).isZero(1e-9));
    EXPECT_TRUE((derivative({0, 0, 1}) - r.byKappa).isZero(1e-9));
    const double halfTurn = std::acos(-1.0);
    for (const SpatialAngles& back :
         {anglesOf(r.matrix), withPositiveCosPhi(a),
          withPositiveCosPhi({a.omega + halfTurn, halfTurn - a.phi, a.kappa + halfTurn})}) {
      EXPECT_NEAR(std::remainder(back.omega - a.omega, 2 * halfTurn), 0.0, 1e-12);
      EXPECT_NEAR(back.phi, a.phi, 1e-12);
      EXPECT_NEAR(std::remainder(back.kappa - a.kappa, 2 * halfTurn), 0.0, 1e-12);
    }
  }
}

}  // namespace
