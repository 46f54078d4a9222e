// SPDX-License-Identifier: BSL-1.0
#include <Calculations/Calculations.h>

#include <iostream>

int main() {
  using namespace Ruv::Calculations;
  boost::shared_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  axis->addHoralSegmentStraight(0, 600000, 200000, 0, 100);  // stationing, east, north, azimuth
  axis->addHoralSegmentClothoid(100, 600000, 200100, 0, 0, 500, 80);  // radius 0: straight
  axis->addHoralSegmentArc(180, 600002.1324, 200179.9488, 0.08, 500, 200);
  axis->addVeralPointKink(0, 450);
  axis->addVeralPointParabola(200, 454, 5000);
  axis->addVeralPointKink(380, 451);

  AxisPoint result;
  const ENHPoint measured(600021.5, 200270.25, 455.1);
  if (!AxisCalculator(axis).enhPointToAxisPointVertical(measured, result)) return 1;
  std::cout << "stationing " << result.stationing << ", offset " << result.offset << ", height "
            << result.height << " above the axis\n";
}
