// SPDX-License-Identifier: BSL-1.0
// The turning at a node is the change of bearing there, in (-pi, pi]. Around a closed chain that
// does not cross itself the turnings add up to 2 pi clockwise and to -2 pi anticlockwise, so the
// sign of the sum tells the sense. Arcs count by their end points only.

#include "profiles/TurningSense.h"

#include "foundation/MathConstants.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// A reversal this close (rad) to half a turn to the left counts as half a turn to the right, so
/// that a circle of two half arcs turns clockwise whatever its last bits.
constexpr double kReversalTolerance = 1e-12;

/// The bearing of a vector, clockwise from +y.
double bearing(const Point2D& v) { return kHalfPi - std::atan2(v.y, v.x); }

/// The change from one bearing to another, in (-pi, pi].
double turning(double fromBearing, double toBearing) {
  double angle = toBearing - fromBearing;
  if (angle > kPi) angle -= kTwoPi;
  if (angle <= -kPi) angle += kTwoPi;
  return angle <= -kPi + kReversalTolerance ? kPi : angle;
}

}  // namespace

void TurningSense::add(const Point2D& node) {
  const bool isRepeated = m_numNodes > 0 && node.x == m_last.x && node.y == m_last.y;
  if (isRepeated) return;  // nothing leads to it that could have a bearing
  if (m_numNodes > 0) {
    const double newBearing = bearing(node - m_last);
    if (m_numNodes == 1) {
      m_second = node;
    } else {
      m_sum += turning(m_lastBearing, newBearing);
    }
    m_lastBearing = newBearing;
  }
  m_last = node;
  ++m_numNodes;
}

void TurningSense::reset() {
  const bool isKept = isClockwise();
  *this = TurningSense();
  m_before = isKept;
}

bool TurningSense::isClockwise() const {
  if (m_numNodes < 3) return m_before;
  // The closing term: from the last two nodes to the second, as the first is repeated as the last.
  return m_sum + turning(m_lastBearing, bearing(m_second - m_last)) > 0.0;
}

}  // namespace Calculations
}  // namespace Ruv
