// SPDX-License-Identifier: BSL-1.0
#include "Digest.h"
#include "testing/Axes.h"

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisMapper.h>
#include <Calculations/GuidanceCalculator.h>

#include <cmath>

namespace Digest {

using namespace Ruv::Calculations;
using TestSupport::AxisPtr;
using TestSupport::Random;

namespace {

/// Calculators are used with both planes, with and without transverse slope.
constexpr int kWays = 4;

ENHPoint measured(const ENHPoint& p) {
  return {rounded(p.east), rounded(p.north), rounded(p.height)};
}

AxisPoint randomPoint(const AxisDefinition& axis, Random& random) {
  return {random.uniform(axis.minimumStng2d(), axis.maximumStng2d()), random.uniform(-12.0, 12.0),
          random.uniform(-6.0, 6.0)};
}

void conversions(const AxisCalculator& calculator, const AxisPoint& place, int way) {
  const bool perpendicular = (way & 1) != 0;
  const bool withTransSlope = (way & 2) != 0;
  ENHPoint grid;
  const bool there = calculator.axisPointToEnhPoint(place, grid, perpendicular, withTransSlope);
  record("axis-to-grid", largest(grid), {double(there), grid.east, grid.north, grid.height});

  AxisPoint found;
  const ENHPoint point = measured(grid);
  const bool back = calculator.enhPointToAxisPoint(point, found, perpendicular, withTransSlope);
  record("grid-to-axis", largest(grid),
         {double(back), found.stationing, found.offset, found.height});
}

void directions(const AxisCalculator& calculator, double stationing) {
  double azimuth = 0;
  double radius = 0;
  double slope = 0;
  double percent = 0;
  double transSlope = 0;
  double transPercent = 0;
  const bool ok = calculator.axisPropertiesAtStationing(stationing, azimuth, radius, slope, percent,
                                                        transSlope, transPercent);
  record("axis-radius", std::abs(radius) + 1.0, {double(ok), radius});
  record("axis-direction", 1.0, {azimuth, slope, percent, transSlope, transPercent});
  ENHPoint plan;
  ENHPoint space;
  calculator.tangentAtStationingVertical(stationing, plan);
  calculator.tangentAtStationingPerpendicular(stationing, space);
  record("axis-tangents", 1.0, {plan.east, plan.north, space.east, space.north, space.height});
}

void tunnelMeters(const AxisCalculator& calculator, double stationing) {
  double meter = 0;
  double back = 0;
  calculator.stationingToTunnelmeter(stationing, meter);
  calculator.tunnelmeterToStationing(rounded(meter), back);
  record("tunnel-meter", std::abs(stationing) + 1.0, {meter, back});
}

void blocks(const AxisPtr& axis, const AxisPoint& place) {
  const boost::shared_ptr<const BlockAxisDefinition> block(
      new BlockAxisDefinition(axis, place.stationing, place.stationing + 6.0));
  const AxisPoint inBlock(place.stationing + 1.0, place.offset, place.height);
  ENHPoint grid;
  AxisCalculator(block).axisPointToEnhPointPerpendicular(inBlock, grid);
  record("block-axis", largest(grid),
         {block->blockLength2d(), block->blockLength3d(), block->blockStartStng3d(), grid.east,
          grid.north, grid.height});
  const AxisMapper mapper(block, axis);
  record("axis-mapping", std::abs(place.stationing) + 1.0,
         {mapper.mapStationing(place.stationing + 2.0, false, false),
          mapper.mapStationing(place.stationing + 3.0, false, true)});
}

void guidance(const AxisPtr& axis, const AxisPoint& place, bool perpendicular) {
  ENHPoint point;
  AxisCalculator(axis).axisPointToEnhPointVertical(place, point);
  point = measured(point + ENHPoint(1.5, 0.5, -0.3));
  const GuidanceOffsets direction(0.8, place.offset / 20.0, 0.2);
  for (GuidanceVectorDefinition* vector :
       {GuidanceVectorFactory::createAsAxisParallelFromAxisCoordinate(place),
        GuidanceVectorFactory::createAsStraightFromAxisCoordinateAndVectorComponents(place,
                                                                                     direction)}) {
    const GuidanceCalculator calculator(boost::shared_ptr<const GuidanceVectorDefinition>(vector),
                                        axis, perpendicular);
    const GuidanceOffsets offsets = calculator.calculateOffsets(point);
    const ENHPoint ahead = calculator.absolutePointAtForwardValue(2.0);
    record("guidance", largest(point),
           {offsets.forward, offsets.horizontal, offsets.vertical, ahead.east, ahead.north,
            ahead.height});
  }
}

void onAxis(const AxisPtr& axis, Random& random) {
  constexpr int kPlaces = 40;
  const AxisCalculator calculator(axis);
  for (int i = 0; i < kPlaces; ++i) {
    const AxisPoint place = randomPoint(*axis, random);
    conversions(calculator, place, i % kWays);
    directions(calculator, place.stationing);
    tunnelMeters(calculator, place.stationing);
    guidance(axis, place, i % 2 == 0);
    blocks(axis, place);
  }
  for (unsigned i = 0; i < axis->getNumHoralSegments() && i < 8; ++i) {
    record("axis-polylines", axis->getHoralSegmentPolylineAt(i, 5.0).points());
  }
}

}  // namespace

void axes() {
  Random random(20080601);
  for (const char* name : {"metro_th_3122m", "rail_ch_2500m", "rail_ch_a50068a", "rail_fr_v1",
                           "rail_it_1030m", "road_au_12d_6", "road_au_12d_8",
                           "road_de_roundabout_30m", "tram_fr_san1_com", "tram_fr_san1_xd_b02"}) {
    onAxis(TestSupport::goldenAxis(name), random);
  }
  onAxis(AxisPtr(AxisDefinitionFactory::createShaftAxis(1000, 2000, 500, 400, 100)), random);
}

namespace {

/// Points that have one foot, several or none.
void farFeet(const AxisCalculator& calculator, const AxisDefinition& axis, Random& random) {
  for (int i = 0; i < 60; ++i) {
    ENHPoint grid;
    calculator.axisPointToEnhPoint(randomPoint(axis, random), grid, false, false);
    const double reach = i % 4 == 0 ? 0.01 : 90.0;
    const ENHPoint aside{random.uniform(-reach, reach), random.uniform(-reach, reach),
                         random.uniform(-20.0, 20.0)};
    AxisPoint found;
    const ENHPoint point = measured(grid + aside);
    const bool ok = calculator.enhPointToAxisPoint(point, found, i % 2 == 0, false);
    record("far-feet", largest(grid), {double(ok), found.stationing, found.offset, found.height});
  }
}

}  // namespace

void enteredAxes() {
  Random random(20080602);
  for (int i = 0; i < 24; ++i) {
    const AxisPtr axis = TestSupport::newAxis();
    TestSupport::ChainBuilder plan(axis, 100.0, 600000.0, 200000.0, random.uniform(0.0, 6.0));
    plan.printedTo(i % 3 == 0 ? 0.02 : 0.003, random);
    double radius = random.uniform(40.0, 400.0);
    radius *= random.sign();
    const double other = -radius * random.uniform(0.5, 2.0);
    plan.straight(random.uniform(5.0, 50.0)).clothoid(0.0, radius, random.uniform(10.0, 60.0));
    plan.arc(radius, random.uniform(0.5, 1.5) * std::abs(radius));
    plan.clothoid(radius, other, random.uniform(10.0, 60.0));
    plan.turn(i % 3 == 0 ? random.uniform(-0.3, 0.3) : 0.0).straight(random.uniform(5.0, 50.0));
    double height = 400.0;
    double stationing = 90.0;
    axis->addVeralPointKink(stationing, height);
    for (const double length : {60.0, 90.0, 140.0, 400.0}) {
      stationing += length;
      height += random.uniform(-0.2, 0.2) * length;
      const double rounding = random.uniform(50.0, 300.0);
      if (random.index(2) == 0) {
        axis->addVeralPointArc(stationing, height, rounding);
      } else {
        axis->addVeralPointParabola(stationing, height, rounding);
      }
    }
    axis->addVeralPointKink(3000.0, height);
    axis->addTransSlopeSegmentLinear(100.0, 150.0, random.uniform(-5.0, 5.0), 2.5);
    axis->addTransSlopeSegmentConstant(150.0, 3000.0, 2.5);
    const double mapped = random.uniform(-50.0, 200.0);
    axis->setStationingMappingValues(mapped, random.uniform(-100.0, 1000.0));
    for (const Misclosure& gap : axis->misclosures()) {
      record("misclosures", 600000.0, {gap.distance, gap.directionBreak});
    }
    record("profile-polyline", axis->getVeralPolyline(10.0).points());
    onAxis(axis, random);
    farFeet(AxisCalculator(axis), *axis, random);
  }
}

}  // namespace Digest
