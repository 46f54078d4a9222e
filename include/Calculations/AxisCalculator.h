// SPDX-License-Identifier: BSL-1.0
/// @file
/// Conversions between axis coordinates and grid coordinates.

#ifndef CALCULATIONS_AXIS_CALCULATOR_H
#define CALCULATIONS_AXIS_CALCULATOR_H

#include <Calculations/AxisDefinition.h>
#include <Calculations/BlockAxisDefinition.h>
#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <memory>

namespace Ruv {
namespace Calculations {

class AxisCalculatorImpl;

/// Converts between axis coordinates (stationing, offset, height) and grid coordinates (east,
/// north, height) on one axis, between stationing and tunnel meter, and tells the direction of
/// the axis.
///
/// Units: metres and radians; slopes also in percent. Offset is positive to the right looking
///   forward, height upwards from the axis. Pictures: docs/conventions.md.
/// Plane: offset and height are measured in the vertical plane square to the axis in plan, or,
///   with perpendicular set, in the plane square to the axis in space.
/// Transverse slope: with withTransSlope set, offset and height are turned about the axis by the
///   transverse slope at the stationing (not for slopes below 1.2e-7 percent).
/// Shaft: the section is horizontal. In a top-down shaft the offset runs east, in one that runs
///   upward it runs west; height runs north. Plane and transverse slope have no effect.
/// Failure: operations return false, never throw, when the stationing (given or found) lies
///   outside the range of the axis, when the axis has fewer than two horizontal entries or two
///   vertical points, or when an element cannot be evaluated. Each says what its output then holds.
///   A stationing found up to 1e-7 m outside counts as the limit, a tunnel meter up to 1e-9 m.
/// Accuracy: there and back returns the point within 1e-9 m plus the rounding of the coordinates.
/// Cost: constructing is O(1). Conversions are O(log n) in the number of elements; for points
///   without a foot near the axis grid to axis is O(n).
/// Lifetime: shares ownership of the axis, which must not change while threads convert. Not
///   copyable: construct another one.
/// @snippet snippets/Axes.cpp AxisCalculator
class CALCULATIONS_EXPORT AxisCalculator {
 public:
  /// A null pointer counts as an empty axis: every operation fails.
  AxisCalculator(const boost::shared_ptr<const AxisDefinition>& axis);
  /// Works on the block's own axis.
  AxisCalculator(const boost::shared_ptr<const BlockAxisDefinition>& block);
  AxisCalculator(const AxisCalculator&) = delete;
  AxisCalculator& operator=(const AxisCalculator&) = delete;
  virtual ~AxisCalculator();

  /// @name Axis to grid
  /// @{

  /// The grid point of an axis point, in the plane that the name or the flag says. The short forms
  /// apply the transverse slope. The output is unchanged on failure, except on a shaft, where it is
  /// always written.
  bool axisPointToEnhPoint(const AxisPoint& in, ENHPoint& out, bool perpendicular,
                           bool withTransSlope) const;
  /// Of a list of points: each result, to the bit, and each success as the single call gives them.
  /// To use several processors, give each thread a part of the list.
  /// @param      in    the points; may be null when there are none
  /// @param      count how many there are
  /// @param[out] out   as many places, which may be the memory of in
  /// @param[out] found as many places, or null; whether each point has a result
  /// @param      perpendicular  as of the single call
  /// @param      withTransSlope as of the single call
  /// @return the number of points that have one
  std::size_t axisPointsToEnhPoints(const AxisPoint* in, std::size_t count, ENHPoint* out,
                                    bool* found, bool perpendicular, bool withTransSlope) const;
  bool axisPointToEnhPointVertical(const AxisPoint& in, ENHPoint& out) const;
  bool axisPointToEnhPointPerpendicular(const AxisPoint& in, ENHPoint& out) const;
  /// @}

  /// @name Grid to axis
  /// @{

  /// The axis point of a grid point, the inverse of the above. Takes the nearest foot, the first of
  /// equally near ones. On the outer side of a corner of the axis, where no element has a foot, the
  /// stationing is that of the corner and the offset the distance from it; in the vertical plane
  /// only if the whole axis has none, for a foot on another turn of it goes first, however far
  /// away. Where elements touch with a break below 0.001 rad, as with printed azimuths, their joint
  /// is a foot in the same way, and competes with the others. The output is unchanged on failure,
  /// except on a shaft, where it is always written.
  /// @return false also when the point has no foot on the axis
  bool enhPointToAxisPoint(const ENHPoint& in, AxisPoint& out, bool perpendicular,
                           bool withTransSlope) const;
  /// Of a list of points, with results and parameters as axisPointsToEnhPoints has them. Each
  /// search begins where one before it ended. In the vertical plane, points that follow each other
  /// as scanners write them need no search while they stay beside one element, and take 0.5 of the
  /// time on axes of ten elements, 0.33 on those of ten thousand; in the perpendicular plane, where
  /// the foot itself takes longer, 0.7 to 0.8 from a hundred elements on. Lists in no order take as
  /// long as single calls.
  std::size_t enhPointsToAxisPoints(const ENHPoint* in, std::size_t count, AxisPoint* out,
                                    bool* found, bool perpendicular, bool withTransSlope) const;
  bool enhPointToAxisPointVertical(const ENHPoint& in, AxisPoint& out) const;
  bool enhPointToAxisPointPerpendicular(const ENHPoint& in, AxisPoint& out) const;
  /// @}

  /// @name Tunnel meter
  /// @{

  /// The length in space from the origin of the mapping, see
  /// AxisDefinition::setStationingMappingValues, and back. On a shaft it is the stationing. Outside
  /// the profile, where an origin may lie, it counts one metre per metre. The result is the input
  /// on failure: also from a rounding on that cannot be computed.
  bool stationingToTunnelmeter(double stationing, double& result) const;
  bool tunnelmeterToStationing(double tunnelmeter, double& result) const;
  /// @}

  /// Direction and slopes of the axis. All outputs are 0 on failure, except on a shaft.
  /// @param      stationing in plan
  /// @param[out] azimuth in [0, 2 pi); 0 on a top-down shaft, pi on one that runs upward
  /// @param[out] radius signed, 0 where the plan is straight
  /// @param[out] longSlopeRad, longSlopePercent positive rising forward; -pi/2 on a top-down
  ///   shaft, pi/2 on one that runs upward
  /// @param[out] transSlopeRad positive anticlockwise looking forward
  /// @param[out] transSlopePercent positive clockwise, the right side lower
  bool axisPropertiesAtStationing(double stationing, double& azimuth, double& radius,
                                  double& longSlopeRad, double& longSlopePercent,
                                  double& transSlopeRad, double& transSlopePercent) const;

  /// @name Unit tangents
  /// @{

  /// Along the axis in plan (vertical plane) or in space (perpendicular plane). On a shaft both
  /// point along the shaft. The output is unchanged on failure.
  bool tangentAtStationingVertical(double stationing, ENHPoint& tangent) const;
  bool tangentAtStationingPerpendicular(double stationing, ENHPoint& tangent) const;
  /// @}

 private:
  std::unique_ptr<AxisCalculatorImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
