#include "support/Axes.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisDefinition.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace {

using namespace Ruv;
using namespace Ruv::Calculations;
using TestSupport::AxisPtr;
using TestSupport::newAxis;

constexpr double kPi = 3.141592653589793;

const CHoralElement& segmentOf(const AxisPtr& axis, unsigned index) {
  return dynamic_cast<const CHoralElement&>(*axis->getHoralSegmentAt(index));
}

TEST(AxisDefinition, StoresSegmentsAsTheirEnds) {
  const AxisPtr axis = newAxis();
  EXPECT_EQ(axis->getNumHoralSegments(), 0u);
  EXPECT_EQ(axis->getHoralSegmentAt(0), nullptr);
  EXPECT_TRUE(axis->addHoralSegmentStraight(100, 10, 20, kPi / 2, 50));
  EXPECT_EQ(axis->getNumHoralSegments(), 1u);
  EXPECT_TRUE(axis->addHoralSegmentArc(150, 60, 20, 0, 100, 50 * kPi));
  EXPECT_TRUE(axis->addHoralSegmentArc(400, 0, 0, 0, -100, 50 * kPi));
  EXPECT_TRUE(axis->addHoralSegmentClothoid(600, 0, 0, 0, 0, 400, 100));
  EXPECT_EQ(axis->getNumHoralSegments(), 4u);
  EXPECT_EQ(axis->getHoralSegmentAt(4), nullptr);
  EXPECT_EQ(axis->getHoralSegmentAt(std::numeric_limits<unsigned>::max()), nullptr);

  const CHoralElement& straight = segmentOf(axis, 0);
  EXPECT_EQ(straight.getTypeId(), 2);
  EXPECT_EQ(straight.getStationing(), 150.0);
  EXPECT_NEAR(straight.getEast(), 60.0, 1e-13);
  EXPECT_NEAR(straight.getNorth(), 20.0, 1e-13);
  EXPECT_EQ(straight.getPrevious()->getTypeId(), 1);
  EXPECT_EQ(straight.getPrevious()->getStationing(), 100.0);
  EXPECT_EQ(straight.getPrevious()->getPrevious(), nullptr);
  const CHoralElement& right = segmentOf(axis, 1);
  EXPECT_EQ(right.getTypeId(), 3);
  EXPECT_NEAR(right.getEast(), 160.0, 1e-12);
  EXPECT_NEAR(right.getNorth(), 120.0, 1e-12);
  EXPECT_EQ(right.getRadiusStart(), 100.0);
  EXPECT_EQ(right.getRadiusEnd(), 100.0);
  EXPECT_EQ(right.getClothoidParameter(), 0.0);
  EXPECT_NEAR(segmentOf(axis, 2).getEast(), -100.0, 1e-12);
  EXPECT_NEAR(segmentOf(axis, 2).getNorth(), 100.0, 1e-12);
  const CHoralElement& clothoid = segmentOf(axis, 3);
  EXPECT_EQ(clothoid.getTypeId(), 4);
  EXPECT_DOUBLE_EQ(clothoid.getClothoidParameter(), 200.0);
  EXPECT_EQ(clothoid.getRadiusStart(), 0.0);
  EXPECT_EQ(clothoid.getRadiusEnd(), 400.0);
  axis->resetHoral();
  EXPECT_EQ(axis->getNumHoralSegments(), 0u);
  EXPECT_TRUE(axis->isTypeHoralVeral());
}

TEST(AxisDefinition, TellsTheParameterOfAClothoid) {
  const struct {
    double start, end, length, parameter;
  } cases[] = {{0, -400, 100, 200},
               {400, 0, 100, 200},
               {300, 600, 100, std::sqrt(600.0 * 100 * 300 / 300)},
               {-600, -300, 100, std::sqrt(600.0 * 100 * 300 / 300)},
               {500, -500, 100, 0},
               {0, 0, 100, 0},
               {1.1920928955078125e-7, 400, 100, 200}};
  for (const auto& c : cases) {
    const AxisPtr axis = newAxis();
    axis->addHoralSegmentClothoid(0, 0, 0, 0, c.start, c.end, c.length);
    EXPECT_DOUBLE_EQ(segmentOf(axis, 0).getClothoidParameter(), c.parameter) << c.start;
  }
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
  EXPECT_EQ(segmentOf(axis, 1).getStationing(), 110.0);
}

