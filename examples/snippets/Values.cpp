// SPDX-License-Identifier: BSL-1.0
#include "snippets/Snippets.h"

#include <array>

namespace Snippets {

ENHPoint pointAhead() {
  //! [Points]
  const ENHPoint from(600000, 200000, 500);
  const ENHPoint towards(600030, 200040, 512);
  const ENHPoint step = towards - from;
  const double plan = step.lengthOfEastNorthProjection();  // 50
  const ENHPoint ahead = from + step / plan * 10;          // 600006, 200008, 502.4
  //! [Points]
  return ahead;
}

ENHPoint measuredPoint() {
  //! [Utilities]
  // 10 m to the north-east of the instrument, whose circle points north, and level with it.
  const PolarPoint measurement(Utilities::gon2rad(50), Utilities::gon2rad(100), 10);
  const ENHPoint station(600000, 200000, 500);
  const ENHPoint target = Utilities::transformLocalToGlobal(measurement, station, 0, 1);
  //! [Utilities]
  return target;
}

double rawLength() {
  //! [RawPointHelper]
  const std::array<double, 3> components = {3, 4, 12};
  const double length = RawPointHelper::length(components.data());  // 13
  //! [RawPointHelper]
  return length;
}

}  // namespace Snippets
