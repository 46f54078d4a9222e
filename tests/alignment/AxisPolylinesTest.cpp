// SPDX-License-Identifier: BSL-1.0
#include "testing/Axes.h"
#include "testing/Expectations.h"

#include <Calculations/AxisDefinition.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(AxisPolylines, SamplesSegments) {
  const AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 100.0, 600000.0, 200000.0, 0.4);
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

TEST(AxisPolylines, SamplesTheVerticalAlignment) {
  const AxisPtr axis = newAxis();
  axis->addVeralPointKink(0, 100);
  axis->addVeralPointParabola(100, 100, 1000);  // from 90 to 110
  axis->addVeralPointKink(200, 102);
  axis->addVeralPointArc(300, 104, 1000);  // the grades are equal: no rounding
  axis->addVeralPointKink(400, 106);
  EXPECT_EQ(axis->getVeralPointPolylineAt(0, 1).points().size(), 1u);
  const std::vector<Point2D> rounding = axis->getVeralPointPolylineAt(1, 6).points();
  ASSERT_EQ(rounding.size(), 5u);
  EXPECT_LT((rounding[1] - Point2D(96.0, 100.0 + 36.0 / 2000)).length(), 1e-12);
  EXPECT_LT((rounding[4] - Point2D(110.0, 100.2)).length(), 1e-12);
  EXPECT_EQ(axis->getVeralPointPolylineAt(3, 1).points().size(), 1u);
  EXPECT_TRUE(axis->getVeralPointPolylineAt(5, 1).points().empty());
  EXPECT_EQ(axis->getVeralPolyline(6).points().size(), 9u);
  axis->addVeralPointKink(400, 106);
  EXPECT_EQ(axis->getVeralPolyline(6).points().size(), 9u);  // without the repeat
}

TEST(AxisPolylines, SamplesOverlappingRoundingsWithoutRunningBack) {
  // The roundings reach from -70 to 130 and from 20 to 220, the axis from 0 to 150.
  const AxisPtr axis = newAxis();
  ChainBuilder(axis, 0, 0, 0, 0).straight(150);
  axis->addVeralPointKink(0, 0);
  axis->addVeralPointParabola(30, 0, 2500);
  axis->addVeralPointParabola(120, 7.2, 2500);
  axis->addVeralPointKink(150, 7.2);
  const AxisCalculator calculator(axis);
  const std::vector<Point2D> line = axis->getVeralPolyline(12).points();
  ASSERT_GT(line.size(), 10u);
  for (std::size_t i = 1; i + 1 < line.size(); ++i) {
    EXPECT_GT(line[i].x, line[i - 1].x);
    EXPECT_DOUBLE_EQ(line[i].y, gridPoint(calculator, AxisPoint(line[i].x, 0, 0)).height);
  }
  EXPECT_EQ(line.back().x, 150.0);
}

}  // namespace
