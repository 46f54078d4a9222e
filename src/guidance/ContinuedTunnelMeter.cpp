// SPDX-License-Identifier: BSL-1.0
// Beyond an end of the axis, at the stationing e with the tunnel meter T(e), the tunnel meter is
// T(e) + (s - e), and the stationing of a tunnel meter T is e + (T - T(e)).

#include "guidance/ContinuedTunnelMeter.h"

#include "foundation/MathConstants.h"

namespace Ruv {
namespace Calculations {

ContinuedTunnelMeter::Value ContinuedTunnelMeter::at(double stationing) const {
  double tunnelmeter = 0.0;
  if (m_calculator.stationingToTunnelmeter(stationing, tunnelmeter)) return {tunnelmeter, true};
  const double first = m_axis.minimumStng2d();
  const double last = m_axis.maximumStng2d();
  // What has no tunnel meter but is not outside lies beyond a rounding that cannot be computed, and
  // no end to continue from is known.
  const bool isOutside = stationing < first || stationing > last;
  const double end = stationing < first ? first : last;
  if (!isOutside || !m_calculator.stationingToTunnelmeter(end, tunnelmeter)) {
    return {kNotANumber, false};
  }
  return {tunnelmeter + (stationing - end), false};
}

ContinuedTunnelMeter::Value ContinuedTunnelMeter::stationingAt(double tunnelmeter) const {
  double stationing = 0.0;
  if (m_calculator.tunnelmeterToStationing(tunnelmeter, stationing)) return {stationing, true};
  const double first = m_axis.minimumStng2d();
  const double last = m_axis.maximumStng2d();
  double atEnd = 0.0;
  if (m_calculator.stationingToTunnelmeter(first, atEnd) && tunnelmeter < atEnd) {
    return {first + (tunnelmeter - atEnd), false};
  }
  if (m_calculator.stationingToTunnelmeter(last, atEnd) && tunnelmeter > atEnd) {
    return {last + (tunnelmeter - atEnd), false};
  }
  return {kNotANumber, false};
}

}  // namespace Calculations
}  // namespace Ruv
