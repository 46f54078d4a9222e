// SPDX-License-Identifier: BSL-1.0
#include <Calculations/ShapeElements.h>

#include <gtest/gtest.h>

namespace {

using namespace Ruv;

TEST(ShapeElements, ComparePositionsAndTellTheirClass) {
  CHoralElement horal;
  CVeralElement veral;
  CTransSlopeElement slope;
  EXPECT_EQ(CShapeBase().classSize(), 20);
  EXPECT_EQ(horal.classSize(), 52);
  EXPECT_EQ(veral.classSize(), 36);
  EXPECT_EQ(slope.classSize(), 28);
  veral.setStationing(1.0);
  EXPECT_TRUE(horal.isLess(&veral));
  EXPECT_FALSE(horal.isGreater(&veral));
  EXPECT_FALSE(horal.isLess(&slope));
  EXPECT_TRUE(veral.isGreater(&slope));
  EXPECT_TRUE(veral.isLess(nullptr));
  EXPECT_TRUE(veral.isGreater(nullptr));
  EXPECT_TRUE(slope.extensionHook1() && slope.extensionHook2() && slope.extensionHook3());
  EXPECT_TRUE(slope.extensionHook4() && slope.extensionHook5() && slope.extensionHook6());
  EXPECT_TRUE(slope.extensionHook7() && slope.extensionHook8());
}

}  // namespace
