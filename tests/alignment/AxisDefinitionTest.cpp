// SPDX-License-Identifier: BSL-1.0
#include "testing/Axes.h"
#include "testing/Numbers.h"

#include <Calculations/AxisDefinition.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

using namespace Ruv;
using namespace Ruv::Calculations;
using namespace TestSupport;

const CHoralElement& segmentOf(const AxisPtr& axis, unsigned index) {
  return dynamic_cast<const CHoralElement&>(*axis->getHoralSegmentAt(index));
}

TEST(AxisDefinition, StoresSegmentsAsTheirEnds) {
  const AxisPtr axis = newAxis();
  EXPECT_TRUE(axis->isTypeHoralVeral());
  EXPECT_EQ(axis->getHoralSegmentAt(0), nullptr);
  EXPECT_TRUE(axis->addHoralSegmentStraight(100, 10, 20, kPi / 2, 50));
  EXPECT_TRUE(axis->addHoralSegmentArc(150, 60, 20, 0, 100, 50 * kPi));
  EXPECT_TRUE(axis->addHoralSegmentArc(400, 0, 0, 0, -100, 50 * kPi));
  EXPECT_TRUE(axis->addHoralSegmentClothoid(600, 0, 0, 0, 0, 400, 100));
  EXPECT_EQ(axis->getNumHoralSegments(), 4u);
  EXPECT_EQ(axis->getHoralSegmentAt(4), nullptr);
  EXPECT_EQ(axis->getHoralSegmentAt(std::numeric_limits<unsigned>::max()), nullptr);
  const Point2D end = referencePoint(0, 1 / 400.0, 100, 100);
  const struct {
    int typeId;
    double stationing, east, north, radiusStart, radiusEnd, parameter;
  } expected[] = {{2, 150, 60, 20, 0, 0, 0},
                  {3, 150 + 50 * kPi, 160, 120, 100, 100, 0},
                  {3, 400 + 50 * kPi, -100, 100, -100, -100, 0},
                  {4, 700, end.x, end.y, 0, 400, 200}};
  for (unsigned i = 0; i < 4; ++i) {
    SCOPED_TRACE(i);
    const CHoralElement& segment = segmentOf(axis, i);
    EXPECT_EQ(segment.getTypeId(), expected[i].typeId);
    EXPECT_DOUBLE_EQ(segment.getStationing(), expected[i].stationing);
    EXPECT_NEAR(segment.getEast(), expected[i].east, 1e-12);
    EXPECT_NEAR(segment.getNorth(), expected[i].north, 1e-12);
    EXPECT_EQ(segment.getRadiusStart(), expected[i].radiusStart);
    EXPECT_EQ(segment.getRadiusEnd(), expected[i].radiusEnd);
    EXPECT_DOUBLE_EQ(segment.getClothoidParameter(), expected[i].parameter);
  }
  const auto* start = segmentOf(axis, 0).getPrevious();
  EXPECT_EQ(start->getTypeId(), 1);
  EXPECT_EQ(start->getStationing(), 100.0);
  EXPECT_EQ(start->getPrevious(), nullptr);
  axis->resetHoral();
  EXPECT_EQ(axis->getNumHoralSegments(), 0u);
}

TEST(AxisDefinition, TellsTheParameterOfAClothoid) {
  const struct {
    double start, end, length, parameter;
  } cases[] = {{0, -400, 100, 200},
               {400, 0, 100, 200},
               {-600, -300, 100, std::sqrt(600.0 * 100 * 300 / 300)},
               {500, -500, 100, 0},
               {400, 400 + 1.1920928955078125e-7, 100, 0},
               {0, 0, 100, 0},
               {1.1920928955078125e-7, 400, 100, 200}};
  for (const auto& c : cases) {
    const AxisPtr axis = newAxis();
    axis->addHoralSegmentClothoid(0, 0, 0, 0, c.start, c.end, c.length);
    EXPECT_DOUBLE_EQ(segmentOf(axis, 0).getClothoidParameter(), c.parameter) << c.start;
  }
}

TEST(AxisDefinition, TellsHowSegmentsContinueEachOther) {
  const AxisPtr axis = newAxis();
  EXPECT_TRUE(axis->misclosures().empty());
  axis->addHoralSegmentStraight(0, 600000, 200000, kPi / 2, 100);
  axis->addHoralSegmentArc(100, 600103, 200004, kPi / 2 - 2e-6, 50, 25 * kPi);  // 3 and 4 m off
  const CHoralElement& end = segmentOf(axis, 1);
  axis->addHoralSegmentClothoid(300, end.getEast(), end.getNorth(), 1.3 - 6 * kPi, 50, 0, 40);
  axis->addHoralSegmentArc(340, 0, 0, -kPi, 0.0, 10);  // has no geometry
  axis->addHoralSegmentStraight(350, 0, 0.5, 1 - kPi, 10);
  const std::vector<Misclosure> found = axis->misclosures();
  const double clothoidTurning = 0.4;
  const double expected[][2] = {{0, 0},
                                {5, -2e-6},
                                {0, 1.3 - kPi + 2e-6},
                                {found[3].distance, kPi - 1.3 - clothoidTurning},
                                {0.5, 1}};
  ASSERT_EQ(found.size(), 5u);
  EXPECT_GT(found[3].distance, 6e5);
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_NEAR(found[i].distance, expected[i][0], 1e-9) << i;
    EXPECT_NEAR(found[i].directionBreak, expected[i][1], 1e-12) << i;
  }
  // The element before counts as it is now, and the first segment need not be the first one added.
  dynamic_cast<CHoralElement*>(axis->getHoralSegmentAt(0))->setEast(600103);
  EXPECT_NEAR(axis->misclosures()[1].distance, 4.0, 1e-9);
  axis->resetHoral();
  axis->addHoralSegmentStraight(10, 0, 30, 0, 10);
  axis->addHoralSegmentStraight(0, 0, 20, 0, 10);
  EXPECT_EQ(axis->misclosures()[0].distance, 10.0);
  EXPECT_TRUE(
      AxisPtr(AxisDefinitionFactory::createShaftAxis(0, 0, 0, 9, 0))->misclosures().empty());
}

