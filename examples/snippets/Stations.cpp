// SPDX-License-Identifier: BSL-1.0
#include "snippets/Snippets.h"

namespace Snippets {

namespace {

const ENHPoint kInstrument(600010, 200005, 501.6);
const ENHPoint kA(600000, 200020, 503);
const ENHPoint kB(600018, 200022, 502);
const ENHPoint kC(600012, 199990, 504.5);

/// What the instrument reads when its circle's zero has the azimuth 1.
PolarPoint measured(const ENHPoint& target) {
  PolarPoint reading = Utilities::convertToPolarMeasurement(kInstrument, target);
  reading.horizontalAngle = Utilities::getAngleAsZeroToTwoPi(reading.horizontalAngle - 1.0);
  return reading;
}

}  // namespace

ENHPoint freeStation(double& orientation) {
  //! [Resection]
  Resection resection;
  resection.addFixPoint(L"A", kA);
  resection.addFixPoint(L"B", kB);
  resection.addFixPoint(L"C", kC);
  resection.addMeasurement(L"A", measured(kA));
  resection.addMeasurement(L"B", measured(kB));
  resection.addMeasurement(L"C", measured(kC));
  ENHPoint station;
  ENHPoint stationStdDev;
  double orientationStdDev = 0, scale = 1, scaleStdDev = 0;
  if (!resection.calculateResectionHelmert3d(station, orientation, scale, stationStdDev,
                                             orientationStdDev, scaleStdDev)) {
    // too few fix points, or all on one line
  }
  //! [Resection]
  return station;
}

ENHPoint placeTarget(std::vector<ENHPoint>& residuals) {
  const PolarPoint boom = measured(ENHPoint(600015, 200030, 503));
  ENHPoint target;
  //! [StationPlacement]
  Resection resection;
  resection.addFixPointU(u"A", kA);  // ids in UTF-16
  resection.addFixPointU(u"B", kB);
  resection.addFixPointU(u"C", kC);
  resection.addMeasurementU(u"A", measured(kA));
  resection.addMeasurementU(u"B", measured(kB));
  resection.addMeasurementU(u"C", measured(kC));
  StationPlacement placement;
  if (resection.calculatePlacementHelmert3d(placement)) {
    residuals = placement.residuals(L"A");  // of each sighting of A: measured less known
    target = placement.toGlobal(boom);      // of a tilted instrument, too
  }
  //! [StationPlacement]
  return target;
}

std::wstring identifyFixPoint() {
  //! [PointDetermination]
  PointDetermination determination;
  determination.addPoint(L"A", kA);
  determination.addPoint(L"B", kB);
  determination.addPoint(L"C", kC);
  determination.addMeasurement(L"1", measured(kC));
  determination.addMeasurement(L"2", measured(kA));
  determination.addMeasurement(L"3", measured(kB));
  std::wstring name;
  constexpr double kNoChanceMatch = 0.001;
  if (determination.determineMeasuredPointsRobust() &&
      determination.isBestSolutionSignificantlyBetter() &&         // than other assignments
      determination.expectedChanceSolutions() < kNoChanceMatch) {  // than chance
    name = determination.getFixPointIdForMeasurementId(L"1");      // "C"
  }
  //! [PointDetermination]
  return name;
}

}  // namespace Snippets
