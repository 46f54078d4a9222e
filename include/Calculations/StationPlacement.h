// SPDX-License-Identifier: BSL-1.0
/// @file
/// An instrument that has been set up: where it stands, how it is turned, what it sees where.

#ifndef CALCULATIONS_STATION_PLACEMENT_H
#define CALCULATIONS_STATION_PLACEMENT_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <memory>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

class StationPlacementImpl;

/// The placement of an instrument as Resection::calculatePlacementHelmert3d finds it, tilt
/// included, so that whatever else is measured from there can be placed as the fix points were.
///
/// Conventions: metres and radians. Local coordinates have their origin in the instrument, its
///   circle's zero as north and its standing axis as up. They become global ones by a turn about
///   east, then one about north, then one about the vertical, the scale and the shift to the
///   station, in this order:
///   - tiltAboutEast is positive when the zero direction points downwards,
///   - tiltAboutNorth is positive when the direction to the right of it points upwards,
///   - orientation is the angle from global north to what these leave of the zero direction,
///     clockwise.
/// Without tilt the conversions are those of Utilities::transformLocalToGlobal. To take a tilted
/// instrument for a levelled one moves a target by its distance times the tilt: 8 mm at 50 m for
/// 0.01 gon.
/// Failure: never throws. Coordinates that are not finite come out as not-a-number or infinite.
/// Cost: constant, but for residuals, which is O(log n) in the number of ids.
/// Lifetime: a value. It holds what the adjustment found; fix points and measurements that are
///   added to the resection later do not change it.
/// @snippet snippets/Stations.cpp StationPlacement
class CALCULATIONS_EXPORT StationPlacement {
 public:
  /// A levelled instrument at the origin with its zero direction to the north.
  StationPlacement();
  StationPlacement(const StationPlacement& other);
  StationPlacement& operator=(const StationPlacement& other);
  virtual ~StationPlacement();

  /// @name The adjusted unknowns
  /// @{

  /// East, north and height of the instrument.
  ENHPoint station() const;
  /// The tilt lies in [-pi, pi); beyond a right angle the instrument hangs upside down.
  double tiltAboutEast() const;
  /// The tilt lies in [-pi/2, pi/2].
  double tiltAboutNorth() const;
  /// The orientation lies in [0, 2 pi). At a tilt about north near a right angle the sum or
  /// difference of orientation and tilt about east is well determined, each by itself is not.
  double orientation() const;
  /// Measured lengths are multiplied by it; it is 1 for a perfect instrument.
  double scale() const;
  /// @}

  /// @name Standard deviations
  /// @{

  /// Standard deviations of east, north and height (m).
  ENHPoint stationStdDev() const;
  /// Standard deviation of the orientation (rad).
  double orientationStdDev() const;
  /// Standard deviation of the scale.
  double scaleStdDev() const;
  /// @}

  /// @name Conversions
  /// @{

  /// Where a measured target lies.
  ENHPoint toGlobal(const PolarPoint& measurement) const;
  /// Where a point of the instrument's own system lies.
  ENHPoint toGlobal(const ENHPoint& local) const;
  /// What the instrument reads at a point: the inverse of toGlobal, with the horizontal angle in
  /// [0, 2 pi) and the zenith angle in [0, pi].
  PolarPoint toPolar(const ENHPoint& global) const;
  /// @}

  /// Where the sightings of a fix point lie less where the fix point lies, in the order in which
  /// they were added.
  /// @return empty for ids that were not in the adjustment
  std::vector<ENHPoint> residuals(const std::wstring& id) const;

 private:
  friend class Resection;

  std::shared_ptr<const StationPlacementImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
