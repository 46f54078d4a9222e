// SPDX-License-Identifier: BSL-1.0
// Values that no caller should hand over: nothing may hang, crash or leave a cast undefined.

#include "testing/Axes.h"
#include "testing/Numbers.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisMapper.h>
#include <Calculations/BlockAxisDefinition.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

const double kBadValues[] = {std::nan(""), kInfinity, -kInfinity, 1e300,  -1e300, 0.0,
                             -0.0,         -1.0,      1e-300,     5e-324, 1e-8,   1e17};

/// Calls everything that an axis and its calculators offer.
void useEverything(const AxisPtr& axis) {
  const AxisCalculator calculator(axis);
  ENHPoint point;
  AxisPoint place;
  double a = 0, b = 0, c = 0, d = 0, e = 0, f = 0;
  EXPECT_EQ(axis->misclosures().size(), axis->getNumHoralSegments());
  for (const double value : kBadValues) {
    for (int flags = 0; flags < 4; ++flags) {
      const bool inSpace = (flags & 1) != 0;
      const bool withSlope = (flags & 2) != 0;
      calculator.axisPointToEnhPoint(AxisPoint(value, 1, 1), point, inSpace, withSlope);
      calculator.axisPointToEnhPoint(AxisPoint(5, value, value), point, inSpace, withSlope);
      calculator.enhPointToAxisPoint(ENHPoint(value, 5, 5), place, inSpace, withSlope);
      calculator.enhPointToAxisPoint(ENHPoint(5, value, value), place, inSpace, withSlope);
      calculator.enhPointToAxisPoint(ENHPoint(1, 5, value), place, inSpace, withSlope);
    }
    calculator.stationingToTunnelmeter(value, a);
    calculator.tunnelmeterToStationing(value, a);
    calculator.axisPropertiesAtStationing(value, a, b, c, d, e, f);
    calculator.tangentAtStationingPerpendicular(value, point);
    for (const double step : {value, 1.0}) {
      for (unsigned i = 0; i < 3; ++i) {
        EXPECT_LT(axis->getHoralSegmentPolylineAt(i, step).points().size(), 11000000u);
        EXPECT_LT(axis->getVeralPointPolylineAt(i, step).points().size(), 11000000u);
      }
      EXPECT_LT(axis->getVeralPolyline(step).points().size(), 33000000u);
    }
    const boost::shared_ptr<const BlockAxisDefinition> block(
        new BlockAxisDefinition(axis, value, 7));
    a = block->blockLength2d() + block->blockLength3d() + block->blockEndStng3d();
    AxisMapper(axis, block).mapStationing(value, true, true);
    AxisMapper(block, axis).canMap(value, false);
  }
}

TEST(BadInput, InAxes) {
  for (const double bad : kBadValues) {
    for (int slot = 0; slot < 9; ++slot) {
      SCOPED_TRACE(testing::Message() << bad << " in slot " << slot);
      // Stationing, east, north, azimuth, radius, length; stationing, height, rounding.
      double v[] = {0, 0, 0, 0.3, 200, 20, 10, 1, 500};
      v[slot] = bad;
      const AxisPtr axis = newAxis();
      EXPECT_TRUE(axis->addHoralSegmentArc(v[0], v[1], v[2], v[3], v[4], v[5]));
      EXPECT_TRUE(axis->addHoralSegmentClothoid(20, 5, 20, 0.3, v[4], 300, v[5]));
      EXPECT_TRUE(axis->addHoralSegmentClothoid(40, 5, 40, v[3], 300, v[4], 20));
      EXPECT_TRUE(axis->addHoralSegmentStraight(v[0], 9, 60, v[3], v[5]));
      EXPECT_TRUE(axis->addVeralPointKink(-100, 0));
      EXPECT_TRUE(axis->addVeralPointParabola(v[6], v[7], v[8]));
      EXPECT_TRUE(axis->addVeralPointArc(30, 2, v[8]));
      EXPECT_TRUE(axis->addVeralPointKink(100, v[7]));
      EXPECT_TRUE(axis->addTransSlopeSegmentLinear(v[6], 20, v[7], v[8]));
      axis->setStationingMappingValues(v[0], v[1]);
      useEverything(axis);
    }
    useEverything(AxisPtr(AxisDefinitionFactory::createShaftAxis(1, 5, bad, 10, 0)));
    useEverything(AxisPtr(AxisDefinitionFactory::createShaftAxis(bad, bad, 0, 10, bad)));
  }
}

}  // namespace
