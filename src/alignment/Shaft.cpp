// SPDX-License-Identifier: BSL-1.0
// With u = +1 for a shaft that runs upward and -1 for a top-down one:
//
//   east = E - u offset,  north = N + height,  H = H0 + u (stationing - s0)
//
// The section is seen along growing stationings, so offset changes sides with u and height does
// not.

#include "alignment/Shaft.h"

namespace Ruv {
namespace Calculations {

Shaft::Shaft(const AxisDefinitionImpl& axis)
    : m_east(axis.container.horalAt(0)->getEast()),
      m_north(axis.container.horalAt(0)->getNorth()),
      m_stationing(axis.container.veralAt(0)->getStationing()),
      m_height(axis.container.veralAt(0)->getHeight()),
      m_upward(m_height < axis.container.veralAt(1)->getHeight() ? 1.0 : -1.0) {}

ENHPoint Shaft::gridPointOf(const AxisPoint& point) const {
  return ENHPoint(m_east - m_upward * point.offset, m_north + point.height,
                  m_height + m_upward * (point.stationing - m_stationing));
}

AxisPoint Shaft::axisPointOf(const ENHPoint& point) const {
  return AxisPoint(m_stationing + m_upward * (point.height - m_height),
                   m_upward * (m_east - point.east), point.north - m_north);
}

}  // namespace Calculations
}  // namespace Ruv
