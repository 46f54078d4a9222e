// SPDX-License-Identifier: BSL-1.0
/// @file
/// The data behind a placement.

#ifndef CALCULATIONS_STATIONS_STATION_PLACEMENT_IMPL_H
#define CALCULATIONS_STATIONS_STATION_PLACEMENT_IMPL_H

#include <Calculations/Points.h>

#include "stations/PointPairs.h"
#include "stations/StationSetup.h"

#include <Eigen/Core>

#include <cstddef>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

class StationPlacementImpl {
 public:
  StationPlacementImpl() : StationPlacementImpl(StationSetup()) {}
  explicit StationPlacementImpl(const StationSetup& adjusted);

  ENHPoint toGlobal(const ENHPoint& local) const;
  ENHPoint toLocal(const ENHPoint& global) const;

  /// Sets the residuals of all pairs.
  /// @param pairs those of the measurements and the fix points
  void setResiduals(const PointPairs& pairs, const MeasurementMap& measurements,
                    const FixPointMap& fixPoints);

  std::vector<ENHPoint> residuals(const std::wstring& id) const;

  StationSetup setup;  ///< with normalised angles

 private:
  ENHPoint fromStation(const ENHPoint& local) const;

  Eigen::Matrix3d m_rotation;
  std::vector<ENHPoint> m_residuals;  ///< in the order of the ids
  std::vector<std::wstring> m_ids;    ///< ascending
  std::vector<std::size_t> m_ends;    ///< of each id: the residuals that come before the next one
};

}  // namespace Calculations
}  // namespace Ruv

#endif
