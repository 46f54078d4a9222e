// SPDX-License-Identifier: BSL-1.0
#include "snippets/Snippets.h"

namespace Snippets {

GuidanceOffsets boomBesideVector(const boost::shared_ptr<const AxisDefinition>& axis,
                                 ENHPoint& ahead) {
  //! [GuidanceCalculator]
  const boost::shared_ptr<const GuidanceVectorDefinition> vector(
      GuidanceVectorFactory::createAsAxisParallelFromAxisCoordinate(AxisPoint(1010, 2, 1)));
  const GuidanceCalculator guidance(vector, axis, false);
  const GuidanceOffsets boom = guidance.calculateOffsets(ENHPoint(600002.1, 200014, 501.3));
  ahead = guidance.absolutePointAtForwardValue(boom.forward + 5);
  // boom.forward is 4, boom.horizontal 0.1; ahead lies on the vector
  //! [GuidanceCalculator]
  return boom;
}

double riseOfVector() {
  //! [GuidanceVectorDefinition]
  GuidanceVectorDefinition vector;
  vector.setVectorOriginPoint(AxisPoint(1010, 2, 1));
  vector.setVectorDirectionAsStraight(GuidanceOffsets(1, 0, 0.1));        // forward and upwards
  const double rise = vector.getGuidanceAngleProjectedInSideViewPlane();  // atan(0.1)
  //! [GuidanceVectorDefinition]
  return rise;
}

double driftOfVector(const boost::shared_ptr<const AxisDefinition>& axis) {
  //! [GuidanceVectorFactory]
  // Straight, and over 20 m one metre to the right.
  const boost::shared_ptr<const GuidanceVectorDefinition> vector(
      GuidanceVectorFactory::createAsStraightFromPairOfAxisCoordinates(
          axis, AxisPoint(1010, 2, 1), AxisPoint(1030, 3, 1), false, false));
  const double drift = vector->getGuidanceAngleProjectedInTopViewPlane();  // atan(1 / 20)
  //! [GuidanceVectorFactory]
  return drift;
}

}  // namespace Snippets