TEST(AxisDefinition, TakesElementsInAnyOrder) {
  const AxisPtr axis = newAxis();
  axis->addVeralPointKink(50, 5);
  axis->addVeralPointParabola(0, 0, 700);
  axis->addVeralPointArc(20, 1, 900);
  ASSERT_EQ(axis->getNumVeralPoints(), 3u);
  const int types[] = {10, 9, 8};
  const double values[] = {700, 900, 0};
  for (unsigned i = 0; i < 3; ++i) {
    const auto& point = dynamic_cast<const CVeralElement&>(*axis->getVeralPointAt(i));
    EXPECT_EQ(point.getTypeId(), types[i]);
    EXPECT_EQ(point.getRoundingValue(), values[i]);
  }
  EXPECT_EQ(axis->getVeralPointAt(3), nullptr);
  axis->addHoralSegmentStraight(0, 0, 0, 0, 10);
  axis->addHoralSegmentStraight(30, 0, 30, 0, 10);
  axis->addHoralSegmentStraight(10, 0, 10, 0, 20);
  EXPECT_EQ(axis->getHoralSegmentAt(1)->getStationing(), 30.0);
  EXPECT_EQ(axis->minimumStng2d(), 0.0);
  EXPECT_EQ(axis->maximumStng2d(), 40.0);
  axis->resetVeral();
  EXPECT_EQ(axis->maximumStng2d(), 0.0);
}

TEST(AxisDefinition, AShaftHoldsOnePointAndTwoHeights) {
  const AxisPtr down(AxisDefinitionFactory::createShaftAxis(1000, 2000, 500, 460, 0));
  EXPECT_TRUE(down->isShaftAxis());
  EXPECT_FALSE(down->isTypeHoralVeral());
  EXPECT_TRUE(down->isShaftAxisTopDown());
  EXPECT_EQ(down->minimumStng2d(), 0.0);
  EXPECT_EQ(down->maximumStng2d(), 40.0);
  EXPECT_FALSE(down->addHoralSegmentStraight(0, 0, 0, 0, 10));
  EXPECT_FALSE(down->addHoralSegmentArc(0, 0, 0, 0, 10, 10));
  EXPECT_FALSE(down->addHoralSegmentClothoid(0, 0, 0, 0, 0, 10, 10));
  EXPECT_FALSE(down->addVeralPointKink(50, 450));
  EXPECT_FALSE(down->addVeralPointArc(50, 450, 100));
  EXPECT_FALSE(down->addVeralPointParabola(50, 450, 100));
  EXPECT_FALSE(down->addTransSlopeSegmentConstant(0, 10, 2));
  EXPECT_FALSE(down->addTransSlopeSegmentLinear(0, 10, 2, 3));
  EXPECT_EQ(down->getNumHoralSegments(), 0u);
  EXPECT_EQ(down->getNumVeralPoints(), 0u);
  EXPECT_EQ(down->getVeralPointAt(0), nullptr);
  EXPECT_TRUE(down->getVeralPolyline(1.0).points().empty());

  const AxisPtr up(AxisDefinitionFactory::createShaftAxis(1000, 2000, 460, 500, 7));
  EXPECT_FALSE(up->isShaftAxisTopDown());
  EXPECT_EQ(up->maximumStng2d(), 47.0);
  const AxisPtr flat(AxisDefinitionFactory::createShaftAxis(0, 0, 5, 5, 0));
  EXPECT_TRUE(flat->isShaftAxisTopDown());
  // A shaft may lose its elements and get others.
  up->resetVeral();
  EXPECT_EQ(up->maximumStng2d(), 0.0);
  EXPECT_FALSE(up->isShaftAxisTopDown());
  EXPECT_TRUE(up->addVeralPointKink(0, 10));
  EXPECT_TRUE(up->addVeralPointKink(5, 5));
  up->resetHoral();
  EXPECT_EQ(up->maximumStng2d(), 5.0);
  EXPECT_TRUE(up->addHoralSegmentStraight(0, 3, 4, 0, 10));
  EXPECT_EQ(up->maximumStng2d(), 5.0);
}