TEST(AxisDefinition, StoresSegmentsWithoutGeometryAtTheirStart) {
  const AxisPtr axis = newAxis();
  EXPECT_TRUE(axis->addHoralSegmentArc(0, 7, 8, 1, 0.0, 10));
  EXPECT_TRUE(axis->addHoralSegmentArc(10, 7, 8, 1, 10, 100));
  EXPECT_TRUE(axis->addHoralSegmentClothoid(110, 7, 8, 1, std::nan(""), 10, 5));
  for (unsigned i = 0; i < 3; ++i) {
    EXPECT_EQ(segmentOf(axis, i).getEast(), 7.0);
    EXPECT_EQ(segmentOf(axis, i).getNorth(), 8.0);
  }
}

TEST(AxisDefinition, TakesElementsInAnyOrder) {
  const AxisPtr axis = newAxis();
  axis->addVeralPointKink(50, 5);
  axis->addVeralPointParabola(0, 0, 700);
  axis->addVeralPointArc(20, 1, 900);
  ASSERT_EQ(axis->getNumVeralPoints(), 3u);
  const std::pair<int, double> expected[] = {{10, 700}, {9, 900}, {8, 0}};  // type and rounding
  for (unsigned i = 0; i < 3; ++i) {
    const auto& point = dynamic_cast<const CVeralElement&>(*axis->getVeralPointAt(i));
    EXPECT_EQ(std::pair(point.getTypeId(), point.getRoundingValue()), expected[i]);
  }
  EXPECT_EQ(axis->getVeralPointAt(3), nullptr);
  EXPECT_FALSE(axis->isShaftAxisTopDown());
  axis->addHoralSegmentStraight(0, 0, 0, 0, 10);
  axis->addHoralSegmentStraight(30, 0, 30, 0, 10);
  axis->addHoralSegmentStraight(10, 0, 10, 0, 20);
  EXPECT_EQ(axis->getHoralSegmentAt(1)->getStationing(), 30.0);
  EXPECT_EQ(axis->minimumStng2d(), 0.0);
  EXPECT_EQ(axis->maximumStng2d(), 40.0);
}

TEST(AxisDefinition, AShaftHoldsOnePointAndTwoHeights) {
  const AxisPtr down(AxisDefinitionFactory::createShaftAxis(1000, 2000, 500, 460, 0));
  EXPECT_TRUE(down->isShaftAxis());
  EXPECT_FALSE(down->isTypeHoralVeral());
  EXPECT_TRUE(down->isShaftAxisTopDown());
  EXPECT_EQ(down->maximumStng2d(), 40.0);
  EXPECT_FALSE(down->addHoralSegmentStraight(0, 0, 0, 0, 10));
  EXPECT_FALSE(down->addHoralSegmentArc(0, 0, 0, 0, 10, 10));
  EXPECT_FALSE(down->addHoralSegmentClothoid(0, 0, 0, 0, 0, 10, 10));
  EXPECT_FALSE(down->addVeralPointKink(50, 450));
  EXPECT_FALSE(down->addVeralPointArc(50, 450, 100));
  EXPECT_FALSE(down->addVeralPointParabola(50, 450, 100));
  EXPECT_FALSE(down->addTransSlopeSegmentConstant(0, 10, 2));
  EXPECT_FALSE(down->addTransSlopeSegmentLinear(0, 10, 2, 3));
  EXPECT_EQ(down->getNumHoralSegments() + down->getNumVeralPoints(), 0u);
  EXPECT_EQ(down->getVeralPointAt(0), nullptr);
  EXPECT_TRUE(down->getVeralPolyline(1.0).points().empty());
  down->resetHoral();
  for (const bool isFirst : {true, false}) {
    EXPECT_EQ(down->addHoralSegmentStraight(0, 7, 8, 0, 10), isFirst);
  }

  const AxisPtr up(AxisDefinitionFactory::createShaftAxis(1000, 2000, 460, 500, 7));
  EXPECT_FALSE(up->isShaftAxisTopDown());
  EXPECT_EQ(up->maximumStng2d(), 47.0);
  const AxisPtr flat(AxisDefinitionFactory::createShaftAxis(0, 0, 5, 5, 0));
  EXPECT_TRUE(flat->isShaftAxisTopDown());
}

}  // namespace
