/// @file
/// The data behind a placement.

#ifndef CALCULATIONS_STATIONS_STATION_PLACEMENT_IMPL_H
#define CALCULATIONS_STATIONS_STATION_PLACEMENT_IMPL_H

#include <Calculations/Points.h>

#include "stations/PointPairs.h"
#include "stations/StationSetup.h"

#include <Eigen/Core>

#include <map>
#include <string>
#include <vector>

namespace Ruv {
namespace Calculations {

using ResidualMap = std::map<std::wstring, std::vector<ENHPoint>>;

class StationPlacementImpl {
 public:
  StationPlacementImpl() : StationPlacementImpl(StationSetup()) {}
  explicit StationPlacementImpl(const StationSetup& adjusted);

  ENHPoint toGlobal(const ENHPoint& local) const;
  ENHPoint toLocal(const ENHPoint& global) const;

  /// Sets the residuals of all measurements that have a fix point.
  void setResiduals(const MeasurementMap& measurements, const FixPointMap& fixPoints);

  StationSetup setup;  ///< with normalised angles
  ResidualMap residuals;

 private:
  Eigen::Matrix3d m_rotation;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
