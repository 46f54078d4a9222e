// SPDX-License-Identifier: BSL-1.0
#include "Digest.h"
#include "testing/Random.h"
#include "testing/TransformationCase.h"

#include <Calculations/FittingHelper.h>
#include <Calculations/PointDetermination.h>
#include <Calculations/Resection.h>
#include <Calculations/StationPlacement.h>
#include <Calculations/TransitionCurves.h>
#include <Calculations/Utilities.h>

#include <cmath>

namespace Digest {

using namespace Ruv::Calculations;
using TestSupport::Random;

namespace {

constexpr double kAngleReadings = 1e7;  // per radian: a good instrument's

void record(const std::string& group, const FittingResult& fit) {
  Digest::record(group, fit.semiAxisA + std::abs(fit.center.x) + std::abs(fit.center.y),
                 {fit.center.x, fit.center.y, fit.radius, fit.semiAxisA, fit.semiAxisB});
}

/// Noisy points of an ellipse, or of a circle, on an arc that begins straight down.
std::vector<Point2D> scannedArc(Random& random, double a, double b, int count) {
  std::vector<Point2D> points;
  for (int i = 0; i < count; ++i) {
    const double t = 6.0 * i / count - 3.0;
    const double noise = random.uniform(0.99, 1.01) / (1.0 + t * t);
    points.emplace_back(1.0 + a * noise * (1.0 - t * t), 2.0 + b * noise * 2.0 * t);
  }
  return points;
}

struct Setup {
  Resection resection;
  PointDetermination determination;
  double size = 1.0;
};

void add(Setup& setup, const std::wstring& id, const ENHPoint& point, const PolarPoint& measured) {
  setup.resection.addFixPoint(id, point);
  setup.resection.addMeasurement(id, measured);
  setup.determination.addPoint(id, point);
  setup.determination.addMeasurement(L"m" + id, measured);
  setup.size = std::max(setup.size, largest(point));
}

void record(const Setup& setup) {
  for (const auto& [group, method] :
       {std::pair("resection-2d", &Resection::calculateResectionHelmert2d),
        std::pair("resection-3d", &Resection::calculateResectionHelmert3d)}) {
    ENHPoint p;
    ENHPoint deviation;
    double orientation = 0;
    double scale = 0;
    double orientationDeviation = 0;
    double scaleDeviation = 0;
    const bool ok = (setup.resection.*method)(p, orientation, scale, deviation,
                                              orientationDeviation, scaleDeviation);
    Digest::record(group, setup.size,
                   {double(ok), p.east, p.north, p.height, deviation.east, deviation.height});
    Digest::record(group, 1.0, {orientation, scale, orientationDeviation, scaleDeviation});
  }
}

void identify(Setup& setup) {
  const bool found = setup.determination.determineMeasuredPointsRobust();
  std::vector<double> answer = {double(found),
                                double(setup.determination.isBestSolutionSignificantlyBetter())};
  for (const wchar_t name : std::wstring(L"abcdefgh")) {
    const std::wstring id =
        setup.determination.getFixPointIdForMeasurementId(std::wstring(L"m") + name);
    answer.push_back(id.empty() ? 0.0 : double(id.front()));
  }
  Digest::record("point-determination", 1.0, answer);
}

void freeStation(Random& random) {
  const ENHPoint station{670000.0 + random.uniform(0, 50), 1520000.0 + random.uniform(0, 50), 400};
  const double orientation = random.uniform(0.0, 6.0);
  Setup setup;
  for (const wchar_t name : std::wstring(L"abcdefgh")) {
    const ENHPoint target{random.uniform(-60, 60), random.uniform(-60, 60), random.uniform(-4, 4)};
    const PolarPoint exact = Utilities::convertToPolarMeasurement(target);
    const PolarPoint read(rounded(exact.horizontalAngle - orientation + 7.0, kAngleReadings),
                          rounded(exact.verticalAngle, kAngleReadings),
                          rounded(exact.slopeDistance));
    add(setup, std::wstring(1, name), station + target, read);
  }
  record(setup);
  identify(setup);
}

void publishedStation(const std::string& name) {
  Setup setup;
  for (const auto& point : TestSupport::TransformationCase(name).points) {
    if (point.isFixPoint) add(setup, point.id, point.global, point.measured);
  }
  record(setup);
}

/// What an instrument reads that leans by the tangents of two angles.
PolarPoint readTilted(const ENHPoint& target, double east, double north) {
  const double e = std::sqrt(1.0 + east * east);
  const double n = std::sqrt(1.0 + north * north);
  const double ahead = (target.north - north * target.height) / n;
  const double up = (target.height + north * target.north) / n;
  const PolarPoint exact = Utilities::convertToPolarMeasurement(
      {(target.east - east * up) / e, ahead, (up + east * target.east) / e});
  return {rounded(exact.horizontalAngle, kAngleReadings),
          rounded(exact.verticalAngle, kAngleReadings), rounded(exact.slopeDistance, 1e3)};
}

void record(const Resection& resection, const PolarPoint& measured, const ENHPoint& scale) {
  StationPlacement placement;
  const bool ok = resection.calculatePlacementHelmert3d(placement);
  const ENHPoint at = placement.station();
  const ENHPoint off = placement.stationStdDev();
  const ENHPoint seen = placement.toGlobal(measured);
  const ENHPoint local = placement.toGlobal(ENHPoint(1, 2, 3));
  Digest::record("station-placement", largest(scale),
                 {double(ok), at.east, at.north, at.height, off.east, off.north, off.height,
                  seen.east, seen.north, seen.height, local.east, local.north, local.height});
  const PolarPoint read = placement.toPolar(scale + ENHPoint(9, 7, 5));
  Digest::record("station-angles", largest(scale),
                 {placement.tiltAboutEast(), placement.tiltAboutNorth(), placement.orientation(),
                  placement.scale(), placement.orientationStdDev(), placement.scaleStdDev(),
                  read.horizontalAngle, read.verticalAngle, read.slopeDistance});
  for (const ENHPoint& residual : placement.residuals(L"c")) {
    Digest::record("station-residuals", largest(scale),
                   {residual.east, residual.north, residual.height});
  }
}

/// The measurements of some fix points among those of others and of none, under tolerances.
void determine(PointDetermination determination, bool robust) {
  const bool found = robust ? determination.determineMeasuredPointsRobust()
                            : determination.determineMeasuredPointsStrict();
  std::vector<double> answer = {double(found),
                                double(determination.isBestSolutionSignificantlyBetter()),
                                std::log10(determination.expectedChanceSolutions() + 1e-30)};
  for (const wchar_t name : std::wstring(L"abcdefghxyz")) {
    const std::wstring id = determination.getFixPointIdForMeasurementId(std::wstring(1, name));
    answer.push_back(id.empty() ? 0.0 : double(id.front()));
  }
  Digest::record("determination-among-strays", 1e2, answer);
}

/// Chance among few fix points, in boxes that hold a figure in some poses only.
void recordChances() {
  Random random(46);
  for (int i = 0; i < 40; ++i) {
    PointDetermination determination;
    const ENHPoint box{random.uniform(1.0, 30.0), random.uniform(1.0, 30.0),
                       random.uniform(0.1, 20.0)};
    for (const wchar_t name : std::wstring(L"abcdefgh", 4 + random.index(5))) {
      const ENHPoint point{random.uniform(0.0, box.east), random.uniform(0.0, box.north),
                           random.uniform(0.0, box.height)};
      determination.addPoint(std::wstring(1, name), point);
      const ENHPoint target = name < L'e' ? point - ENHPoint(0.3, 0.7, 0.1) : ENHPoint(name, 9, 7);
      determination.addMeasurement(std::wstring(1, name), readTilted(target, 0.0, 0.0));
    }
    const bool found = determination.determineMeasuredPointsRobust();
    Digest::record("chances", 1e2,
                   {double(found), double(determination.isBestSolutionSignificantlyBetter()),
                    std::log10(determination.expectedChanceSolutions() + 1e-30)});
  }
}

}  // namespace

void fits() {
  Random random(41);
  for (int i = 0; i < 40; ++i) {
    const double radius = random.uniform(2.0, 8.0);
    const auto circle = scannedArc(random, radius, radius, 50 + i);
    record("fit-kasa", FittingHelper::circleFitKasa(circle));
    record("fit-landau", FittingHelper::circleFitLandau(circle));
    record("fit-legacy", FittingHelper::circleFitRuvLegacy(circle));
    std::vector<bool> used(circle.size(), true);
    const auto ellipse = scannedArc(random, radius, radius * random.uniform(0.3, 0.9), 50 + i);
    const FittingResult fit = FittingHelper::ellipseFitFitzgibbon(ellipse, used, i % 4);
    record("fit-ellipse", fit);
    Digest::record("fit-ellipse", 1.0, {fit.rotation});
  }
}

/// Few points of thin ellipses, exact ones and noisy ones, and points that are left out.
void fitsOfFewPoints() {
  Random random(45);
  for (int i = 0; i < 60; ++i) {
    const double a = random.uniform(0.5, 20.0);
    const double b = a * random.uniform(0.05, 1.2);
    const double far = i % 2 == 0 ? 0.0 : random.uniform(-900.0, 900.0);
    std::vector<Point2D> points;
    for (std::size_t n = 6 + random.index(9); n > 0; --n) {
      const double t = random.uniform(-4.0, 4.0);
      const double noise = i % 3 == 0 ? 1.0 : random.uniform(0.98, 1.02);
      points.emplace_back(far + a * noise * (1.0 - t * t) / (1.0 + t * t),
                          b * noise * 2.0 * t / (1.0 + t * t) - far);
    }
    points[random.index(points.size())] = Point2D(far + 1.5 * a, -far);  // a stray
    std::vector<bool> used(points.size(), true);
    used[random.index(used.size())] = false;
    record("fits-of-few", FittingHelper::ellipseFitFitzgibbon(points, used, i % 5));
    record("fits-of-few", FittingHelper::circleFitKasa(points));
    record("fits-of-few", FittingHelper::circleFitLandau(points));
    record("fits-of-few", FittingHelper::circleFitRuvLegacy(points));
  }
}

void stations() {
  Random random(42);
  for (int i = 0; i < 40; ++i) {
    freeStation(random);
  }
  for (const char* name : {"plane_geoeasy6", "space_dewitt4", "space_ghilani4", "space_tbm17"}) {
    publishedStation(name);
  }
}

void angles() {
  Random random(43);
  for (int i = 0; i < 150; ++i) {
    const double a = random.uniform(-20.0, 20.0);
    const double b = random.uniform(0.2, 1.4);
    const ENHPoint p{random.uniform(-9, 9), random.uniform(-9, 9), random.uniform(-9, 9)};
    Digest::record("angle-normalising", 1.0,
                   {Utilities::getAngleAsZeroToTwoPi(a), Utilities::getangleAsMinusPiToPi(a),
                    Utilities::gon2rad(a), Utilities::rad2deg(a)});
    Digest::record("slope-conversions", 1.0,
                   {Utilities::anglePercentToRad(a), Utilities::longSlopeRadToPercent(b)});
    const PolarPoint polar = Utilities::convertToPolarMeasurement(p);
    const ENHPoint turned = Utilities::transformLocalToGlobal(p, ENHPoint(1, 2, 3), a, 1.0001);
    const AxisPoint direction =
        Utilities::rotateENHdiffToAxisDirectionComponents(p, a, b / 10.0, a / 4.0);
    Digest::record("azimuths", 1.0, {polar.horizontalAngle, polar.verticalAngle});
    Digest::record("rotations", 10.0,
                   {polar.slopeDistance, turned.east, turned.north, turned.height,
                    direction.stationing, direction.offset, direction.height});
    const Ruv::CClothoidCurve clothoid;
    double x = 0;
    double y = 0;
    clothoid.localX(a * 3.0, 100.0 * b, 60.0, x);
    clothoid.localY(a * 3.0, 100.0 * b, 60.0, y);
    Digest::record("clothoid", 60.0, {x, y});
  }
}

void tiltedStations() {
  Random random(44);
  const ENHPoint origin{2600000, 1200000, 500};
  for (int i = 0; i < 40; ++i) {
    const double east = random.uniform(-0.02, 0.02);
    const double north = random.uniform(-0.3, 0.3) * (i % 2);
    Resection resection;
    PointDetermination determination;
    determination.setToleranceDistanceDifference(0.01);
    determination.setToleranceHeightDifference(0.01);
    determination.setToleranceTilt(i % 3 == 0 ? 30.0 : 1.5);
    PolarPoint measured;
    for (const wchar_t name : std::wstring(L"abcdefghijklmn")) {
      const std::wstring id(1, name);
      const ENHPoint target{random.uniform(-30, 30), random.uniform(-30, 30),
                            random.uniform(-4, 4)};
      determination.addPoint(id, origin + target);
      if (name > L'h') continue;
      measured = readTilted(target, east, north);
      resection.addFixPoint(id, origin + target);
      resection.addMeasurement(id, measured);
      determination.addMeasurement(id, measured);
    }
    for (const wchar_t name : std::wstring(L"xyz")) {
      const ENHPoint stray{random.uniform(-30, 30), random.uniform(-30, 30), 1.0};
      determination.addMeasurement(std::wstring(1, name), readTilted(stray, 0.0, 0.0));
    }
    record(resection, measured, origin);
    determine(determination, true);
    determine(determination, false);
  }
  recordChances();
}

}  // namespace Digest
