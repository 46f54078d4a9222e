// SPDX-License-Identifier: BSL-1.0
#include "alignment/AxisDefinitionImpl.h"

namespace Ruv {
namespace Calculations {

void AxisDefinitionImpl::stationingRange(double& minimum, double& maximum) const {
  minimum = 0.0;
  maximum = 0.0;
  // A shaft has its range from its two heights; in plan it is a point. Another axis needs two
  // entries in plan, which are one segment, and two vertical points, which are one grade; with less
  // there is no place on it to calculate at.
  if (axisType == AxisType::Shaft) {
    if (container.numVeral() < 2) return;
    minimum = container.veralAt(0)->getStationing();
    maximum = container.veralAt(1)->getStationing();
  } else if (container.numHoral() >= 2 && container.numVeral() >= 2) {
    container.stationingRange(minimum, maximum);
  }
}

bool AxisDefinitionImpl::isCompleteShaft() const {
  return axisType == AxisType::Shaft && container.numHoral() > 0 && container.numVeral() >= 2;
}

}  // namespace Calculations
}  // namespace Ruv
