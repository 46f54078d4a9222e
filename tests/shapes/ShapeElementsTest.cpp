// SPDX-License-Identifier: BSL-1.0
#include <Calculations/ShapeElements.h>

#include "alignment/AxisDefinitionImpl.h"
#include "testing/Axes.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

using namespace Ruv;
using namespace Ruv::Calculations;
using namespace TestSupport;

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

TEST(ShapeElements, KeepWhatIsSet) {
  CHoralElement horal;
  horal.setSecondEast(1);
  horal.setSecondNorth(2);
  horal.setRadiusStart(3);
  horal.setRadiusEnd(4);
  horal.setClothoidParameter(5);
  horal.setEast(6);
  horal.setNorth(7);
  const std::vector<double> kept = {horal.getSecondEast(),  horal.getSecondNorth(),
                                    horal.getRadiusStart(), horal.getRadiusEnd(),
                                    horal.getEast(),        horal.getNorth()};
  EXPECT_EQ(kept, std::vector<double>({1, 2, 3, 4, 6, 7}));
  EXPECT_EQ(horal.getClothoidParameter(), 5.0);
}

TEST(ShapeElements, TellTheAxisOfEveryChange) {
  using Change = std::function<void(CHoralElement&, CVeralElement&, CTransSlopeElement&)>;
  const std::vector<Change> changes = {
      [](auto& horal, auto&, auto&) { horal.setEast(21); },
      [](auto& horal, auto&, auto&) { horal.setNorth(41); },
      [](auto& horal, auto&, auto&) { horal.setRadiusStart(90); },
      [](auto& horal, auto&, auto&) { horal.setRadiusEnd(60); },
      [](auto& horal, auto&, auto&) { horal.setTypeId(CShapeType::Straight); },
      [](auto& horal, auto&, auto&) { horal.setPrevious(nullptr); },
      [](auto&, auto& veral, auto&) { veral.setHeight(4); },
      [](auto&, auto& veral, auto&) { veral.setRoundingValue(50); },
      [](auto&, auto& veral, auto&) { veral.setStationing(21); },
      [](auto&, auto&, auto& slope) { slope.setSlope(7); },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const AxisPtr axis = newAxis();
    axis->addHoralSegmentClothoid(0, 0, 0, 0.2, 100, 70, 50);
    axis->addVeralPointKink(0, 0);
    axis->addVeralPointArc(20, 3, 100);
    axis->addVeralPointKink(50, 0);
    axis->addTransSlopeSegmentLinear(0, 50, 1, 2);
    const AxisCalculator calculator(axis);
    const AxisPoint place(18, 1, 2);
    ENHPoint before;
    ENHPoint after;
    ASSERT_TRUE(calculator.axisPointToEnhPoint(place, before, false, true));
    const CShapeContainer& container = axis->getImpl()->container;
    changes[i](*container.horalAt(1), *container.veralAt(1), *container.transSlopeAt(1));
    const bool isThere = calculator.axisPointToEnhPoint(place, after, false, true);
    EXPECT_TRUE(!isThere || (after - before).length() > 1e-3) << i;
  }
}

}  // namespace