TEST(AxisDefinition, SamplesSegments) {
  const AxisPtr axis = newAxis();
  TestSupport::ChainBuilder chain(axis, 100.0, 600000.0, 200000.0, 0.4);
  chain.straight(30).arc(200, 25).clothoid(200, 0, 40);
  EXPECT_EQ(axis->getHoralSegmentPolylineAt(0, 1.0).points().size(), 2u);
  const std::vector<Point2D> arc = axis->getHoralSegmentPolylineAt(1, 10.0).points();
  ASSERT_EQ(arc.size(), 4u);  // 0, 10, 20 and the end
  EXPECT_NEAR((arc[0] - axis->getHoralSegmentPolylineAt(0, 1.0).points()[1]).length(), 0.0, 1e-9);
  EXPECT_NEAR((arc[2] - arc[1]).length(), 400 * std::sin(10 / 400.0), 1e-9);
  EXPECT_NEAR((arc[3] - arc[2]).length(), 400 * std::sin(5 / 400.0), 1e-9);
  EXPECT_EQ(axis->getHoralSegmentPolylineAt(2, 0.01).points().size(), 401u);  // as 0.1
  EXPECT_EQ(axis->getHoralSegmentPolylineAt(2, 1000).points().size(), 2u);
  EXPECT_EQ(axis->getHoralSegmentPolylineAt(2, std::nan("")).points().size(), 2u);
  EXPECT_TRUE(axis->getHoralSegmentPolylineAt(3, 1.0).points().empty());
  chain.arc(200, 0).arc(200, 250);
  EXPECT_EQ(axis->getHoralSegmentPolylineAt(3, 1.0).points().size(), 1u);
  EXPECT_EQ(axis->getHoralSegmentPolylineAt(4, 1000).points().size(), 4u);  // as 100
}

TEST(AxisDefinition, SamplesTheVerticalAlignment) {
  const AxisPtr axis = newAxis();
  axis->addVeralPointKink(0, 100);
  axis->addVeralPointParabola(100, 100, 1000);  // from 90 to 110
  axis->addVeralPointKink(200, 102);
  axis->addVeralPointArc(300, 104, 1000);  // the grades are equal: no rounding
  axis->addVeralPointKink(400, 106);
  EXPECT_EQ(axis->getVeralPointPolylineAt(0, 1).points().size(), 1u);
  const std::vector<Point2D> rounding = axis->getVeralPointPolylineAt(1, 6).points();
  ASSERT_EQ(rounding.size(), 5u);
  EXPECT_DOUBLE_EQ(rounding[1].x, 96.0);
  EXPECT_DOUBLE_EQ(rounding[1].y, 100.0 + 36.0 / 2000);
  EXPECT_DOUBLE_EQ(rounding[4].x, 110.0);
  EXPECT_DOUBLE_EQ(rounding[4].y, 100.2);
  EXPECT_EQ(axis->getVeralPointPolylineAt(3, 1).points().size(), 1u);
  EXPECT_TRUE(axis->getVeralPointPolylineAt(5, 1).points().empty());
  EXPECT_EQ(axis->getVeralPolyline(6).points().size(), 9u);
  axis->addVeralPointKink(400, 106);
  EXPECT_EQ(axis->getVeralPolyline(6).points().size(), 9u);  // without the repeat
}

TEST(AxisDefinition, SamplesOverlappingRoundingsWithoutRunningBack) {
  // The roundings reach from -70 to 130 and from 20 to 220, the axis from 0 to 150.
  const AxisPtr axis = newAxis();
  TestSupport::ChainBuilder(axis, 0, 0, 0, 0).straight(150);
  axis->addVeralPointKink(0, 0);
  axis->addVeralPointParabola(30, 0, 2500);
  axis->addVeralPointParabola(120, 7.2, 2500);
  axis->addVeralPointKink(150, 7.2);
  const AxisCalculator calculator(axis);
  const std::vector<Point2D> line = axis->getVeralPolyline(12).points();
  ASSERT_GT(line.size(), 10u);
  for (std::size_t i = 1; i + 1 < line.size(); ++i) {
    EXPECT_GT(line[i].x, line[i - 1].x);
    ENHPoint point;
    ASSERT_TRUE(calculator.axisPointToEnhPointVertical(AxisPoint(line[i].x, 0, 0), point));
    EXPECT_DOUBLE_EQ(line[i].y, point.height) << line[i].x;
  }
  EXPECT_EQ(line.back().x, 150.0);
}

}  // namespace
