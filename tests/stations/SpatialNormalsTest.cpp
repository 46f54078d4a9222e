// SPDX-License-Identifier: BSL-1.0
#include "stations/SpatialNormals.h"

#include "stations/Setups.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(SpatialNormals, SumsTheSquaresOfMisclosuresAnywhere) {
  PointPairs pairs;
  double squares = 0.0;
  const SpatialParameters at{{1, 2, 3}, {0.3, 0.2, 0.5}, 1.1};
  for (const Pair& pair : kSquare) {
    pairs.local.push_back(pair.local);
    pairs.global.push_back(pair.global);
    const Eigen::Vector3d local(pair.local.east, pair.local.north, pair.local.height);
    const Eigen::Vector3d global(pair.global.east, pair.global.north, pair.global.height);
    const Eigen::Vector3d placed = at.scale * (spatialRotation(at.angles).matrix * local);
    squares += (global - at.translation - placed).squaredNorm();
  }
  const SpatialNormals normals(ReducedPairs(pairs), at);
  EXPECT_NEAR(normals.squaredMisclosures() / squares, 1.0, 1e-12);
}

TEST(SpatialNormals, RefusesAngleThatAnotherOneUndoes) {
  // Instrument tilted by a right angle about north: omega and kappa turn about one axis.
  PointPairs pairs;
  for (const Pair& pair : kSquare) {
    pairs.local.push_back(pair.local);
    pairs.global.push_back(pair.global);
  }
  const ReducedPairs reduced(pairs);
  const auto at = [&](double phi) {
    return SpatialNormals(reduced, {{0, 0, 0}, {0.3, phi, 0.5}, 1.0}).cofactors();
  };
  EXPECT_FALSE(at(std::acos(0.0) + 1e-9));
  EXPECT_TRUE(at(std::acos(0.0) - 1e-5));
}

}  // namespace
