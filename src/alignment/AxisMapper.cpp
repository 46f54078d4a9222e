// SPDX-License-Identifier: BSL-1.0
// A stationing means nothing on another axis, which begins elsewhere and curves in its own way.
// What two axes share is the grid: the point of the source axis at the stationing is projected onto
// the target, and the stationing of its foot is the counterpart. Tunnel meters are turned into
// stationings before and back after.

#include <Calculations/AxisCalculator.h>
#include <Calculations/AxisMapper.h>

namespace Ruv {
namespace Calculations {

class AxisMapperImpl {
 public:
  template <class From, class To>
  AxisMapperImpl(const From& from, const To& to) : fromCalculator(from), toCalculator(to) {}

  AxisCalculator fromCalculator;
  AxisCalculator toCalculator;

  /// The stationing on the target; unchanged when the value cannot be carried. The point of the
  /// source axis is projected in the vertical plane: a common place of both axes in plan, whatever
  /// their heights. In the perpendicular plane a target far above or below on a grade would be met
  /// elsewhere.
  bool carry(double value, bool valueIsTunnelmeter, double& stationing) const {
    double onSource = value;
    if (valueIsTunnelmeter && !fromCalculator.tunnelmeterToStationing(value, onSource)) {
      return false;
    }
    ENHPoint point;
    AxisPoint onTarget;
    if (!fromCalculator.axisPointToEnhPointVertical(AxisPoint(onSource, 0.0, 0.0), point) ||
        !toCalculator.enhPointToAxisPointVertical(point, onTarget)) {
      return false;
    }
    stationing = onTarget.stationing;
    return true;
  }
};

AxisMapper::AxisMapper(const boost::shared_ptr<const AxisDefinition>& from,
                       const boost::shared_ptr<const AxisDefinition>& to)
    : m_impl(new AxisMapperImpl(from, to)) {}

AxisMapper::AxisMapper(const boost::shared_ptr<const AxisDefinition>& from,
                       const boost::shared_ptr<const BlockAxisDefinition>& to)
    : m_impl(new AxisMapperImpl(from, to)) {}

AxisMapper::AxisMapper(const boost::shared_ptr<const BlockAxisDefinition>& from,
                       const boost::shared_ptr<const AxisDefinition>& to)
    : m_impl(new AxisMapperImpl(from, to)) {}

AxisMapper::AxisMapper(const boost::shared_ptr<const BlockAxisDefinition>& from,
                       const boost::shared_ptr<const BlockAxisDefinition>& to)
    : m_impl(new AxisMapperImpl(from, to)) {}

AxisMapper::~AxisMapper() = default;

bool AxisMapper::canMap(double value, bool valueIsTunnelmeter) const {
  double stationing = 0.0;
  return m_impl->carry(value, valueIsTunnelmeter, stationing);
}

double AxisMapper::mapStationing(double value, bool valueIsTunnelmeter,
                                 bool resultAsTunnelmeter) const {
  double stationing = 0.0;
  if (!m_impl->carry(value, valueIsTunnelmeter, stationing)) return 0.0;
  // What cannot be carried is 0, as callers of the interface expect.
  if (!resultAsTunnelmeter) return stationing;
  double tunnelmeter = 0.0;
  return m_impl->toCalculator.stationingToTunnelmeter(stationing, tunnelmeter) ? tunnelmeter : 0.0;
}

}  // namespace Calculations
}  // namespace Ruv
