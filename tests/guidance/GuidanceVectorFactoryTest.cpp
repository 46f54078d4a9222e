// SPDX-License-Identifier: BSL-1.0
#include "guidance/Guidance.h"
#include "testing/Profiles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(GuidanceVectorFactory, NormalisesStraightDirections) {
  const AxisPoint origin(10, 1, 2);
  const VectorPtr parallel(Factory::createAsAxisParallelFromAxisCoordinate(origin));
  EXPECT_TRUE(parallel->isVectorDirectionAxisParallel());
  EXPECT_EQ(parallel->getVectorOriginPoint().stationing, 10.0);
  const VectorPtr given(Factory::createAsStraightFromAxisCoordinateAndVectorComponents(
      origin, GuidanceOffsets(3, 0, 4)));
  expectOffsets(given->getVectorDirection(), 0.6, 0, 0.8, 1e-15);
  EXPECT_FALSE(given->isVectorDirectionAxisParallel());
  const VectorPtr right(Factory::createAsStraightInProfilePlaneWithVerticalAngle(origin, 0.3));
  expectOffsets(right->getVectorDirection(), 0, std::sin(0.3), std::cos(0.3), 1e-15);
}

TEST(GuidanceVectorFactory, PointsRadialVectorsOutwardsFromAnywhere) {
  for (const bool backwards : {false, true}) {
    const ProfilePtr profile = profileThrough({{-5, 0, 0}, {5, 0, 5}, {-5, 0, 5}}, backwards);
    // Inside, on it, outside by less than, exactly and more than the unit of the offset.
    for (const double radius : {1.0, 4.9, 5.0, 5.5, 6.0, 9.0}) {
      const VectorPtr vector(Factory::createAsStraightRadialFromAxisCoordinateAndProfile(
          profile, AxisPoint(10, radius * 0.6, radius * 0.8)));
      expectOffsets(vector->getVectorDirection(), 0, 0.6, 0.8, 1e-12);
    }
  }
}

/// Components are in the section turned by the transverse slope, whether or not the points are.
TEST(GuidanceVectorFactory, TurnsAPairWithTheTransverseSlope) {
  const AxisPtr level = risingAxis(0.1);
  const AxisPtr sloped = risingAxis(0.1);
  sloped->addTransSlopeSegmentConstant(100, 300, 8);
  const auto direction = [](const AxisPtr& axis, bool withTransSlope) {
    return VectorPtr(Factory::createAsStraightFromPairOfAxisCoordinates(
                         axis, AxisPoint(110, -3, 1), AxisPoint(120, 4, 2), true, withTransSlope))
        ->getVectorDirection();
  };
  const GuidanceOffsets d = direction(level, true);
  expectOffsets(direction(sloped, true), d.forward, d.horizontal, d.vertical, 1e-12);
  const double c = std::cos(std::atan(0.08));
  const double s = std::sin(std::atan(0.08));
  expectOffsets(direction(sloped, false), d.forward, d.horizontal * c - d.vertical * s,
                d.vertical * c + d.horizontal * s, 1e-12);
}

}  // namespace
