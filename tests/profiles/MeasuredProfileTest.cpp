// SPDX-License-Identifier: BSL-1.0
#include <Calculations/MeasuredProfile.h>

#include "testing/Expectations.h"

#include <gtest/gtest.h>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(MeasuredProfile, IsAClosedPolygon) {
  MeasuredProfile profile;
  EXPECT_EQ(profile.getCircumference(), 0.0);
  expectPoint(profile.getSegmentEndAt(0), Point2D(), 0);
  profile.addPoint(Point2D(1, 1));
  EXPECT_EQ(profile.getNumSegments(), 1u);
  for (const unsigned int index : {0u, 1u, 7u}) {
    expectPoint(profile.getSegmentEndAt(index), Point2D(1, 1), 0);
  }
  profile.addPoint(Point2D(4, 5));
  EXPECT_EQ(profile.getCircumference(), 10.0);
  expectPoint(profile.getSegmentStartAt(1), Point2D(4, 5), 0);
  expectPoint(profile.getSegmentEndAt(1), Point2D(1, 1), 0);
  expectPoint(profile.getPointAt(2), Point2D(), 0);
  expectPoint(profile.getSegmentEndAt(2), Point2D(), 0);
  expectPoint(profile.getSegmentEndAt(4294967295u), Point2D(), 0);
}

}  // namespace
