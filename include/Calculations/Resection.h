// SPDX-License-Identifier: BSL-1.0
/// @file
/// The free station: position and orientation of an instrument from measured fix points.

#ifndef CALCULATIONS_RESECTION_H
#define CALCULATIONS_RESECTION_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>
#include <Calculations/StationPlacement.h>

#include <memory>
#include <string>

namespace Ruv {
namespace Calculations {

class ResectionImpl;

/// Computes where an instrument stands, how its horizontal circle is oriented and by which scale
/// its distances fit the fix points, from polar measurements to fix points of known coordinates.
///
/// Every measurement whose id is that of a fix point is one observation, a repeated one too.
/// Measurements of unknown ids and fix points never measured are ignored.
///
/// Units: metres and radians. The orientation is what has to be added to a horizontal direction of
///   the instrument to get the azimuth, clockwise from north. The scale multiplies measured
///   lengths; a perfect instrument has 1.
/// Methods: calculateResectionHelmert2d trusts the instrument's level and takes the height as a
///   mean. calculateResectionHelmert3d also finds the tilt of the instrument, hence fits an
///   instrument without a compensator or on a moving machine; it needs three ids that do not lie
///   on one line.
/// Accuracy: the least-squares solution within 1e-9 m, 1e-12 rad and 1e-12 in scale, as far as
///   doubles carry the coordinates; standard deviations within 1e-6 relative. The 3-D method, which
///   iterates, needs residuals below a thousandth of the spread of the points for this.
/// Reliability: with three sightings a wrong one spreads over all residuals; five or more show
///   which it is. Before anything is steered by a station, look at its standard deviations and
///   residuals.
/// Failure: adding and calculating return false, never throw; each says what its outputs then hold.
/// Cost: linear in the number of measurements and fix points, but for adding, which is O(log n).
/// Lifetime: copies share their points and measurements, so what is added through one of them is
///   seen by all. Calculations may run in several threads at once while nothing is added.
/// @snippet snippets/Stations.cpp Resection
class CALCULATIONS_EXPORT Resection {
 public:
  Resection();
  Resection(const Resection& other);
  Resection& operator=(const Resection& other);
  virtual ~Resection();

  /// @name Fix points and measurements
  /// Ids are told apart and ordered by their code units. The other forms of each take ids in
  /// strings of 16-bit units, which are widened one by one: a surrogate pair becomes two units.
  /// Strings of unsigned short are there where the standard library has them; libc++ dropped them
  /// with its version 19.
  /// @{

  /// Removes all fix points and measurements.
  void reset();

  /// The number of fix points, each id once.
  int getNumFixpoints() const;

  /// The number of measurements, those of unknown ids and repeated ones included.
  int getNumFixPointMeasurements() const;

  /// Adds a fix point or replaces the one of the same id.
  /// @return false, with nothing stored, when the id is empty
  bool addFixPoint(const std::wstring& id, const ENHPoint& point);
  /// Does what addFixPoint does, for ids in 16-bit units.
  bool addFixPointU(const std::u16string& id, const ENHPoint& point);
#if !defined(_LIBCPP_VERSION) || _LIBCPP_VERSION < 190000
  /// Does what addFixPoint does, for ids in 16-bit units.
  bool addFixPointU(const std::basic_string<unsigned short>& id, const ENHPoint& point);
#endif

  /// Adds a measurement to those of the id.
  /// @return false, with nothing stored, when the id is empty
  bool addMeasurement(const std::wstring& id, const PolarPoint& measurement);
  /// Does what addMeasurement does, for ids in 16-bit units.
  bool addMeasurementU(const std::u16string& id, const PolarPoint& measurement);
#if !defined(_LIBCPP_VERSION) || _LIBCPP_VERSION < 190000
  /// Does what addMeasurement does, for ids in 16-bit units.
  bool addMeasurementU(const std::basic_string<unsigned short>& id, const PolarPoint& measurement);
#endif
  /// @}

  /// Plane similarity transformation in closed form. Three measurements are enough, even of two
  /// ids only.
  ///
  /// Not-a-number and infinite input reach the outputs, and measurements of one and the same
  /// place give outputs that are not numbers: true is then returned all the same.
  /// @param[out] station east, north and height of the instrument
  /// @param[out] orientation in [0, 2 pi)
  /// @param[out] scale from the plan distances
  /// @param[out] stationStdDev standard deviation of the transformed centroid of the measured
  ///   points in east and in north (both the same), which is that of the station only when it
  ///   stands amid the points; height: mean absolute height residual, not a standard deviation
  /// @param[out] orientationStdDev standard deviation of the orientation
  /// @param[out] scaleStdDev standard deviation of the scale
  /// @return false, with the outputs unchanged, with fewer than three measurements of known fix
  ///   points
  bool calculateResectionHelmert2d(ENHPoint& station, double& orientation, double& scale,
                                   ENHPoint& stationStdDev, double& orientationStdDev,
                                   double& scaleStdDev) const;

  /// Spatial similarity transformation by least squares (Gauss-Newton on seven parameters, started
  /// from the plane one). Instruments may hang at any tilt, but for one of a right angle about
  /// north, where orientation and tilt about east are one and the same turn.
  ///
  /// An iteration stops after at most 101 steps. One that has not settled by then is repeated from
  /// the closed form of the rotation (Kabsch 1978); if that does not settle either, the first one
  /// is returned as it is. Data that do not fit together show in the standard deviations.
  /// Steps and results go as text to std::clog, in one piece; set its buffer to null to save the
  /// time.
  /// @param[out] station east, north and height of the instrument
  /// @param[out] orientation in [0, 2 pi), the rotation about the vertical that follows the tilts
  ///   about the instrument's own east and north axes, of which the second is at most a right
  ///   angle. Alone it places nothing that a tilted instrument measures: see
  ///   calculatePlacementHelmert3d
  /// @param[out] scale of the lengths in space
  /// @param[out] stationStdDev standard deviations of east, north and height
  /// @param[out] orientationStdDev standard deviation of the orientation
  /// @param[out] scaleStdDev standard deviation of the scale
  /// @return false, with scale = 1, scaleStdDev = 0 and the other outputs unchanged, with fewer
  ///   than three fix points, measured ids or measurements of known fix points, and when the
  ///   points leave the rotation open (one line, two places) or are not finite
  bool calculateResectionHelmert3d(ENHPoint& station, double& orientation, double& scale,
                                   ENHPoint& stationStdDev, double& orientationStdDev,
                                   double& scaleStdDev) const;

  /// The adjustment of calculateResectionHelmert3d with all that it finds: the same numbers, the
  /// tilt, the residuals, and the conversions between what the instrument reads and the grid.
  /// @param[out] placement unchanged on failure
  /// @return false when calculateResectionHelmert3d returns false
  bool calculatePlacementHelmert3d(StationPlacement& placement) const;

 private:
  std::shared_ptr<ResectionImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
