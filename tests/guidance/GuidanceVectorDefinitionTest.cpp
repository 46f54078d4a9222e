// SPDX-License-Identifier: BSL-1.0
#include "guidance/Guidance.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(GuidanceVectorDefinition, KeepsWhatItIsGiven) {
  GuidanceVectorDefinition vector;
  EXPECT_TRUE(vector.isVectorDirectionAxisParallel());
  const GuidanceOffsets d(2, -3, 6);
  vector.setVectorDirectionAsStraight(d);
  EXPECT_FALSE(vector.isVectorDirectionAxisParallel());
  const double front = vector.getGuidanceAngleProjectedInFrontViewPlane();
  const double top = vector.getGuidanceAngleProjectedInTopViewPlane();
  const double side = vector.getGuidanceAngleProjectedInSideViewPlane();
  EXPECT_DOUBLE_EQ(side, std::atan2(6, 2));
  vector.setVectorOriginPoint(AxisPoint(7, 8, 9));
  EXPECT_EQ(vector.getVectorOriginPoint().height, 9.0);
  vector.setVectorDirectionAsAxisParallel();
  expectOffsets(vector.getVectorDirection(), 0, 0, 0, 0);
  vector.setVectorDirectionFromProjectedAnglesFrontAndTopViewPlane(front, top, 7);
  expectOffsets(vector.getVectorDirection(), 2, -3, 6, 1e-12);
  vector.setVectorDirectionFromProjectedAnglesTopAndSideViewPlane(top, side, 14);
  expectOffsets(vector.getVectorDirection(), 4, -6, 12, 1e-12);
  vector.setVectorDirectionFromProjectedAnglesFrontAndSideViewPlane(front, side, 7);
  expectOffsets(vector.getVectorDirection(), 2, -3, 6, 1e-12);
  EXPECT_TRUE(vector.isVectorDirectionAxisParallel());  // angles do not change that
}

TEST(GuidanceVectorDefinition, MovesWhenCopied) {
  GuidanceVectorDefinition source;
  source.setVectorDirectionAsStraight(GuidanceOffsets(1, 2, 3));
  GuidanceVectorDefinition copy(source);
  EXPECT_TRUE(source.isVectorDirectionAxisParallel());  // empty
  GuidanceVectorDefinition target;
  target = copy;
  GuidanceVectorDefinition& same = target;
  target = same;
  expectOffsets(target.getVectorDirection(), 1, 2, 3, 0);
  target = source;  // empty from empty
  EXPECT_TRUE(target.isVectorDirectionAxisParallel());
  source.setVectorOriginPoint(AxisPoint(1, 1, 1));
  EXPECT_EQ(source.getVectorOriginPoint().offset, 1.0);
}

}  // namespace
