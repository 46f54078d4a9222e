// SPDX-License-Identifier: BSL-1.0
/// @file
/// Finds out which fix points an instrument has measured.

#ifndef CALCULATIONS_POINT_DETERMINATION_H
#define CALCULATIONS_POINT_DETERMINATION_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <memory>
#include <string>

namespace Ruv {
namespace Calculations {

class PointDeterminationImpl;

/// Identifies measured points among known fix points, without trusting the ids of the
/// measurements and without knowing where the instrument stands or how it is oriented.
///
/// An assignment of measurements to fix points is a solution when the measured figure, moved by a
/// rotation and a translation without scale, comes to lie on the fix points within the tolerances.
/// The score of a solution is the sum of its squared deviations in east, north and, doubly
/// weighted, height; the lowest is the best.
///
/// Two measurements may be assigned to one fix point. Of more than two fix points at exactly the
/// same coordinates only two take part in solutions: the others would merely repeat them.
///
/// Results: each successful determination appends its solutions to those of the one before, and
///   the queries answer from the front of that list. So call reset() between determinations.
/// Trust: a few stray measurements find fix points by chance. Use a solution only when both
///   isBestSolutionSignificantlyBetter() and expectedChanceSolutions() allow it.
/// Units: metres and radians; only the tilt is in degrees.
/// Failure: operations return false, never throw. Points and measurements that are not finite
///   match nothing.
/// Cost: strict determination takes O(nF (w + log nF)) for nF fix points of which w lie at one
///   distance from a point, then some microseconds for each solution; tens of milliseconds with
///   thousands of fix points. Tolerances as wide as the distances between fix points make the
///   number of solutions, hence time and memory, grow as nF to the power of the measurements.
///   Leaving out measurements multiplies this by the number of ways to choose them.
/// Lifetime: copies share points, settings and result: what is done through one is seen by all.
///   Nothing is locked.
/// @snippet snippets/Stations.cpp PointDetermination
class CALCULATIONS_EXPORT PointDetermination {
 public:
  PointDetermination();
  PointDetermination(const PointDetermination& other);
  PointDetermination& operator=(const PointDetermination& other);
  virtual ~PointDetermination();

  /// @name Fix points and measurements
  /// @{

  /// Removes points, measurements and solutions and restores the default settings.
  void reset();

  /// The number of fix points added.
  unsigned int getNumPoints() const;
  /// The number of measurements added.
  unsigned int getNumMeasurements() const;

  /// Adds a fix point.
  /// @return false, with nothing stored, when the id is empty or has a fix point already
  bool addPoint(const std::wstring& id, const ENHPoint& point);

  /// Adds a measurement.
  /// @return false, with nothing stored, when the id is empty or has a measurement already
  bool addMeasurement(const std::wstring& id, const PolarPoint& measurement);
  /// @}

  /// @name Determination
  /// @{

  /// Searches for the assignments of all measurements.
  /// @return false, with the result unchanged, when there is none or when points or measurements
  ///   are fewer than required
  bool determineMeasuredPointsStrict();

  /// Searches for the assignments of as many measurements as possible: leaves out none, then one,
  /// two and so on, as long as the required number remains, until there is an assignment. Which
  /// ones to leave out is tried in lexicographic order of the adding of the measurements.
  /// @return false, with the result unchanged, when there is none
  bool determineMeasuredPointsRobust();
  /// @}

  /// @name Result
  /// @{

  /// Whether the best solution is better than the other assignments of the same measurements: there
  /// is no other, or the next one has a score larger by more than 0.01, or all others place the
  /// measurements on points within 1 mm of the best one's. Meaningful after one determination since
  /// reset().
  ///
  /// True does not mean better than chance. The only assignment of three stray measurements passes
  /// this test: see expectedChanceSolutions(). Nor are assignments of other measurements compared,
  /// which the robust determination has not come to.
  bool isBestSolutionSignificantlyBetter() const;

  /// How many assignments of as many measurements as the best solution has would be expected if
  /// the measurements, as many as there were, lay at random in the volume of the fix points, under
  /// the tolerances in force at the determination. Setters called later change nothing.
  ///
  /// Fewer than one in a thousand determinations of mere strays gets a value below 0.001. From 0.01
  /// on the best solution may be a chance match, however small its deviations: measure more
  /// points. With the default tolerances four matches of a dozen measurements are enough among a
  /// hundred fix points in 200 m of tunnel, six among thousands. Fix points that lie within the
  /// tolerance of each other are one match: two sightings of one target prove no more than one.
  ///
  /// An upper estimate, 4 to 10 times the mean number in simulations. It knows chance only: neither
  /// measurements that repeat the pattern of the fix points, as bolts at regular distances do, nor
  /// fix points that have moved. The derivation is in docs/numerics.md.
  /// Cost: about a millisecond for tens of matches among thousands of fix points.
  /// @return infinity without a solution and when the best one has matched fewer than three places
  double expectedChanceSolutions() const;

  /// The id of the fix point that a measurement belongs to in the best solution.
  /// @return empty when there is no solution, when the measurement was left out and for unknown ids
  std::wstring getFixPointIdForMeasurementId(const std::wstring& measurementId) const;
  /// @}

  /// @name Settings
  /// Setters of tolerances ignore negative values and not-a-number.
  /// @{

  /// The least number of measurements (and of fix points) to search with, 3 by default; smaller
  /// values are stored as 3.
  void setMinNumberOfFixPointMeasurementsRequired(int number);
  /// The least number in force.
  int getMinNumberOfFixPointMeasurementsRequired() const;

  /// Limit (exclusive, m) of the difference between a measured and a known distance, and of the
  /// deviations in east and in north; 0.05 by default.
  void setToleranceDistanceDifference(double tolerance);
  /// The limit in force (m).
  double getToleranceDistanceDifference() const;

  /// Limit (exclusive, m) of the deviation in height; 0.02 by default.
  void setToleranceHeightDifference(double tolerance);
  /// The limit in force (m).
  double getToleranceHeightDifference() const;

  /// Largest tilt (degrees) of the measured figure against the plumb line; 80 by default.
  void setToleranceTilt(double degrees);
  /// The limit in force (degrees).
  double getToleranceTilt() const;
  /// @}

 private:
  std::shared_ptr<PointDeterminationImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
