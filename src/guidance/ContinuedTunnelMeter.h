// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tunnel meters on and beyond an axis.

#ifndef CALCULATIONS_GUIDANCE_CONTINUED_TUNNEL_METER_H
#define CALCULATIONS_GUIDANCE_CONTINUED_TUNNEL_METER_H

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisDefinition.h>

namespace Ruv {
namespace Calculations {

/// The tunnel meter of an axis, continued beyond both ends by 1 m for each metre of stationing, as
/// if the axis went on level.
class ContinuedTunnelMeter {
 public:
  /// Keeps references to both.
  ContinuedTunnelMeter(const AxisDefinition& axis, const AxisCalculator& calculator)
      : m_axis(axis), m_calculator(calculator) {}

  struct Value {
    double value;
    bool isOnAxis;  ///< false for a value that is continued, or not a number
  };

  /// The value is not a number where the axis has no tunnel meter: on an incomplete axis, and on it
  /// beyond a rounding that cannot be computed.
  /// @{
  Value at(double stationing) const;
  Value stationingAt(double tunnelmeter) const;
  /// @}

 private:
  const AxisDefinition& m_axis;
  const AxisCalculator& m_calculator;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
