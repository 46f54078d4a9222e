// SPDX-License-Identifier: BSL-1.0
#include "free_station/Station.h"

#include "common/console/Files.h"

#include <cmath>
#include <cstddef>
#include <map>
#include <string>

namespace FreeStation {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Resection;
using Ruv::Calculations::StationPlacement;

StationPlacement setUpStation(const std::vector<Sighting>& sightings) {
  Resection resection;
  for (const Sighting& s : sightings) {
    resection.addFixPoint(wideId(s.fixPoint.id), s.fixPoint.grid);
    resection.addMeasurement(wideId(s.fixPoint.id), s.measurement.polar);
  }
  StationPlacement station;
  if (!resection.calculatePlacementHelmert3d(station)) {
    throw Console::Failure("the measured fix points do not determine the station");
  }
  return station;
}

std::vector<ENHPoint> residualsOf(const StationPlacement& station,
                                  const std::vector<Sighting>& sightings) {
  std::map<std::string, std::size_t> seenBefore;  // two measurements may be of one fix point
  std::vector<ENHPoint> residuals;
  residuals.reserve(sightings.size());
  for (const Sighting& s : sightings) {
    const std::vector<ENHPoint> ofFixPoint = station.residuals(wideId(s.fixPoint.id));
    residuals.push_back(ofFixPoint[seenBefore[s.fixPoint.id]++]);
  }
  return residuals;
}

double sigma0Of(const std::vector<ENHPoint>& residuals) {
  constexpr double kUnknowns = 7.0;
  double squares = 0.0;
  for (const ENHPoint& r : residuals) {
    squares += r.east * r.east + r.north * r.north + r.height * r.height;
  }
  return std::sqrt(squares / (3.0 * static_cast<double>(residuals.size()) - kUnknowns));
}

}  // namespace FreeStation
