// SPDX-License-Identifier: BSL-1.0
#include "snippets/Snippets.h"

#include <cmath>

namespace Snippets {

boost::shared_ptr<AxisDefinition> defineAxis() {
  //! [AxisDefinition]
  boost::shared_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  axis->addHoralSegmentStraight(1000, 600000, 200000, 0, 150);  // heads north
  axis->addHoralSegmentArc(1150, 600000, 200150, 0, 400, 100);  // curves to the right
  axis->addVeralPointKink(1000, 500);
  axis->addVeralPointArc(1100, 502, 3000);  // 2 % up, then level
  axis->addVeralPointKink(1250, 502);
  axis->addTransSlopeSegmentLinear(1130, 1150, 0, 2.5);  // the right side lower in the curve
  axis->addTransSlopeSegmentConstant(1150, 1250, 2.5);
  axis->setStationingMappingValues(1000, 0);  // the tunnel meter counts from the portal
  //! [AxisDefinition]
  return axis;
}

bool isContinuous(const AxisDefinition& axis) {
  //! [Misclosure]
  // Printed to the millimetre and the tenth of a milligon; more than that is a typing error.
  bool isContinuous = true;
  for (const Misclosure& misclosure : axis.misclosures()) {
    if (!(misclosure.distance <= 0.005)) isContinuous = false;
    if (!(std::abs(misclosure.directionBreak) <= 1e-5)) isContinuous = false;
  }
  //! [Misclosure]
  return isContinuous;
}

boost::shared_ptr<const AxisDefinition> defineShaft() {
  //! [AxisDefinitionFactory]
  // At this place, from height 500 down to 420; stationing 0 is at the top.
  boost::shared_ptr<const AxisDefinition> shaft(
      AxisDefinitionFactory::createShaftAxis(600000, 200000, 500, 420, 0));
  //! [AxisDefinitionFactory]
  return shaft;
}

ENHPoint gridPointOfAxisPoint(const boost::shared_ptr<const AxisDefinition>& axis,
                              AxisPoint& back) {
  //! [AxisCalculator]
  const AxisCalculator calculator(axis);
  ENHPoint grid;
  if (!calculator.axisPointToEnhPointVertical(AxisPoint(1050, 3, 1.5), grid)) {
    // beyond the axis: grid is as it was
  }
  calculator.enhPointToAxisPointVertical(grid, back);  // 1050, 3, 1.5
  //! [AxisCalculator]
  return grid;
}

AxisPoint positionInBlock(const boost::shared_ptr<const AxisDefinition>& axis) {
  //! [BlockAxisDefinition]
  const boost::shared_ptr<const BlockAxisDefinition> block(
      new BlockAxisDefinition(axis, 1150, 1162));
  AxisPoint beside;  // relative to the chord of the block
  AxisCalculator(block).enhPointToAxisPointVertical(ENHPoint(600003, 200155, 503), beside);
  //! [BlockAxisDefinition]
  return beside;
}

double stationingOnOtherAxis(const boost::shared_ptr<const AxisDefinition>& axis,
                             const boost::shared_ptr<const AxisDefinition>& other) {
  //! [AxisMapper]
  const AxisMapper mapper(axis, other);
  double stationing = 0;
  if (mapper.canMap(1050, false)) stationing = mapper.mapStationing(1050, false, false);
  //! [AxisMapper]
  return stationing;
}

double lengthInSpace(const AxisDefinition& axis) {
  //! [Polyline]
  const std::vector<Point2D> points = axis.getVeralPolyline(1).points();  // stationing, height
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i)
    length += (points[i] - points[i - 1]).length();
  //! [Polyline]
  return length;
}

double lengthCurvingRight(const AxisDefinition& axis) {
  //! [CHoralElement]
  double length = 0;
  for (unsigned i = 0; i < axis.getNumHoralSegments(); ++i) {
    const auto* end = static_cast<const Ruv::CHoralElement*>(axis.getHoralSegmentAt(i));
    if (end->getTypeId() == Ruv::CShapeType::Arc && end->getRadiusEnd() > 0) {
      length += end->getStationing() - end->getPrevious()->getStationing();
    }
  }
  //! [CHoralElement]
  return length;
}

void flattenRounding(const AxisDefinition& axis) {
  //! [CVeralElement]
  auto* rounding = static_cast<Ruv::CVeralElement*>(axis.getVeralPointAt(1));
  rounding->setRoundingValue(5000);  // acts on the axis at once
  //! [CVeralElement]
}

bool endOfClothoid(Point2D& end) {
  //! [CClothoidCurve]
  // 80 m along a clothoid that there has reached the radius 500 m.
  const Ruv::CClothoidCurve clothoid;
  const bool converged = clothoid.localX(80, 500, 80, end.x) && clothoid.localY(80, 500, 80, end.y);
  // end.x is 79.9488 along the tangent, end.y 2.1324 to its side
  //! [CClothoidCurve]
  return converged;
}

}  // namespace Snippets
