// SPDX-License-Identifier: BSL-1.0
/// @file
/// Conversions on a vertical shaft.

#ifndef CALCULATIONS_ALIGNMENT_SHAFT_H
#define CALCULATIONS_ALIGNMENT_SHAFT_H

#include "alignment/AxisDefinitionImpl.h"

#include <Calculations/Points.h>

namespace Ruv {
namespace Calculations {

/// A complete shaft: its point in plan, and the stationing and height of its start. The section
/// is horizontal: offset runs east in a top-down shaft and west in one that runs upward, height
/// runs north.
class Shaft {
 public:
  /// The axis must be a complete shaft.
  explicit Shaft(const AxisDefinitionImpl& axis);

  bool isTopDown() const { return m_upward < 0.0; }
  ENHPoint gridPointOf(const AxisPoint& point) const;
  AxisPoint axisPointOf(const ENHPoint& point) const;
  /// Unit vector along growing stationings.
  ENHPoint direction() const { return ENHPoint(0.0, 0.0, m_upward); }

 private:
  double m_east;
  double m_north;
  double m_stationing;
  double m_height;
  double m_upward;  // +1 or -1
};

}  // namespace Calculations
}  // namespace Ruv

#endif
