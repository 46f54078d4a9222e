// SPDX-License-Identifier: BSL-1.0
/// @file
/// Readings of points, and what several readings of one point give together.

#ifndef CALCULATIONS_APPS_FREE_STATION_READINGS_H
#define CALCULATIONS_APPS_FREE_STATION_READINGS_H

#include <Calculations/Calculations.h>

#include <cstddef>
#include <string>
#include <vector>

namespace FreeStation {

/// One reading of the instrument.
struct Reading {
  int line = 0;
  std::string id;  ///< what the instrument counted or somebody typed, not that of a fix point
  Ruv::Calculations::PolarPoint polar;
  double targetHeight = 0.0;      ///< of what was sighted above the point (m)
  double instrumentHeight = 0.0;  ///< NaN where none is told
};

/// The largest differences between readings of one point.
struct Spread {
  double horizontal = 0.0;  ///< rad
  double zenith = 0.0;      ///< rad
  double distance = 0.0;    ///< m
};

/// A point, from all its readings.
struct Measurement {
  int line = 0;  ///< of the first
  std::string id;
  Ruv::Calculations::PolarPoint polar;  ///< to the point itself, in the first face
  std::size_t readings = 1;
  bool hasBothFaces = false;
  Spread spread;
  double targetHeight = 0.0;  ///< the largest (m)

  /// The largest distance between where two readings put the point, at most (m).
  double spreadInSpace() const;
};

/// Whether the telescope was turned over: the zenith angle is then more than half a circle.
bool isSecondFace(const Ruv::Calculations::PolarPoint& polar);

/// Readings of one id are of one point. The mean of each face, then that of the faces, so that
/// errors of the instrument's axes cancel even if one face was read more often. Target heights are
/// taken off along the instrument's own vertical axis first.
/// @return in the order of the first readings
std::vector<Measurement> measurementsOf(const std::vector<Reading>& readings);

/// The same readings if their angles had been in another unit.
std::vector<Reading> withAnglesTimes(double factor, std::vector<Reading> readings);

}  // namespace FreeStation

#endif
