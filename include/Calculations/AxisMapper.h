// SPDX-License-Identifier: BSL-1.0
/// @file
/// Carries stationings from one axis to another.

#ifndef CALCULATIONS_AXIS_MAPPER_H
#define CALCULATIONS_AXIS_MAPPER_H

#include <Calculations/AxisDefinition.h>
#include <Calculations/BlockAxisDefinition.h>
#include <Calculations/Export.h>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace Ruv {
namespace Calculations {

class AxisMapperImpl;

/// Carries a stationing or tunnel meter from a source axis to a target axis: the axis point of the
/// source is projected onto the target in its vertical plane. A block stands for its own axis.
///
/// Conventions: stationings and tunnel meters in metres, as AxisCalculator gives them.
/// Failure: canMap returns false; mapStationing returns 0.0, which may also be a result, so ask
///   canMap first.
/// Cost: as one conversion each way by AxisCalculator.
/// Lifetime: shares ownership of both axes. Immutable after construction, shareable between
///   threads, not copyable.
/// @snippet snippets/Axes.cpp AxisMapper
class CALCULATIONS_EXPORT AxisMapper {
 public:
  /// @name From a source to a target
  /// @{

  /// Null pointers count as empty axes: nothing can be carried.
  AxisMapper(const boost::shared_ptr<const AxisDefinition>& from,
             const boost::shared_ptr<const AxisDefinition>& to);
  AxisMapper(const boost::shared_ptr<const AxisDefinition>& from,
             const boost::shared_ptr<const BlockAxisDefinition>& to);
  AxisMapper(const boost::shared_ptr<const BlockAxisDefinition>& from,
             const boost::shared_ptr<const AxisDefinition>& to);
  AxisMapper(const boost::shared_ptr<const BlockAxisDefinition>& from,
             const boost::shared_ptr<const BlockAxisDefinition>& to);
  /// @}
  AxisMapper(const AxisMapper&) = delete;
  AxisMapper& operator=(const AxisMapper&) = delete;
  virtual ~AxisMapper();

  /// Whether the value has a counterpart on the target.
  /// @param value on the source
  /// @param valueIsTunnelmeter the value is a tunnel meter, not a stationing
  bool canMap(double value, bool valueIsTunnelmeter) const;

  /// The counterpart of a value on the target.
  /// @param value on the source
  /// @param valueIsTunnelmeter the value is a tunnel meter, not a stationing
  /// @param resultAsTunnelmeter return the tunnel meter of the target, not the stationing
  /// @return 0.0 when the value cannot be carried; as a tunnel meter also where the target has none
  ///   at its stationing (AxisCalculator::stationingToTunnelmeter), which canMap does not ask
  double mapStationing(double value, bool valueIsTunnelmeter, bool resultAsTunnelmeter) const;

 private:
  std::unique_ptr<AxisMapperImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
