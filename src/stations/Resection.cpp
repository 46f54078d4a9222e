// SPDX-License-Identifier: BSL-1.0
// With k the scale, R the rotation by both tilts and the orientation, l a measured point relative
// to the instrument and S the station, every fix point is S + k R l but for errors of measuring.
//
// Both methods pair the measurements with the fix points of their ids. The plane one solves this in
// plan alone, with R a turn about the vertical, in closed form, and takes the height as a mean; the
// spatial one iterates from there. Outputs are written when all is calculated, so that a failure
// leaves them alone, but for two that callers read without asking.

#include <Calculations/Resection.h>
#include <Calculations/Utilities.h>

#include "stations/Helmert2d.h"
#include "stations/Helmert3d.h"
#include "stations/PointPairs.h"
#include "stations/ResectionDiagnostics.h"
#include "stations/StationPlacementImpl.h"

#include <iostream>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

class ResectionImpl {
 public:
  FixPointMap fixPoints;
  MeasurementMap measurements;
};

namespace {

/// Three ids are needed to find a tilt.
constexpr std::size_t kFewestIdsInSpace = 3;

/// Takes 16-bit units one by one: ids are compared, never shown, so surrogate pairs need no care.
template <class Unit>
std::wstring widened(const std::basic_string<Unit>& id) {
  return std::wstring(id.begin(), id.end());
}

/// @param[out] pairs those that the setup is adjusted to
std::optional<StationSetup> spatialSetup(const FixPointMap& fixPoints,
                                         const MeasurementMap& measurements, PointPairs& pairs) {
  if (fixPoints.size() < kFewestIdsInSpace || measurements.size() < kFewestIdsInSpace) {
    return std::nullopt;
  }
  pairs = pairMeasurementsWithFixPoints(measurements, fixPoints);
  const auto start = fitHelmert2d(pairs);
  if (!start) return std::nullopt;
  ResectionDiagnostics diagnostics(std::clog);
  auto setup = fitHelmert3d(pairs, *start, diagnostics);
  diagnostics.write();
  return setup;
}

}  // namespace

Resection::Resection() : m_impl(std::make_shared<ResectionImpl>()) {}

Resection::Resection(const Resection& other) = default;
Resection& Resection::operator=(const Resection& other) = default;
Resection::~Resection() = default;

void Resection::reset() {
  m_impl->fixPoints.clear();
  m_impl->measurements.clear();
}

int Resection::getNumFixpoints() const { return static_cast<int>(m_impl->fixPoints.size()); }

int Resection::getNumFixPointMeasurements() const {
  std::size_t count = 0;
  for (const auto& [id, measurements] : m_impl->measurements) {
    count += measurements.size();
  }
  return static_cast<int>(count);
}

bool Resection::addFixPoint(const std::wstring& id, const ENHPoint& point) {
  if (id.empty()) return false;
  m_impl->fixPoints[id] = point;
  return true;
}

bool Resection::addFixPointU(const std::u16string& id, const ENHPoint& point) {
  return addFixPoint(widened(id), point);
}

bool Resection::addMeasurement(const std::wstring& id, const PolarPoint& measurement) {
  if (id.empty()) return false;
  MeasurementMap& measurements = m_impl->measurements;
  const auto place = measurements.lower_bound(id);
  if (place != measurements.end() && place->first == id) {
    place->second.push_back(measurement);
  } else {
    // Added with its measurement at once: no id stays without one when memory runs out.
    measurements.emplace_hint(place, id, std::vector<PolarPoint>(1, measurement));
  }
  return true;
}

bool Resection::addMeasurementU(const std::u16string& id, const PolarPoint& measurement) {
  return addMeasurement(widened(id), measurement);
}

#if !defined(_LIBCPP_VERSION) || _LIBCPP_VERSION < 190000
bool Resection::addFixPointU(const std::basic_string<unsigned short>& id, const ENHPoint& point) {
  return addFixPoint(widened(id), point);
}

bool Resection::addMeasurementU(const std::basic_string<unsigned short>& id,
                                const PolarPoint& measurement) {
  return addMeasurement(widened(id), measurement);
}
#endif

bool Resection::calculateResectionHelmert2d(ENHPoint& station, double& orientation, double& scale,
                                            ENHPoint& stationStdDev, double& orientationStdDev,
                                            double& scaleStdDev) const {
  const PointPairs pairs = pairMeasurementsWithFixPoints(m_impl->measurements, m_impl->fixPoints);
  const auto setup = fitHelmert2d(pairs);
  if (!setup) return false;
  station = setup->station;
  orientation = Utilities::getAngleAsZeroToTwoPi(setup->orientation);
  scale = setup->scale;
  stationStdDev = setup->stationStdDev;
  orientationStdDev = setup->orientationStdDev;
  scaleStdDev = setup->scaleStdDev;
  return true;
}

bool Resection::calculateResectionHelmert3d(ENHPoint& station, double& orientation, double& scale,
                                            ENHPoint& stationStdDev, double& orientationStdDev,
                                            double& scaleStdDev) const {
  // Callers read these two without asking for success.
  scale = 1.0;
  scaleStdDev = 0.0;
  PointPairs pairs;
  const auto setup = spatialSetup(m_impl->fixPoints, m_impl->measurements, pairs);
  if (!setup) return false;
  station = setup->station;
  orientation = Utilities::getAngleAsZeroToTwoPi(setup->orientation);
  scale = setup->scale;
  stationStdDev = setup->stationStdDev;
  orientationStdDev = setup->orientationStdDev;
  scaleStdDev = setup->scaleStdDev;
  return true;
}

bool Resection::calculatePlacementHelmert3d(StationPlacement& placement) const {
  PointPairs pairs;
  const auto setup = spatialSetup(m_impl->fixPoints, m_impl->measurements, pairs);
  if (!setup) return false;
  const auto found = std::make_shared<StationPlacementImpl>(*setup);
  found->setResiduals(pairs, m_impl->measurements, m_impl->fixPoints);
  placement.m_impl = found;
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
