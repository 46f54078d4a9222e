#include <Calculations/StationPlacement.h>
#include <Calculations/Utilities.h>

#include "stations/EigenPoints.h"
#include "stations/SpatialRotation.h"
#include "stations/StationPlacementImpl.h"

namespace Ruv {
namespace Calculations {

StationPlacementImpl::StationPlacementImpl(const StationSetup& adjusted)
    : setup(adjusted),
      m_rotation(
          spatialRotation({adjusted.tiltAboutEast, adjusted.tiltAboutNorth, adjusted.orientation})
              .matrix) {
  Utilities::angleAsMinusPiToPi(setup.tiltAboutEast);
  Utilities::angleAsZeroToTwoPi(setup.orientation);
}

ENHPoint StationPlacementImpl::toGlobal(const ENHPoint& local) const {
  return setup.station + asPoint(m_rotation * asVector(local * setup.scale));
}

ENHPoint StationPlacementImpl::toLocal(const ENHPoint& global) const {
  return asPoint(m_rotation.transpose() * asVector(global - setup.station)) / setup.scale;
}

void StationPlacementImpl::setResiduals(const MeasurementMap& measurements,
                                        const FixPointMap& fixPoints) {
  for (const auto& [id, sightings] : measurements) {
    const auto fixPoint = fixPoints.find(id);
    if (fixPoint == fixPoints.end()) continue;
    // Between the station and the fix point, so that grid coordinates cost no digits.
    const ENHPoint known = fixPoint->second - setup.station;
    std::vector<ENHPoint>& ofId = residuals[id];
    ofId.reserve(sightings.size());
    for (const PolarPoint& sighting : sightings) {
      const ENHPoint local = Utilities::convertToLocalCoordinates(sighting);
      ofId.push_back(asPoint(m_rotation * asVector(local * setup.scale)) - known);
    }
  }
}

StationPlacement::StationPlacement() : m_impl(std::make_shared<StationPlacementImpl>()) {}

StationPlacement::StationPlacement(std::shared_ptr<const StationPlacementImpl> impl)
    : m_impl(std::move(impl)) {}

StationPlacement::StationPlacement(const StationPlacement& other) = default;
StationPlacement& StationPlacement::operator=(const StationPlacement& other) = default;
StationPlacement::~StationPlacement() = default;

ENHPoint StationPlacement::station() const { return m_impl->setup.station; }

double StationPlacement::tiltAboutEast() const { return m_impl->setup.tiltAboutEast; }

double StationPlacement::tiltAboutNorth() const { return m_impl->setup.tiltAboutNorth; }

double StationPlacement::orientation() const { return m_impl->setup.orientation; }

double StationPlacement::scale() const { return m_impl->setup.scale; }

ENHPoint StationPlacement::stationStdDev() const { return m_impl->setup.stationStdDev; }

double StationPlacement::orientationStdDev() const { return m_impl->setup.orientationStdDev; }

double StationPlacement::scaleStdDev() const { return m_impl->setup.scaleStdDev; }

ENHPoint StationPlacement::toGlobal(const PolarPoint& measurement) const {
  return m_impl->toGlobal(Utilities::convertToLocalCoordinates(measurement));
}

ENHPoint StationPlacement::toGlobal(const ENHPoint& local) const { return m_impl->toGlobal(local); }

PolarPoint StationPlacement::toPolar(const ENHPoint& global) const {
  return Utilities::convertToPolarMeasurement(m_impl->toLocal(global));
}

std::vector<ENHPoint> StationPlacement::residuals(const std::wstring& id) const {
  const auto found = m_impl->residuals.find(id);
  return found == m_impl->residuals.end() ? std::vector<ENHPoint>() : found->second;
}

}  // namespace Calculations
}  // namespace Ruv
