#include "free_station/Station.h"

#include "common/console/Files.h"

#include <cmath>

namespace FreeStation {

namespace {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::PolarPoint;
using Ruv::Calculations::Resection;
using Ruv::Calculations::Utilities;

/// As a levelled instrument would measure it.
ENHPoint levelled(const ENHPoint& local, const Tilt& tilt) {
  return Utilities::rotateAroundNorthYaxis(Utilities::rotateAroundEastXaxis(local, tilt.forward),
                                           -tilt.right);
}

/// What turns levelled points a little, about their east and north axes, towards where their fix
/// points are, in the sense of least squares.
Tilt correctionOf(const Station& station, const std::vector<Sighting>& sightings) {
  double forwardSquares = 0.0;
  double rightSquares = 0.0;
  double products = 0.0;
  double forwardGap = 0.0;
  double rightGap = 0.0;
  for (const Sighting& s : sightings) {
    const ENHPoint p =
        levelled(Utilities::convertToLocalCoordinates(s.measurement.polar), station.tilt);
    const ENHPoint gap = Utilities::transformGlobalToLocal(s.fixPoint.grid, station.position,
                                                           station.orientation, station.scale) -
                         p;
    // By a forward tilt a point moves along (0, -height, north), by one to the right along
    // (-height, 0, east).
    forwardSquares += p.height * p.height + p.north * p.north;
    rightSquares += p.height * p.height + p.east * p.east;
    products += p.north * p.east;
    forwardGap += p.north * gap.height - p.height * gap.north;
    rightGap += p.east * gap.height - p.height * gap.east;
  }
  const double determinant = forwardSquares * rightSquares - products * products;
  return {(rightSquares * forwardGap - products * rightGap) / determinant,
          (forwardSquares * rightGap - products * forwardGap) / determinant};
}

/// The resection finds the tilt too but returns only what stays when the instrument is levelled.
/// With all else at its best values, this is the tilt of the same adjustment.
void findTilt(Station& station, const std::vector<Sighting>& sightings) {
  constexpr int kSteps = 10;  // tilts of some degrees are found to the last digit in five
  for (int i = 0; i < kSteps; ++i) {
    const Tilt correction = correctionOf(station, sightings);
    station.tilt.forward += correction.forward;
    station.tilt.right += correction.right;
  }
}

}  // namespace

ENHPoint Station::toGrid(const PolarPoint& measured) const {
  return Utilities::transformLocalToGlobal(
      levelled(Utilities::convertToLocalCoordinates(measured), tilt), position, orientation, scale);
}

Station setUpStation(const std::vector<Sighting>& sightings) {
  Resection resection;
  for (const Sighting& s : sightings) {
    resection.addFixPoint(wideId(s.fixPoint.id), s.fixPoint.grid);
    resection.addMeasurement(wideId(s.fixPoint.id), s.measurement.polar);
  }
  Station station;
  if (!resection.calculateResectionHelmert3d(station.position, station.orientation, station.scale,
                                             station.positionStdDev, station.orientationStdDev,
                                             station.scaleStdDev)) {
    throw Console::Failure("the measured fix points do not determine the station");
  }
  findTilt(station, sightings);
  return station;
}

std::vector<ENHPoint> residualsOf(const Station& station, const std::vector<Sighting>& sightings) {
  std::vector<ENHPoint> residuals;
  residuals.reserve(sightings.size());
  for (const Sighting& s : sightings) {
    residuals.push_back(station.toGrid(s.measurement.polar) - s.fixPoint.grid);
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
