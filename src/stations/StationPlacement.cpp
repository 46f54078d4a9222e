// SPDX-License-Identifier: BSL-1.0
// Global is S + k R local, with the station S, the scale k and the rotation R of SpatialRotation;
// the way back is R^T (global - S) / k. A residual leads from the fix point to where the sighting
// puts it.

#include <Calculations/StationPlacement.h>
#include <Calculations/Utilities.h>

#include "stations/EigenPoints.h"
#include "stations/SpatialRotation.h"
#include "stations/StationPlacementImpl.h"

#include <algorithm>

namespace Ruv {
namespace Calculations {

StationPlacementImpl::StationPlacementImpl(const StationSetup& adjusted)
    : setup(adjusted),
      m_rotation(
          spatialRotation({adjusted.tiltAboutEast, adjusted.tiltAboutNorth, adjusted.orientation})
              .matrix) {
  // The rotation takes the angles as adjusted. Callers are told the normalised ones, and the tilt
  // about north lies within a right angle already.
  Utilities::angleAsMinusPiToPi(setup.tiltAboutEast);
  Utilities::angleAsZeroToTwoPi(setup.orientation);
}

/// The vector from the instrument to a point: scale * R * local.
ENHPoint StationPlacementImpl::fromStation(const ENHPoint& local) const {
  return asPoint(m_rotation * asVector(local * setup.scale));
}

ENHPoint StationPlacementImpl::toGlobal(const ENHPoint& local) const {
  return setup.station + fromStation(local);
}

/// The inverse of a rotation is its transpose.
ENHPoint StationPlacementImpl::toLocal(const ENHPoint& global) const {
  return asPoint(m_rotation.transpose() * asVector(global - setup.station)) / setup.scale;
}

void StationPlacementImpl::setResiduals(const PointPairs& pairs, const MeasurementMap& measurements,
                                        const FixPointMap& fixPoints) {
  const ENHPoint station = setup.station - pairs.origin;  // grid coordinates would cost digits
  m_residuals.reserve(pairs.size());
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    m_residuals.push_back(station + fromStation(pairs.local[i]) - pairs.global[i]);
  }
  // The pairs are in the order of the ids, each id with all its sightings, so the ends of these
  // runs are all that is needed to find those of one id.
  std::size_t end = 0;
  for (const auto& [id, sightings] : measurements) {
    if (fixPoints.count(id) == 0) continue;
    end += sightings.size();
    m_ids.push_back(id);
    m_ends.push_back(end);
  }
}

std::vector<ENHPoint> StationPlacementImpl::residuals(const std::wstring& id) const {
  const auto found = std::lower_bound(m_ids.begin(), m_ids.end(), id);
  if (found == m_ids.end() || *found != id) return {};
  const auto index = static_cast<std::size_t>(found - m_ids.begin());
  const std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
  const auto at = [this](std::size_t i) {
    return m_residuals.begin() + static_cast<std::ptrdiff_t>(i);
  };
  return {at(begin), at(m_ends[index])};
}

StationPlacement::StationPlacement() : m_impl(std::make_shared<StationPlacementImpl>()) {}

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
  return m_impl->residuals(id);
}

}  // namespace Calculations
}  // namespace Ruv
